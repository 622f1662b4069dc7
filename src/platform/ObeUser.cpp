// Event channel and audit records for both backends.
#include "platform/ObeUser.h"

#include "platform/HostRoot.h"
#include "platform/Syslog.h"

#include <nlohmann/json.hpp>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <string>
#include <syslog.h>
#include <unistd.h>

namespace Platform {
namespace {

// The open event channel: a descriptor of obed.log on the simulated host, a flag on a real one.
int gEventFd = -1;
bool gOpen = false;

std::string Format(const char* format, va_list args) {
    va_list copy;
    va_copy(copy, args);
    int n = std::vsnprintf(nullptr, 0, format, copy);
    va_end(copy);
    if (n < 0)
        return {};
    std::string text(static_cast<size_t>(n) + 1, '\0');
    std::vsnprintf(text.data(), text.size(), format, args);
    text.resize(static_cast<size_t>(n));
    return text;
}

// One write(2) with O_APPEND per line, so concurrent writers never split a line.
int AppendLine(int fd, std::string line) {
    line += '\n';
    ssize_t n = write(fd, line.data(), line.size());
    return n == static_cast<ssize_t>(line.size()) ? 0 : (n < 0 ? errno : EIO);
}

} // namespace

int ObeUserLib_Init() {
    // Opening twice starts afresh, so the channel always follows the current host root.
    ObeUserLib_Close();
    if (!IsSimulatedHost()) {
        gOpen = true;
        return 0;
    }
    if (access(HostPath("/var/run/obed.disabled").c_str(), F_OK) == 0)
        return ECONNREFUSED;
    int fd = open(HostPath("/var/log/obed.log").c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0644);
    if (fd < 0)
        return errno;
    gEventFd = fd;
    gOpen = true;
    return 0;
}

int ObeUserLib_VAddObe(const char* format, va_list args) {
    if (!gOpen)
        return EBADF;
    std::string text = Format(format, args);
    if (gEventFd < 0) {
        SyslogWrite(LOG_USER | LOG_INFO, text);
        return 0;
    }
    return AppendLine(gEventFd, text);
}

int ObeUserLib_AddObe(const char* format, ...) {
    va_list args;
    va_start(args, format);
    int rc = ObeUserLib_VAddObe(format, args);
    va_end(args);
    return rc;
}

int ObeUserLib_Close() {
    if (gEventFd >= 0)
        close(gEventFd);
    gEventFd = -1;
    gOpen = false;
    return 0;
}

int OrvAudit_VLog(const char* event, const char* user, const char* source, int success, ...) {
    nlohmann::json pairs = nlohmann::json::object();
    va_list args;
    va_start(args, success);
    for (;;) {
        const char* key = va_arg(args, const char*);
        if (key == nullptr)
            break;
        const char* value = va_arg(args, const char*);
        pairs[key] = value != nullptr ? value : "";
        if (value == nullptr)
            break;
    }
    va_end(args);

    nlohmann::json record = {{"event", event ? event : ""},
                             {"user", user ? user : ""},
                             {"source", source ? source : ""},
                             {"success", success},
                             {"pairs", pairs}};
    // Invalid UTF-8 in a user name must not throw out of the audit call.
    std::string line = record.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
    if (!IsSimulatedHost()) {
        SyslogWrite(LOG_AUTH | LOG_INFO, "audit: " + line);
        return 0;
    }
    int fd = open(HostPath("/var/log/audit.log").c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0644);
    if (fd < 0)
        return errno;
    int rc = AppendLine(fd, line);
    close(fd);
    return rc;
}

} // namespace Platform
