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
    "                  [--reference-keys K1,..] [--reference-ready TEXT] [--show-screens]\n"
    "Keys are harness names (F1..F12, Up, Down, Left, Right, Enter, Esc, Tab, Backspace, ...), text:STRING\n"
    "or esc:REST; KEY@TEXT waits for TEXT to show, KEY!TEXT for it to go. --tarn-keys replaces the default\n"
    "phases (the login dialog, the menu, the network window, its list, the IPv4 dialog, its address field,\n"
    "the apply) with one. --show-screens prints the screen after each phase of the first tarn run.\n"
    "Exit status 3: tarn is past a target (start-up ratio 1.5, peak RSS 4096 KiB on the first screen and\n"
    "8192 KiB after a login, no idle wake-ups); the table at the end says which.\n";

// The console's screens, in one run. Each phase's keys bring the screen back to where they started, so
// that they can be sent again; TERM=linux on a pty becomes vt102 in the console, whose key table lacks the
// Linux console's F1..F5 bytes: F2 is sent in its ESC-digit form. A lone Esc includes the 25 ms ESCDELAY.
constexpr const char* kLogin = "Authentication Required";
constexpr const char* kWindow = "Custom DNS Suffixes";
constexpr const char* kIpv4 = "Set static IPv4 address";

std::vector<Phase> WelcomePhases() {
    return {{"login dialog", {}, {std::string("esc:2@") + kLogin, std::string("Esc!") + kLogin}}};
}

std::vector<Phase> SessionPhases() {
    return {
        {"menu", {std::string("esc:2@") + kLogin, "Enter", "Enter@Configure Password"}, {"Down", "Up"}},
        {"network window",
         {"Down", "Down@To view or modify"},
         {std::string("Enter@") + kWindow, std::string("Esc!") + kWindow}},
        {"network list", {std::string("Enter@") + kWindow}, {"Down", "Up"}},
        {"IPv4 dialog",
         {"Down", "Down@Subnet Mask"},
         {std::string("Enter@") + kIpv4, std::string("Esc!") + kIpv4}},
        {"address field", {std::string("Enter@") + kIpv4, "Down", "Down", "Down"}, {"text:1", "Backspace"}},
        // Y on the apply question to the menu again, showing the new address: the staged apply of a static
        // address and the menu's refresh after it.
        {"apply (Y)",
         {"text:192.0.2.20", std::string("Enter!") + kIpv4, "Esc@Apply changes and restart"},
         {"text:y@Configure Password@  192.0.2.20"},
         1},
    };
}

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
    o.reference = {"reference", build + "/bench_reference", "<Enter>", false, {{"screen", {}, {"Down"}}}, {}};
    o.tarn = {"tarn", build + "/tarn", "<F2>", true, WelcomePhases(), SessionPhases()};
    std::vector<std::string> tarnKeys, tarnSetup;
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
            tarnKeys = SplitKeys(value());
        else if (arg == "--tarn-setup")
            tarnSetup = SplitKeys(value());
        else if (arg == "--show-screens")
            o.showScreens = true;
        else if (arg == "--tarn-ready")
            o.tarn.readyText = value();
        else if (arg == "--reference-keys")
            o.reference.first[0].keys = SplitKeys(value());
        else if (arg == "--reference-ready")
            o.reference.readyText = value();
        else
            throw std::invalid_argument((arg == "--help" ? "" : "unknown argument " + arg + "\n") + kUsage);
    }
    if (!tarnKeys.empty()) {
        o.tarn.first = {{"custom", tarnSetup, tarnKeys}};
        o.tarn.later.clear();
    } else if (!tarnSetup.empty()) {
        throw std::invalid_argument("--tarn-setup needs --tarn-keys\n" + std::string(kUsage));
    }
    if (o.rounds < 1 || o.keyCycles < 0 || o.idleSeconds < 0 || o.quietMs < 1)
        throw std::invalid_argument(std::string("bad value\n") + kUsage);
    return o;
}

} // namespace bench
