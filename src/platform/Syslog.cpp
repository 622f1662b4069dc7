// Syslog sink for both backends.
#include "platform/Syslog.h"

#include "platform/HostRoot.h"

#include <cstdio>
#include <ctime>
#include <fcntl.h>
#include <syslog.h>
#include <unistd.h>

namespace Platform {
namespace {
std::string gIdent = "TARN";

const char* FacilityName(int facility) {
    switch (facility) {
    case LOG_AUTH:
        return "auth";
    case LOG_AUTHPRIV:
        return "authpriv";
    case LOG_DAEMON:
        return "daemon";
    case LOG_LOCAL0:
        return "local0";
    default:
        return "user";
    }
}

const char* LevelName(int level) {
    static const char* const names[] = {"emerg",   "alert",  "crit", "err",
                                        "warning", "notice", "info", "debug"};
    return names[level & LOG_PRIMASK];
}
} // namespace

std::string FormatSyslogLine(int priority, const std::string& ident, int pid, const std::string& message) {
    char stamp[32];
    std::time_t now = std::time(nullptr);
    std::tm tm{};
    gmtime_r(&now, &tm);
    std::strftime(stamp, sizeof stamp, "%Y-%m-%dT%H:%M:%SZ", &tm);
    int facility = priority & LOG_FACMASK;
    std::string line = stamp;
    line += ' ';
    line += FacilityName(facility == 0 ? LOG_USER : facility);
    line += '.';
    line += LevelName(priority);
    line += ' ' + ident + '[' + std::to_string(pid) + "]: " + message + '\n';
    return line;
}

void SyslogOpen(const char* ident) {
    gIdent = ident;
    if (!IsSimulatedHost()) {
        openlog(ident, LOG_PID, LOG_USER);
        setlogmask(LOG_UPTO(LOG_INFO));
    }
}

void SyslogWrite(int priority, const std::string& message) {
    if ((priority & LOG_PRIMASK) > LOG_INFO)
        return;
    if (!IsSimulatedHost()) {
        syslog(priority, "%s", message.c_str());
        return;
    }
    // One write(2) with O_APPEND per line: concurrent writers never interleave inside a line.
    std::string line = FormatSyslogLine(priority, gIdent, getpid(), message);
    int fd = open(HostPath("/var/log/syslog.log").c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0644);
    if (fd < 0)
        return;
    ssize_t ignored = write(fd, line.data(), line.size());
    (void)ignored;
    close(fd);
}

} // namespace Platform
