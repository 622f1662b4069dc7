// Lockdown decision table and failure text.
#include "hostops/LockdownChange.h"

#include "hostops/CommandText.h"

namespace Tarn {
namespace {

constexpr LockdownCommand kEnter = {"kelpsvc/auth/lockdown_mode_enter", "Lockdown mode enabled",
                                    "Enabling lockdown mode failed with error: %s", true};
constexpr LockdownCommand kExit = {"kelpsvc/auth/lockdown_mode_exit", "Lockdown mode disabled",
                                   "Disabling lockdown mode failed with error: %s", false};

} // namespace

LockdownChange DecideLockdownChange(bool checked, bool enabled) {
    if (checked == enabled)
        return LockdownChange::None;
    return checked ? LockdownChange::Enter : LockdownChange::Exit;
}

const LockdownCommand& CommandFor(LockdownChange change) {
    return change == LockdownChange::Exit ? kExit : kEnter;
}

std::string LockdownFailureText(const std::string& standardOutput, const std::string& standardError) {
    std::string error = CollapseWhitespace(standardError);
    return error.empty() ? CollapseWhitespace(standardOutput) : error;
}

} // namespace Tarn
