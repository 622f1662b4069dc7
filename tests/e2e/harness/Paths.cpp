// The output directory from the environment ctest sets.
#include "harness/Paths.h"

#include <cstdlib>
#include <filesystem>

namespace e2e {

std::string OutDir() {
    std::string dir;
    if (const char* env = std::getenv("TARN_E2E_OUT"); env && *env)
        dir = env;
    else
        dir = BuildDir() + "/e2e-out";
    std::filesystem::create_directories(dir);
    return dir;
}

} // namespace e2e
