// Entry point: choose the host, then run the console with its root screen.
#include "core/Startup.h"
#include "platform/Backend.h"
#include "platform/Backends.h"
#include "screens/WelcomeWindow.h"

#include <cstdio>
#include <memory>

int main(int argc, char** argv) {
    std::string error = Platform::SelectHostFromEnvironment();
    if (!error.empty()) {
        std::fprintf(stderr, "%s\n", error.c_str());
        return 1;
    }
    Platform::ChooseBackends();
    return Tarn::RunConsole(argc, argv, [] { return std::make_unique<Tarn::WelcomeWindow>(); });
}
