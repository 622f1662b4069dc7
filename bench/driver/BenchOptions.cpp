// Argument parsing with defaults that fit the console as it stands; every default can be overridden.
#include "BenchOptions.h"

#include "harness/Paths.h"

#include <cstdio>
#include <sstream>
#include <stdexcept>

namespace bench {

namespace {

const char* kUsage =
    "usage: tarn_bench [--rounds N] [--key-cycles N] [--idle SECONDS] [--quiet-ms MS] [--size COLSxROWS]\n"
    "                  [--term TERM] [--scenario NAME] [--tarn-keys K1,K2,..] [--tarn-ready TEXT]\n"
    "                  [--tarn-setup K1,K2,..]  (keys sent once before measuring, e.g. to log in)\n"
    "                  [--reference-keys K1,..] [--reference-ready TEXT]\n"
    "Keys are harness names (F1..F12, Up, Down, Left, Right, Enter, Esc, Tab, Backspace, ...) or "
    "text:STRING.\n";

} // namespace

std::vector<std::string> SplitKeys(const std::string& list) {
    std::vector<std::string> keys;
    std::istringstream in(list);
    for (std::string key; std::getline(in, key, ',');)
        if (!key.empty())
            keys.push_back(key);
    return keys;
}

BenchOptions ParseOptions(int argc, char** argv) {
    BenchOptions o;
    const std::string build = BuildDir();
    o.reference = {"reference", build + "/bench_reference", "<Enter>", {"Down"}, false};
    // On the root screen F2 opens a dialog (the login) and Esc cancels it: two repaints of a dialog; the
    // lone Esc includes the 25 ms ESCDELAY. TERM=linux on a pty becomes vt102 in the console, whose key table
    // lacks the Linux console's F1..F5 bytes: F2 is sent in its ESC-digit form.
    o.tarn = {"tarn", build + "/tarn", "<F2>", {"esc:2", "Esc"}, true};
    for (int i = 1; i < argc; ++i) {
        std::string arg = argv[i];
        auto value = [&]() -> std::string {
            if (i + 1 >= argc)
                throw std::invalid_argument(arg + " needs a value\n" + kUsage);
            return argv[++i];
        };
        if (arg == "--rounds")
            o.rounds = std::stoi(value());
        else if (arg == "--key-cycles")
            o.keyCycles = std::stoi(value());
        else if (arg == "--idle")
            o.idleSeconds = std::stod(value());
        else if (arg == "--quiet-ms")
            o.quietMs = std::stoi(value());
        else if (arg == "--size") {
            std::string v = value();
            if (std::sscanf(v.c_str(), "%dx%d", &o.cols, &o.rows) != 2)
                throw std::invalid_argument("--size wants COLSxROWS\n" + std::string(kUsage));
        } else if (arg == "--term")
            o.term = value();
        else if (arg == "--scenario")
            o.scenario = value();
        else if (arg == "--tarn-keys")
            o.tarn.keys = SplitKeys(value());
        else if (arg == "--tarn-setup")
            o.tarn.setup = SplitKeys(value());
        else if (arg == "--tarn-ready")
            o.tarn.readyText = value();
        else if (arg == "--reference-keys")
            o.reference.keys = SplitKeys(value());
        else if (arg == "--reference-ready")
            o.reference.readyText = value();
        else
            throw std::invalid_argument((arg == "--help" ? "" : "unknown argument " + arg + "\n") + kUsage);
    }
    if (o.rounds < 1 || o.keyCycles < 0 || o.idleSeconds < 0 || o.quietMs < 1)
        throw std::invalid_argument(std::string("bad value\n") + kUsage);
    return o;
}

} // namespace bench
