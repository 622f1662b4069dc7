// The login dialog: name and password or smart-card id and PIN, checked through PAM, every outcome reported;
// and the dialog shown when console login is switched off.
#include "screens/LoginDialog.h"

#include "core/EventLoop.h"
#include "core/Keys.h"
#include "core/Log.h"
#include "core/Report.h"
#include "core/Session.h"
#include "core/SmartCardWatch.h"
#include "platform/DnsConfig.h"
#include "platform/HostCtlException.h"
#include "platform/HostRoot.h"
#include "platform/SystemInfo.h"
#include "screens/ChangePasswordDialog.h"
#include "screens/KeyboardDialog.h"
#include "screens/LoginModel.h"
#include "screens/Pam.h"
#include "screens/PasswordModel.h"
#include "ui/ConfirmDialog.h"
#include "ui/DialogSize.h"
#include "ui/InputItem.h"
#include "ui/Item.h"
#include "ui/ItemList.h"
#include "ui/RunWindow.h"
#include "ui/StandardDialogs.h"
#include "ui/StringFactory.h"
#include "ui/TextIds.h"

#include <string.h>
#include <unistd.h>

namespace Tarn {
namespace {

constexpr int kWidth = 60;
constexpr int kSplitRow = 7; // title, blank, three body rows (long host names wrap)

// One content row per item: the keyboard item when offered, the login and the password field.
int DialogHeight() {
    return kSplitRow + (KeyboardChoice() ? 3 : 2) + 4;
}
constexpr int kFieldWidth = 30;

constexpr int kDisabledWidth = 60;
constexpr int kDisabledHeight = 9;
constexpr int kDisabledSplitRow = 6;

// "prompt" + "host.domain." of the default stack; a host that cannot be read shows empty names.
std::string HostLabelFor(const char* prompt) {
    std::string host, domain;
    try {
        TesCtl::Network::DnsConfigImpl dns;
        host = dns.GetHostname();
        domain = dns.GetDomain();
    } catch (const HostCtl::Lib::HostCtlException& e) {
        Log(LOG_ERR, "Getting DNS configuration failed: %s", e.what());
    }
    return HostLabel(prompt, host, domain);
}

std::string ConfiguredKeyboardText() {
    std::string layout;
    try {
        layout = TesCtl::System::SystemInfoImpl().GetKeyboardLayout();
    } catch (const HostCtl::Lib::HostCtlException& e) {
        Log(LOG_ERR, "Getting keyboard layout failed: %s", e.what());
    }
    return "Configured Keyboard (" + layout + ")";
}

} // namespace

void ClearPasswordField(InputItem& field) {
    field.Wipe();
}

bool LoginAllowed() {
    return access(Platform::HostPath("/var/run/orvane/show-tarn-login").c_str(), F_OK) == 0;
}

LoginDialog::LoginDialog(Frame* parent)
    : FormDialog(parent, {kWidth, DialogHeight(), kSplitRow}, "", "", "") {
    if (KeyboardChoice())
        keyboard_ = std::make_unique<LabelItem>(ConfiguredKeyboardText(), true);
    pinMode_ = !SmartCardUser().empty();
    Layout(pinMode_);
    SetShowCursor(true);
    SetKeyHook([this](int key) { return OnKey(key); });
}

LoginDialog::~LoginDialog() {
    if (password_ != nullptr)
        ClearPasswordField(*password_);
}

void LoginDialog::Layout(bool pinMode) {
    const LoginTexts texts = LoginModeTexts(pinMode);
    SetTitle(Text(TextId::AuthenticationRequired));
    SetBody(HostLabelFor(Text(texts.promptId)));
    SetFooter(texts.footer);
    if (password_ != nullptr)
        ClearPasswordField(*password_);
    const std::string login = pinMode ? SmartCardUser() : "root";
    login_ = std::make_unique<InputItem>(Text(texts.loginLabelId), login, kFieldWidth);
    password_ = std::make_unique<InputItem>(Text(texts.passwordLabelId), "", kFieldWidth);
    password_->SetPassword(true);
    std::vector<Item*> items;
    if (keyboard_ != nullptr)
        items.push_back(keyboard_.get());
    items.push_back(login_.get());
    items.push_back(password_.get());
    SetItems(items);
}

int LoginDialog::Focus() const {
    return List() != nullptr ? List()->FocusIndex() : 0;
}

void LoginDialog::FocusItem(int index) {
    if (List() != nullptr)
        List()->FocusItem(index);
}

int LoginDialog::Foreground() {
    Layout(pinMode_);
    FocusItem(KeyboardChoice() ? 1 : 0);
    return FormDialog::Foreground();
}

FormKey LoginDialog::OnKey(int key) {
    const int itemCount = keyboard_ != nullptr ? 3 : 2;
    switch (DecideLoginKey(key, Focus(), itemCount, keyboard_ != nullptr)) {
    case LoginKeyAction::Cancel:
        return FormKey::Cancel;
    case LoginKeyAction::RunKeyboard:
        ChooseKeyboardLayout(this);
        keyboard_->SetText(ConfiguredKeyboardText());
        Draw(true);
        break;
    case LoginKeyAction::FocusNext:
        FocusItem(Focus() + 1);
        break;
    case LoginKeyAction::FocusFirst:
        FocusItem(0);
        break;
    case LoginKeyAction::Up:
    case LoginKeyAction::Down:
    case LoginKeyAction::Edit:
        return FormKey::Unused; // the list moves and edits the focused field
    case LoginKeyAction::SwitchMode:
        pinMode_ = !pinMode_;
        Layout(pinMode_);
        FocusItem(KeyboardChoice() ? 1 : 0);
        Draw(true);
        break;
    case LoginKeyAction::Submit:
        return Submit() ? FormKey::Close : FormKey::Used;
    case LoginKeyAction::Ignore:
        break;
    }
    return FormKey::Used;
}

bool LoginDialog::Submit() {
    userName_ = login_->Value();
    std::string password = password_->Value();
    const LoginResult result = LoginStatusResult(Authenticate(userName_, password));
    ReportLogin(result.outcome, userName_);
    if (result.outcome == LoginOutcome::Success) {
        SetLoggedInUser(userName_);
        SetEmptyPassword(password.empty());
        if (pinMode_)
            SetSmartCardSessionUser(userName_);
        WipePassword(password);
        return true;
    }
    WipePassword(password);
    if (result.changePassword)
        SetLoggedInUser(userName_);
    MessageDialog message(this, TextId::AuthenticationFailed, Text(result.messageId));
    RunWindow(&message);
    if (result.changePassword) {
        // The new password is not a login: the user signs in with it afterwards.
        ChangePasswordDialog change(this);
        RunWindow(&change);
        Window::ShowCursor(true);
    }
    ClearPasswordField(*password_);
    // Only the list is repainted: a full draw would throw away keys typed after the message closed.
    if (List() != nullptr)
        List()->Draw();
    return false;
}

void ShowLoginDisabled(Frame* parent) {
    const StringFactory& strings = *StringFactory::Get("en_US");
    ConfirmDialog denied(parent, {kDisabledWidth, kDisabledHeight, kDisabledSplitRow},
                         {strings.GetString(TextId::AuthenticationDenied),
                          HostLabelFor(strings.GetString(TextId::ConsoleAccessDisabled)),
                          "",
                          kEnterOkFooter,
                          {{Key::Enter, Answer::Yes}, {Key::Escape, Answer::Yes}}});
    denied.Ask();
}

} // namespace Tarn
