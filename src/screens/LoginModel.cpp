// Login texts, key rules and outcome rows.
#include "screens/LoginModel.h"

#include "core/Keys.h"
#include "ui/TextIds.h"

#include <security/pam_appl.h>

namespace Tarn {

namespace {
constexpr int kTab = 9;
} // namespace

std::string HostLabel(const std::string& prompt, const std::string& host, const std::string& domain) {
    return prompt + host + "." + domain + ".";
}

LoginTexts LoginModeTexts(bool pinMode) {
    if (pinMode)
        return {TextId::SmartCardPinPrompt, TextId::LoginIdLabel, TextId::PinLabel, kLoginPinFooter};
    return {TextId::LoginPrompt, TextId::LoginNameLabel, TextId::PasswordLabel, kLoginPasswordFooter};
}

LoginKeyAction DecideLoginKey(int key, int focus, int itemCount, bool keyboardItem) {
    const bool last = focus == itemCount - 1;
    const bool onKeyboard = keyboardItem && focus == 0;
    switch (key) {
    case Key::Escape:
        return LoginKeyAction::Cancel;
    case Key::Enter:
        if (onKeyboard)
            return LoginKeyAction::RunKeyboard;
        return last ? LoginKeyAction::Submit : LoginKeyAction::FocusNext;
    case kTab:
        return last ? LoginKeyAction::FocusFirst : LoginKeyAction::FocusNext;
    case Key::Up:
        return LoginKeyAction::Up;
    case Key::Down:
        return LoginKeyAction::Down;
    case Key::F(3):
        return LoginKeyAction::SwitchMode;
    default:
        break;
    }
    // Printable characters and the editing keys go to the login and password fields only; the field itself
    // ignores anything that is not an editing key.
    if (onKeyboard || key < 0)
        return LoginKeyAction::Ignore;
    return LoginKeyAction::Edit;
}

LoginResult LoginStatusResult(int pamStatus) {
    switch (pamStatus) {
    case PAM_SUCCESS:
        return {LoginOutcome::Success, 0, false};
    case PAM_PERM_DENIED:
        return {LoginOutcome::NoPermission, TextId::NoLoginPermission, false};
    case PAM_NEW_AUTHTOK_REQD:
        return {LoginOutcome::PasswordExpired, TextId::PasswordExpired, true};
    default:
        return {LoginOutcome::InvalidLogin, TextId::InvalidLoginOrPassword, false};
    }
}

} // namespace Tarn
