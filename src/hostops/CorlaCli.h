// Running the configuration tool corlacli, and the standard-switch commands built on it.
#pragma once

#include <string>

namespace Tarn {

// `argv` begins with "corlacli"; runs the host's /bin/corlacli, keeps 255 bytes of its output for the
// failure log line and returns the exit code.
int RunCorlaCli(const char* const argv[]);

// Each returns true when corlacli exits with 0.
bool AddStandardSwitch(const std::string& kswitch);
// Adds (`add` true) or removes an uplink of a standard switch.
bool ChangeStandardSwitchUplink(const std::string& kswitch, const std::string& uplink, bool add);
bool AddPortGroup(const std::string& portGroup, const std::string& kswitch);

} // namespace Tarn
