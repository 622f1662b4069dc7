// Command-line settings of the benchmark: what to start, how often, and which keys to measure.
#pragma once

#include <string>
#include <vector>

namespace bench {

struct Program {
    std::string name;                 // column title
    std::string path;                 // absolute path of the program
    std::string readyText;            // text whose appearance starts the "settled" watch; empty: any output
    std::vector<std::string> keys;    // harness key names, or "text:..." for literal text; measured in turn
    bool needsHost = false;           // started against a fresh simulated host
    std::vector<std::string> setup{}; // keys sent once after the first paint, not measured (e.g. a login)
};

struct BenchOptions {
    int rounds = 7;
    int keyCycles = 5; // how many times the key sequence is sent per run
    double idleSeconds = 10;
    int quietMs = 40; // output silence that counts as "paint settled"
    int rows = 30, cols = 100;
    std::string term = "linux";
    std::string scenario = "default";
    Program reference, tarn;
};

// Throws std::invalid_argument with a usage text on a bad argument.
BenchOptions ParseOptions(int argc, char** argv);
std::vector<std::string> SplitKeys(const std::string& list);

} // namespace bench
