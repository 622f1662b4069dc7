// Running the management command tool kelp-cmd, as the logged-in user with the service account as fallback,
// and the host actions built on it.
#pragma once

#include <cstdint>
#include <string>

namespace Tarn {

// `argv` is "kelp-cmd", "-U", user, command word, ...; runs once and, when the tool answers 255 (it could not
// act as that user), once more as the service account. The second run is given a capacity of 256 for each
// capture, so buffers must then hold 257 bytes if the caller terminates them. Returns the last exit code.
int RunKelpCmdWithFallback(const char* path, const char* const argv[], char* stdoutBuf, int32_t* stdoutLen,
                           char* stderrBuf, int32_t* stderrLen, const char* stdinText, int32_t stdinLen);

// Asks kelp-cmd (as the service account, 120 s time-out) and answers whether its output begins with "true".
bool KelpCmdGetBool(const std::string& query);

// Makes the management service reread the host's network state.
void RefreshManagementService();

// Stops the auto-start virtual machines, then halts every guest (forcibly unless `graceful`).
void StopAllVirtualMachines(bool graceful);

} // namespace Tarn
