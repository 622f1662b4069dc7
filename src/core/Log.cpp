// Formatting front of the logging layer; the sink is the platform's.
#include "core/Log.h"

#include "platform/Syslog.h"

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <string>

namespace Tarn {

void Log(int priority, const char* format, ...) {
    char buffer[1024];
    va_list args;
    va_start(args, format);
    int n = std::vsnprintf(buffer, sizeof buffer, format, args);
    va_end(args);
    if (n < 0)
        return;
    if (static_cast<size_t>(n) < sizeof buffer) {
        Platform::SyslogWrite(priority, std::string(buffer, n));
        return;
    }
    std::string big(n + 1, '\0');
    va_start(args, format);
    std::vsnprintf(big.data(), big.size(), format, args);
    va_end(args);
    big.resize(n);
    Platform::SyslogWrite(priority, big);
}

void LogErrno(const char* text) {
    int saved = errno;
    char buffer[128];
    // GNU strerror_r may return a static string instead of filling the buffer.
    const char* message = strerror_r(saved, buffer, sizeof buffer);
    Log(LOG_ERR, "%s with errno(%d): %s", text, saved, message);
    errno = saved;
}

} // namespace Tarn
