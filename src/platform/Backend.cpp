// Host selection from the process environment; the one place that creates the default simulated host.
#include "platform/Backend.h"

#include "simhost/model/Init.h"

#include <cstdlib>
#include <filesystem>

namespace Platform {

std::string SelectHostFromEnvironment() {
    HostEnvironment env{std::getenv("TARN_HOST"), std::getenv("XDG_STATE_HOME"), std::getenv("HOME")};
    return SelectHost(env, [](const std::string& dir) {
        // The simulated host's tools and PAM module are built next to the console.
        std::string buildDir = std::filesystem::read_symlink("/proc/self/exe").parent_path().string();
        SimHost::InitHost(dir, "default", buildDir);
    });
}

} // namespace Platform
