// Resetting the system configuration to its software defaults, and the forced restart that follows.
#pragma once

namespace Tarn {

// Logs and reports the reset; done before it runs, so that it is on record even if the reset fails.
void ReportSystemReset();

// Runs resetCfg.py; true when it succeeded.
bool RunSystemReset();

// Starts "reboot -f" on the host; false when the command could not be run at all.
bool RestartHostForced();

} // namespace Tarn
