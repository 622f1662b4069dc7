// The host changes that the lockdown, keyboard and password dialogs lead to, done by their callers once the
// dialog has returned the operator's choice. Each logs its outcome.
#pragma once

#include "hostops/LockdownChange.h"

#include <string>

namespace Tarn {

// Enters or leaves lockdown mode through kelp-cmd as the service account (nothing for None). True when the
// host changed.
bool ApplyLockdownChange(LockdownChange change);

// Loads the console key map of `layout` and stores it as the configured one. True on success.
bool ChangeKeyboardLayout(const std::string& layout);

// Makes the host keep its configuration across a reboot (cfgsave.sh).
void SaveHostConfiguration();

} // namespace Tarn
