// Reporting administrator actions beyond syslog: observation events (opened and closed around each one) and
// the audit records of console logins and logouts.
#pragma once

#include <string>

namespace Tarn {

// Observation event formats: marker, event id, then the message with its placeholders.
inline constexpr const char* kEventPasswordChanged =
    "@&!*@*@(obe.user.tarn.login.passwd.changed)Login password for user %s changed";
inline constexpr const char* kEventAccessDenied =
    "@&!*@*@(obe.user.tarn.login.failed)Access denied for user %s";
inline constexpr const char* kEventAuthenticationFailed =
    "@&!*@*@(obe.user.tarn.login.failed)Authentication of user %s failed";
inline constexpr const char* kEventFactoryNetworkRestored =
    "@&!*@*@(obe.user.tarn.factory.network.restored)Restoring factory network settings";
inline constexpr const char* kEventRestartingHostAgents =
    "@&!*@*@(obe.user.tarn.restarting.hostagents)Restarting host agents";
inline constexpr const char* kEventNetworkRestart = "@&!*@*@(obe.user.tarn.network.restart)Restarting %s";
inline constexpr const char* kEventRestoreFactoryDefaults =
    "@&!*@*@(obe.user.tarn.restore.factory.defaults)Restoring factory defaults";
inline constexpr const char* kEventRebootHost = "@&!*@*@(obe.user.tarn.reboot.host)Rebooting host";
inline constexpr const char* kEventShutdownHost = "@&!*@*@(obe.user.tarn.shutdown.host)Shutting down host";

// Opens the event library, logging the attempt and any failure; returns the library's code (0 = open).
int InitObeUserLib();

// Posts one event (one of the formats above with its arguments). A library that cannot be opened costs only
// the event.
void ReportEvent(const char* format, ...);

enum class LoginOutcome { Success, PasswordExpired, InvalidLogin, NoPermission };

// The syslog line(s), the "login.connect" audit record and, for failures, the event of one login attempt.
void ReportLogin(LoginOutcome outcome, const std::string& user);

// The "login.disconnect" audit record, with the pair "reason" when a reason is given.
void ReportLogout(const std::string& user, const char* reason = nullptr);

} // namespace Tarn
