// Choosing the host the console works on, once at start-up, from the environment variable TARN_HOST:
// "sim:DIR" the simulated host in DIR, "linux" the real machine, unset the simulated host in
// $XDG_STATE_HOME/tarn/simhost (created from the default scenario on first use).
#pragma once

#include <functional>
#include <string>

namespace Platform {

// Selects the host from the process environment; creates the default simulated host when needed with
// the simhost program built next to the console. Returns an error text, empty on success, so that the caller
// decides how to end.
std::string SelectHostFromEnvironment();

// The environment values the selection depends on; null means unset.
struct HostEnvironment {
    const char* tarnHost = nullptr;
    const char* xdgStateHome = nullptr;
    const char* home = nullptr;
};

// Creates a simulated host in a directory; throws std::exception with a message on failure.
using SimHostCreator = std::function<void(const std::string& dir)>;

// The selection itself, with the environment and the host creation passed in.
std::string SelectHost(const HostEnvironment& env, const SimHostCreator& create);

// The directory of the default simulated host, or empty when neither XDG_STATE_HOME nor HOME is usable.
std::string DefaultSimHostDir(const HostEnvironment& env);

// `path` (absolute) with ".", ".." and repeated or trailing slashes resolved, lexically.
std::string NormalizeAbsolutePath(const std::string& path);

} // namespace Platform
