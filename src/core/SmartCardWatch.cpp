// Smart-card lookups through the host's smart-card information and the check run on SIGUSR1.
#include "core/SmartCardWatch.h"

#include "core/EventLoop.h"
#include "core/Log.h"
#include "core/Session.h"
#include "platform/HostCtlException.h"
#include "platform/SmartCard.h"

#include <cstdlib>

namespace Tarn {
namespace {
// Calls `visit(token)` for each slot's present token, in slot order, until it returns true. A failed lookup
// is logged and counts as no card.
template <class Visit> bool AnyToken(Visit visit) {
    try {
        TesCtl::Hardware::SmartCardInfoImpl info;
        for (const HostCtl::Hardware::SmartCardSlot& slot : info.GetAllSlots()) {
            HostCtl::Hardware::SmartCardToken token;
            info.GetToken(slot, token);
            if (token.present && visit(token))
                return true;
        }
    } catch (const HostCtl::Lib::HostCtlException&) {
        Log(LOG_ERR, "Error trying to lookup smart card tokens.");
    }
    return false;
}
} // namespace

std::string FindSmartCardUser() {
    std::string user;
    AnyToken([&](const HostCtl::Hardware::SmartCardToken& token) {
        user = token.userId;
        return true;
    });
    return user;
}

bool SmartCardPresent(const std::string& userId) {
    return AnyToken([&](const HostCtl::Hardware::SmartCardToken& token) { return token.userId == userId; });
}

void SetSmartCardSessionUser(const std::string& userId) {
    SetSmartCardSessionState(userId, SmartCardPresent(userId));
}

void CheckSmartCard() {
    if (!SessionActive()) {
        SetSmartCardUser(FindSmartCardUser());
        if (!SmartCardUser().empty())
            Log(LOG_INFO, "Found smart card with user id '%s'", SmartCardUser().c_str());
    } else if (SmartCardSession() && !SmartCardPresent(SmartCardSessionUser())) {
        // Pulling the card ends the session by ending the program; the supervisor starts it again.
        Log(LOG_INFO, "Logging out user id '%s'", SmartCardSessionUser().c_str());
        exit(0);
    }
}

} // namespace Tarn
