// The simulated host's state file: DIR/etc/simhost/host.json, read under a shared lock and changed in
// transactions (exclusive lock, temp file, fsync, rename), so no change is ever lost or half-written.
#pragma once

#include <nlohmann/json.hpp>

#include <functional>
#include <stdexcept>
#include <string>
#include <sys/stat.h>

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

// Runs `change` on the current state and stores the result atomically; returns the stored state. A value of
// the wrong type met by `change` is a StoreError that names the file; nothing is written then. `written`,
// when given, receives the status of the file just written, taken under the lock (st_ino 0 if unknown).
Json Transact(const std::string& dir, const std::function<void(Json&)>& change,
              struct stat* written = nullptr);

// Writes a whole new state (used when a host is created).
void Save(const std::string& dir, const Json& state);

// The message for a state whose values have the wrong type or shape; it names the file.
std::string InvalidState(const std::string& dir, const std::string& what);

// Zeroes every stored password of `state` in place (before the document is dropped).
void WipePasswords(Json& state);
// Wipes the passwords and removes the user database: for readers that have no business keeping it.
void DropUsers(Json& state);

} // namespace SimHost
