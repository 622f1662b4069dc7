// Password dialog key rules and submit checks.
#include "screens/PasswordModel.h"

#include "ui/InputItem.h"

#include "core/Keys.h"
#include "ui/TextIds.h"

#include <string.h>

namespace Tarn {

namespace {
constexpr int kTab = 9;
} // namespace

PasswordKeyAction DecidePasswordKey(int key, int focus) {
    switch (key) {
    case Key::Escape:
        return PasswordKeyAction::Cancel;
    case Key::Up:
        return PasswordKeyAction::Up;
    case Key::Down:
        return PasswordKeyAction::Down;
    case Key::Enter:
    case kTab:
        if (focus == kOldPasswordField)
            return PasswordKeyAction::CheckOld;
        if (focus == kNewPasswordField)
            return PasswordKeyAction::FocusConfirm;
        return key == kTab ? PasswordKeyAction::FocusNew : PasswordKeyAction::Submit;
    default:
        return PasswordKeyAction::Edit;
    }
}

NewPasswordCheck CheckNewPassword(const std::string& oldPassword, const std::string& newPassword,
                                  const std::string& confirmed) {
    if (newPassword.empty())
        return NewPasswordCheck::Empty;
    if (newPassword != confirmed)
        return NewPasswordCheck::Mismatch;
    if (newPassword == oldPassword)
        return NewPasswordCheck::Same;
    return NewPasswordCheck::Change;
}

unsigned NewPasswordMessage(NewPasswordCheck check) {
    switch (check) {
    case NewPasswordCheck::Empty:
        return TextId::EmptyPasswordNotAllowed;
    case NewPasswordCheck::Mismatch:
        return TextId::PasswordsDoNotMatch;
    default:
        return 0;
    }
}

void WipePassword(std::string& password) {
    WipeText(password);
}

} // namespace Tarn
