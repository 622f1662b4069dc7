// Parsing TARN_HOST and selecting the host root; kept apart from Backend.cpp so that it links without the
// simulated host's creation code.
#include "platform/Backend.h"

#include "platform/HostRoot.h"

#include <filesystem>
#include <string_view>
#include <system_error>

namespace Platform {
namespace {

namespace fs = std::filesystem;

std::string StateFile(const std::string& dir) {
    return dir + "/etc/simhost/host.json";
}

bool Exists(const std::string& path) {
    std::error_code ec;
    return fs::exists(path, ec);
}

} // namespace

std::string DefaultSimHostDir(const HostEnvironment& env) {
    // A relative XDG_STATE_HOME is invalid and ignored, as the base-directory convention asks.
    if (env.xdgStateHome && env.xdgStateHome[0] == '/')
        return (fs::path(env.xdgStateHome) / "tarn/simhost").lexically_normal().string();
    if (env.home && env.home[0] == '/')
        return (fs::path(env.home) / ".local/state/tarn/simhost").lexically_normal().string();
    return {};
}

std::string SelectHost(const HostEnvironment& env, const SimHostCreator& create) {
    if (env.tarnHost) {
        std::string_view value = env.tarnHost;
        if (value == "linux") {
            UseRealHost();
            return {};
        }
        if (value.starts_with("sim:")) {
            std::string_view dir = value.substr(4);
            if (dir.empty())
                return "TARN_HOST: \"sim:\" needs a directory";
            std::error_code ec;
            fs::path absolute = fs::absolute(fs::path(dir), ec);
            if (ec)
                return "TARN_HOST: cannot make " + std::string(dir) + " absolute: " + ec.message();
            UseSimulatedHost(absolute.lexically_normal().string());
            return {};
        }
        return "TARN_HOST: unknown value \"" + std::string(value) + "\" (use sim:DIR or linux)";
    }

    std::string dir = DefaultSimHostDir(env);
    if (dir.empty())
        return "cannot find the default simulated host: neither XDG_STATE_HOME nor HOME is set";
    if (!Exists(StateFile(dir))) {
        try {
            create(dir);
        } catch (const std::exception& e) {
            return "cannot create the simulated host in " + dir + ": " + e.what();
        }
        if (!Exists(StateFile(dir)))
            return "cannot create the simulated host in " + dir + ": " + StateFile(dir) + " is missing";
    }
    UseSimulatedHost(dir);
    return {};
}

} // namespace Platform
