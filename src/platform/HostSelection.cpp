// Parsing TARN_HOST and selecting the host root; kept apart from Backend.cpp so that it links without the
// simulated host's creation code.
#include "platform/Backend.h"

#include "platform/HostRoot.h"

#include <cerrno>
#include <cstring>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace Platform {
namespace {

std::string StateFile(const std::string& dir) {
    return dir + "/etc/simhost/host.json";
}

bool Exists(const std::string& path) {
    return access(path.c_str(), F_OK) == 0;
}

} // namespace

std::string NormalizeAbsolutePath(const std::string& path) {
    std::vector<std::string_view> parts;
    std::string_view rest = path;
    while (!rest.empty()) {
        size_t slash = rest.find('/');
        std::string_view part = rest.substr(0, slash);
        rest = slash == std::string_view::npos ? std::string_view{} : rest.substr(slash + 1);
        if (part.empty() || part == ".")
            continue;
        if (part == "..") {
            if (!parts.empty())
                parts.pop_back();
            continue;
        }
        parts.push_back(part);
    }
    std::string out;
    for (auto part : parts) {
        out += '/';
        out += part;
    }
    return out.empty() ? "/" : out;
}

std::string DefaultSimHostDir(const HostEnvironment& env) {
    // A relative XDG_STATE_HOME is invalid and ignored, as the base-directory convention asks.
    if (env.xdgStateHome && env.xdgStateHome[0] == '/')
        return NormalizeAbsolutePath(std::string(env.xdgStateHome) + "/tarn/simhost");
    if (env.home && env.home[0] == '/')
        return NormalizeAbsolutePath(std::string(env.home) + "/.local/state/tarn/simhost");
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
            std::string absolute(dir);
            if (absolute[0] != '/') {
                char cwd[4096];
                if (getcwd(cwd, sizeof cwd) == nullptr)
                    return "TARN_HOST: cannot make " + absolute + " absolute: " + std::strerror(errno);
                absolute = std::string(cwd) + "/" + absolute;
            }
            absolute = NormalizeAbsolutePath(absolute);
            // Without its state the console would show a host of zeros; say what is wrong instead.
            if (access(StateFile(absolute).c_str(), R_OK) != 0)
                return "TARN_HOST: no usable simulated host in " + absolute + " (" + StateFile(absolute) +
                       ": " + std::strerror(errno) + "); create one with: simhost init " + absolute;
            UseSimulatedHost(absolute);
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
