// The two account names the host tools are run as: the console's own service account and the user who is
// logged in at the console (written only by the login, read by the command wrappers).
#pragma once

#include <string>

namespace Tarn {

inline constexpr const char* kServiceAccount = "tarn";

const std::string& LoggedInUser();
void SetLoggedInUser(const std::string& name);

} // namespace Tarn
