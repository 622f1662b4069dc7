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

// What a writer knows of the state it stored last: the file's status, taken under the lock, and the state
// itself, users included (wiped when it is replaced or ends).
struct LastWrite {
    struct stat status {};
    Json state;
    bool known = false;

    LastWrite() = default;
    LastWrite(const LastWrite&) = delete;
    LastWrite& operator=(const LastWrite&) = delete;
    ~LastWrite();
    void Forget();
};

// Whether two statuses of host.json describe the same file, thus the same state.
bool SameFile(const struct stat& a, const struct stat& b);

// Runs `change` on the current state and stores the result atomically; returns the stored state. A value of
// the wrong type met by `change` is a StoreError that names the file; nothing is written then. With `last`,
// the current state is `last->state` while host.json is still the file described there (no other writer
// came in between), read from the file otherwise; `last` then describes the file just written.
Json Transact(const std::string& dir, const std::function<void(Json&)>& change, LastWrite* last = nullptr);

// Writes a whole new state (used when a host is created).
void Save(const std::string& dir, const Json& state);

// The message for a state whose values have the wrong type or shape; it names the file.
std::string InvalidState(const std::string& dir, const std::string& what);

// Zeroes every stored password of `state` in place (before the document is dropped).
void WipePasswords(Json& state);
// Wipes the passwords and removes the user database: for readers that have no business keeping it.
void DropUsers(Json& state);

} // namespace SimHost
