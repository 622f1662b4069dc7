// The two account names the host tools are run as: the console's own service account and the user who is
// logged in at the console (a session value, written only by the login).
#pragma once

#include "core/Session.h"

namespace Tarn {

inline constexpr const char* kServiceAccount = "tarn";

} // namespace Tarn
