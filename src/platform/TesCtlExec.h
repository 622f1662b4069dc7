// The host-control library's blocking command run: one command line, its exit status.
#pragma once

#include <string>
#include <vector>

namespace TesCtl::Util {

// Runs `commandLine` (words separated by blanks; no quoting) and waits for it. Every word that is an
// absolute path is a host path, so "/bin/sh /sbin/svcctl.sh stop" runs the host's own script. The child gets
// /dev/null as input and output and the environment "PYTHONHOME=/". The three flags are accepted for the
// callers' sake; they change nothing here. Returns the exit status (0 success), 128 + signal for a child
// killed by a signal. Throws HostCtl::Lib::HostCtlException when the program cannot be started.
int TesCtl_Exec(const std::string& commandLine, bool flag1 = false, bool flag2 = true, bool flag3 = false);

// The words of a command line with absolute paths mapped into the host root (exposed for tests).
std::vector<std::string> HostCommandWords(const std::string& commandLine);

} // namespace TesCtl::Util
