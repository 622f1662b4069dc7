// Entry point: answer --help and --version, choose the host, then run the console with its root screen.
#include "core/Startup.h"
#include "platform/Backend.h"
#include "platform/Backends.h"
#include "screens/WelcomeWindow.h"
#include "ui/RunWindow.h"

#include <cstdio>
#include <cstring>

namespace {
constexpr const char* kUsage =
    "usage: tarn [VT]\n"
    "Runs the host's console on the current terminal; VT (1-63) first switches to\n"
    "that virtual terminal.\n"
    "Environment: TARN_HOST=sim:DIR (a simulated host, the default is\n"
    "$XDG_STATE_HOME/tarn/simhost) or TARN_HOST=linux (this machine).\n"
    "  --help     show this text\n"
    "  --version  show the version\n";
} // namespace

int main(int argc, char** argv) {
    // Answered before anything else runs: they must never start the console or reach the host.
    if (argc > 1 && std::strcmp(argv[1], "--help") == 0) {
        std::fputs(kUsage, stdout);
        return 0;
    }
    if (argc > 1 && std::strcmp(argv[1], "--version") == 0) {
        std::printf("tarn %s\n", TARN_VERSION);
        return 0;
    }
    std::string error = Platform::SelectHostFromEnvironment();
    if (!error.empty()) {
        std::fprintf(stderr, "tarn: %s\n", error.c_str());
        return 1;
    }
    Platform::ChooseBackends();
    return Tarn::RunConsole(argc, argv, [] {
        Tarn::WelcomeWindow welcome;
        Tarn::RunWindow(&welcome);
    });
}
