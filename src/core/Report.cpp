// Event and audit reporting on top of the platform's event library.
#include "core/Report.h"

#include "core/Log.h"
#include "platform/ObeUser.h"

#include <cstdarg>

namespace Tarn {
namespace {

// Success is logged at facility auth with priority value 0 (emergency): the combined value 32 is kept.
constexpr int kAuthSucceededPriority = LOG_AUTH;

struct FailedLogin {
    LoginOutcome outcome;
    const char* syslogFormat;
    const char* reason;
    const char* event;
};

constexpr FailedLogin kFailedLogins[] = {
    {LoginOutcome::PasswordExpired, "Password has expired for user %s", "Password expired",
     kEventAccessDenied},
    {LoginOutcome::InvalidLogin, "Authentication of user %s failed", "Invalid Login",
     kEventAuthenticationFailed},
    {LoginOutcome::NoPermission, "Access denied for user %s", "No permission", kEventAccessDenied},
};

} // namespace

int InitObeUserLib() {
    Log(LOG_INFO, "%s", "Initializing obeuser library");
    int rc = Platform::ObeUserLib_Init();
    if (rc != 0)
        Log(LOG_ERR, "Unable to initialize obeuser library from TARN. Error code: %d", rc);
    return rc;
}

void ReportEvent(const char* format, ...) {
    if (InitObeUserLib() != 0)
        return;
    va_list args;
    va_start(args, format);
    Platform::ObeUserLib_VAddObe(format, args);
    va_end(args);
    Platform::ObeUserLib_Close();
}

void ReportLogin(LoginOutcome outcome, const std::string& user) {
    const char* name = user.c_str();
    if (outcome == LoginOutcome::Success) {
        Log(kAuthSucceededPriority, "Authentication of user %s succeeded", name);
        Log(LOG_INFO, "User %s logged in", name);
        Platform::OrvAudit_VLog("login.connect", name, "", 1, nullptr);
        return;
    }
    for (const FailedLogin& entry : kFailedLogins) {
        if (entry.outcome != outcome)
            continue;
            // The formats come from the table above; each holds exactly one %s.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
        Log(LOG_AUTH | LOG_ERR, entry.syslogFormat, name);
#pragma GCC diagnostic pop
        Platform::OrvAudit_VLog("login.connect", name, "", 0, "reason", entry.reason, nullptr);
        ReportEvent(entry.event, name);
        return;
    }
}

void ReportLogout(const std::string& user, const char* reason) {
    if (reason != nullptr)
        Platform::OrvAudit_VLog("login.disconnect", user.c_str(), "", 1, "reason", reason, nullptr);
    else
        Platform::OrvAudit_VLog("login.disconnect", user.c_str(), "", 1, nullptr);
}

} // namespace Tarn
