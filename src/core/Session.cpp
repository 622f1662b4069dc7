// Storage of the session values, the session flag and the idle time-out read from the host.
#include "core/Session.h"

#include "core/EventLoop.h"
#include "core/IdleDeadline.h"
#include "core/Log.h"
#include "core/Report.h"
#include "platform/AdvancedOptions.h"
#include "platform/HostCtlException.h"

#include <cstdlib>

namespace Tarn {
namespace {
std::string gLoggedInUser;
bool gEmptyPassword = false;
std::string gSmartCardLoginId;
bool gKeyboardChoice = false;
std::string gSmartCardUser;
std::string gSmartCardSessionUser;
bool gSmartCardSession = false;
bool gRestartPending = false;
bool gLocalConsole = false;
bool gSessionActive = false;
unsigned gIdleTimeoutSeconds = kDefaultIdleTimeoutSeconds;
} // namespace

const std::string& LoggedInUser() {
    return gLoggedInUser;
}
void SetLoggedInUser(const std::string& user) {
    gLoggedInUser = user;
}
bool EmptyPassword() {
    return gEmptyPassword;
}
void SetEmptyPassword(bool empty) {
    gEmptyPassword = empty;
}
const std::string& SmartCardLoginId() {
    return gSmartCardLoginId;
}
void SetSmartCardLoginId(const std::string& id) {
    gSmartCardLoginId = id;
}
bool KeyboardChoice() {
    return gKeyboardChoice;
}
void SetKeyboardChoice(bool chosen) {
    gKeyboardChoice = chosen;
}
const std::string& SmartCardUser() {
    return gSmartCardUser;
}
void SetSmartCardUser(const std::string& userId) {
    gSmartCardUser = userId;
}
const std::string& SmartCardSessionUser() {
    return gSmartCardSessionUser;
}
bool SmartCardSession() {
    return gSmartCardSession;
}
void SetSmartCardSessionState(const std::string& userId, bool cardPresent) {
    gSmartCardSessionUser = userId;
    gSmartCardSession = cardPresent;
}
bool RestartPending() {
    return gRestartPending;
}
void SetRestartPending(bool pending) {
    gRestartPending = pending;
}
bool LocalConsole() {
    return gLocalConsole;
}
void SetLocalConsole(bool local) {
    gLocalConsole = local;
}

bool SessionActive() {
    return gSessionActive;
}
namespace {
// A session that ends with the program (a terminating signal, a resize, a pulled smart card) is reported
// like a log-out: the record of who was at the console must not stop at the log-in.
void ReportSessionEndAtExit() {
    if (!gSessionActive)
        return;
    gSessionActive = false;
    Log(LOG_INFO, "User %s logged out", gLoggedInUser.c_str());
    ReportLogout(gLoggedInUser, "Session closed");
}
} // namespace

void SetSessionActive(bool active) {
    static bool exitReportRegistered = false;
    if (active && !exitReportRegistered)
        exitReportRegistered = std::atexit(ReportSessionEndAtExit) == 0;
    gSessionActive = active;
    // A time-out changed during the previous session applies from the next login.
    if (active)
        LoadIdleTimeout();
}

unsigned IdleTimeoutSeconds() {
    return gIdleTimeoutSeconds;
}

void LoadIdleTimeout() {
    try {
        TesCtl::Adv::AdvancedOptionImpl options;
        auto option = options.FindOption("/UserVars/TarnTimeOut");
        gIdleTimeoutSeconds = IdleTimeoutFromOption(option.get());
    } catch (const HostCtl::Lib::HostCtlException&) {
        gIdleTimeoutSeconds = kDefaultIdleTimeoutSeconds;
    }
}

} // namespace Tarn
