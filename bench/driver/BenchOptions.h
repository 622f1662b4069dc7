// Command-line settings of the benchmark: what to start, how often, and which keys to measure.
#pragma once

#include <string>
#include <vector>

namespace bench {

// A key is a harness key name (F2, Down, Esc, ...), "text:STRING" or "esc:REST" (ESC and REST in one write).
// A suffix "@TEXT" waits for TEXT to show, "!TEXT" for it to go, before the output counts as settled: for
// screens that come after a pause (an apply, a login).
struct Phase {
    std::string name;               // shown in the report
    std::vector<std::string> setup; // sent once before the phase, not measured
    std::vector<std::string> keys;  // measured in turn, the sequence `cycles` times (0: --key-cycles)
    int cycles = 0;
};

struct Program {
    std::string name;         // column title
    std::string path;         // absolute path of the program
    std::string readyText;    // text whose appearance starts the "settled" watch; empty: any output
    bool needsHost = false;   // started against a fresh simulated host
    std::vector<Phase> first; // measured on the first screen, before the first idle window
    std::vector<Phase> later; // then (e.g. after a login), before the second idle window; may be empty
};

struct BenchOptions {
    int rounds = 7;
    int keyCycles = 5; // how many times each phase's key sequence is sent per run (unless the phase says)
    double idleSeconds = 5;
    int quietMs = 40; // output silence that counts as "paint settled"
    int rows = 30, cols = 100;
    std::string term = "linux";
    std::string scenario = "default";
    bool showScreens = false; // print the screen after each phase of the first tarn run
    Program reference, tarn;
};

// Throws std::invalid_argument with a usage text on a bad argument.
BenchOptions ParseOptions(int argc, char** argv);
std::vector<std::string> SplitKeys(const std::string& list);

} // namespace bench
