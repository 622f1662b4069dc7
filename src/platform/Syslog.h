// Where the console's log lines go: syslog(3) on a real host; on the simulated host one syslog-format line
// per message appended to DIR/var/log/syslog.log, so tests and the log viewer can read them.
#pragma once

#include <string>

namespace Platform {

// `priority` is a syslog priority, optionally or-ed with a facility (LOG_AUTH | LOG_ERR).
// Default facility is LOG_USER. Messages above the mask (LOG_UPTO(LOG_INFO)) are dropped.
void SyslogOpen(const char* ident);
void SyslogWrite(int priority, const std::string& message);

// Formats one simulated-host log line: "2026-11-22T05:29:40Z user.info TARN[123]: message".
std::string FormatSyslogLine(int priority, const std::string& ident, int pid, const std::string& message);

} // namespace Platform
