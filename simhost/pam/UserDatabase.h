// The simulated host's PAM user database: the "users" array of host.json, and the password rule.
#pragma once

#include <string>

namespace SimHostPam {

struct UserStatus {
    bool found = false;
    bool permitted = false;
    bool expired = false;
};

// All of these read or change DIR/etc/simhost/host.json and throw SimHost::StoreError when it is missing,
// unreadable or corrupt.
UserStatus LookUpUser(const std::string& dir, const char* user);
bool PasswordMatches(const std::string& dir, const char* user, const char* password);
// Stores the new password and clears "expired"; false when the user does not exist.
bool SetPassword(const std::string& dir, const char* user, const char* password);

// nullptr when `password` is acceptable, else the text that explains the rule.
const char* PasswordRuleViolation(const char* password);

} // namespace SimHostPam
