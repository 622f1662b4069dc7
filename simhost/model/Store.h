// The simulated host's state file: DIR/etc/simhost/host.json, read under a shared lock and changed in
// transactions (exclusive lock, temp file, fsync, rename), so no change is ever lost or half-written.
#pragma once

#include <nlohmann/json.hpp>

#include <functional>
#include <stdexcept>
#include <string>

namespace SimHost {

using Json = nlohmann::json;

// A missing, unreadable or corrupt state file; what() names the file.
class StoreError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

std::string StatePath(const std::string& dir);

// Reads the whole state under a shared lock.
Json Load(const std::string& dir);

// Runs `change` on the current state and stores the result atomically; returns the stored state.
Json Transact(const std::string& dir, const std::function<void(Json&)>& change);

// Writes a whole new state (used when a host is created).
void Save(const std::string& dir, const Json& state);

} // namespace SimHost
