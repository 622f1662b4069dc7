// The console's PAM calls for service "tarn": login check and password change, each with its own
// conversation. Password copies are wiped after use.
#pragma once

#include <string>

namespace Tarn {

// pam_authenticate then pam_acct_mgmt (both silent); the status of the last call.
int Authenticate(const std::string& user, const std::string& password);

// Authenticate (expired accepted), account check, pam_chauthtok, pam_setcred; true when all succeed.
bool ChangePasswordThroughPam(const std::string& user, const std::string& oldPassword,
                              const std::string& newPassword);

} // namespace Tarn
