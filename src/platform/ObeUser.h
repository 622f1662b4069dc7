// The event and audit library seams: observation events for central management and audit records of
// console logins. On the simulated host events go to DIR/var/log/obed.log (one line each) and audit records
// to DIR/var/log/audit.log (one JSON object per line: event, user, source, success, pairs). On a real host
// both are written to syslog for now.
#pragma once

#include <cstdarg>

namespace Platform {

// Opens the event channel; 0 on success, an error code otherwise. The simulated channel refuses to open
// while DIR/var/run/obed.disabled exists or DIR/var/log cannot be written.
int ObeUserLib_Init();
// Posts one event: a printf-style format (marker, event id, message) and its arguments.
int ObeUserLib_AddObe(const char* format, ...) __attribute__((format(printf, 1, 2)));
int ObeUserLib_VAddObe(const char* format, va_list args);
int ObeUserLib_Close();

// One audit record: event name, user, source, success flag (1 or 0), then key and value strings in pairs,
// closed by nullptr. The result is informational; callers do not check it.
int OrvAudit_VLog(const char* event, const char* user, const char* source, int success, ...);

} // namespace Platform
