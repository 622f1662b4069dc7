// The console's logging layer: identity "TARN", facility user, informational and above.
#pragma once

#include <syslog.h>

namespace Tarn {

// printf-style message at `priority` (a syslog level, optionally or-ed with a facility such as LOG_AUTH).
void Log(int priority, const char* format, ...) __attribute__((format(printf, 2, 3)));

// "%s with errno(%d): %s" at LOG_ERR, with the current errno.
void LogErrno(const char* text);

} // namespace Tarn
