// The password dialog's decisions as plain functions: what a key does on which field, and which check a
// submitted new password fails.
#pragma once

#include <string>

namespace Tarn {

inline constexpr const char* kPasswordFooter =
    "{align:right}{color:black}<Enter>{/color} {color:dark-grey}OK{/color}  {color:black}<Esc>{/color} "
    "{color:dark-grey}Cancel{/color}{/align}";
inline constexpr const char* kSamePasswordFooter =
    "{color:black}<Enter>{/color} {color:dark-grey}Confirm{/color}{align:right}{color:black}<Esc>{/color} "
    "{color:dark-grey}Cancel{/color}{/align}";

// Fields, top to bottom.
enum PasswordField { kOldPasswordField = 0, kNewPasswordField = 1, kConfirmPasswordField = 2 };

enum class PasswordKeyAction {
    Cancel,
    Edit,
    Up,
    Down,
    CheckOld,     // Enter or Tab on the old password
    FocusConfirm, // Enter or Tab on the new password
    FocusNew,     // Tab on the confirmation goes back to the new password
    Submit,       // Enter on the confirmation
};

PasswordKeyAction DecidePasswordKey(int key, int focus);

enum class NewPasswordCheck { Empty, Mismatch, Same, Change };

// In this order: an empty new password, a confirmation that differs, the same password as before.
NewPasswordCheck CheckNewPassword(const std::string& oldPassword, const std::string& newPassword,
                                  const std::string& confirmed);

// The message text (catalogue id) of a refused new password; 0 when there is none.
unsigned NewPasswordMessage(NewPasswordCheck check);

// Overwrites a password copy before releasing it.
void WipePassword(std::string& password);

} // namespace Tarn
