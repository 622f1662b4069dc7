// Which lockdown command the lockdown dialog runs for its check item, and what it logs.
#pragma once

#include <string>

namespace Tarn {

enum class LockdownChange { None, Enter, Exit };

// Enter when the box is checked on a host without lockdown, Exit when it is cleared on a host with it;
// nothing when the box still shows the host's state.
LockdownChange DecideLockdownChange(bool checked, bool enabled);

struct LockdownCommand {
    const char* command;       // kelp-cmd command word
    const char* succeededText; // informational log line
    const char* failedFormat;  // error log line, "%s" = the tool's complaint
    bool enabledAfter;         // lockdown state once the command succeeded
};

// The command for Enter or Exit (not for None).
const LockdownCommand& CommandFor(LockdownChange change);

// The text logged for a failed command: what the tool wrote to standard error, or when that is empty its
// standard output, on one line.
std::string LockdownFailureText(const std::string& standardOutput, const std::string& standardError);

} // namespace Tarn
