// Process-wide logged-in user name.
#include "hostops/Accounts.h"

namespace Tarn {
namespace {
std::string gLoggedInUser;
} // namespace

const std::string& LoggedInUser() {
    return gLoggedInUser;
}
void SetLoggedInUser(const std::string& name) {
    gLoggedInUser = name;
}

} // namespace Tarn
