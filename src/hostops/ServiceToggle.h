// Switching the Corla Shell and SSH on and off: kelp-cmd as the logged-in user (the service account as its
// fallback), the init script when kelp-cmd cannot start or stop the service, and for SSH the firewall
// ruleset that lets SSH in, kept in step with the service.
#pragma once

namespace Tarn {

enum class Service { CorlaShell, SSH };

// Whether the service runs: its init script's "status" answers 0.
bool ServiceEnabled(Service service);

// Runs the service's init script through the host's /bin/sh with `verb`; returns its exit code.
int RunInitScript(Service service, const char* verb);

// Starts and enables (`enable` true) or stops and disables the service, logging who did it. A step that
// fails is logged as a warning and the next one still runs.
void ToggleService(Service service, bool enable);

} // namespace Tarn
