// The password dialog: old password checked first, the new one twice, the change made through PAM and the
// host configuration saved afterwards.
#include "screens/ChangePasswordDialog.h"

#include "core/EventLoop.h"
#include "core/Log.h"
#include "core/Report.h"
#include "core/Session.h"
#include "hostops/HostActions.h"
#include "screens/LoginDialog.h"
#include "screens/Pam.h"
#include "screens/PasswordModel.h"
#include "screens/SamePasswordConfirmDialog.h"
#include "ui/InputItem.h"
#include "ui/ItemList.h"
#include "ui/RunWindow.h"
#include "ui/StandardDialogs.h"
#include "ui/StringFactory.h"
#include "ui/TextIds.h"

#include <security/pam_appl.h>

namespace Tarn {
namespace {

constexpr int kWidth = 60;
constexpr int kSplitRow = 6; // title, blank, two body rows
constexpr int kHeight = kSplitRow + 3 + 4;
constexpr int kFieldWidth = 30;
constexpr unsigned kErrorTitleId = TextId::ConfigurePasswordError;

const char* Catalogue(unsigned id) {
    return StringFactory::Get("en_US")->GetString(id);
}

} // namespace

ChangePasswordDialog::ChangePasswordDialog(Frame* parent)
    : FormDialog(parent, {kWidth, kHeight, kSplitRow}, Catalogue(TextId::ConfigurePasswordTitle),
                 Catalogue(TextId::PasswordDialogBody), kPasswordFooter) {
    std::vector<Item*> items;
    for (int i = 0; i < 3; ++i) {
        fields_[i] = std::make_unique<InputItem>(
            Catalogue(TextId::OldPasswordLabel + static_cast<unsigned>(i)), "", kFieldWidth);
        fields_[i]->SetPassword(true);
        items.push_back(fields_[i].get());
    }
    SetItems(items);
    SetShowCursor(true);
    SetKeyHook([this](int key) { return OnKey(key); });
}

ChangePasswordDialog::~ChangePasswordDialog() {
    for (auto& field : fields_)
        ClearPasswordField(*field);
}

int ChangePasswordDialog::Focus() const {
    return List() != nullptr ? List()->FocusIndex() : 0;
}

void ChangePasswordDialog::FocusItem(int index) {
    if (List() != nullptr)
        List()->FocusItem(index);
}

FormKey ChangePasswordDialog::OnKey(int key) {
    switch (DecidePasswordKey(key, Focus())) {
    case PasswordKeyAction::Cancel:
        return FormKey::Cancel;
    case PasswordKeyAction::Edit:
    case PasswordKeyAction::Up:
    case PasswordKeyAction::Down:
        return FormKey::Unused; // the list moves and edits
    case PasswordKeyAction::CheckOld:
        CheckOldPassword();
        break;
    case PasswordKeyAction::FocusConfirm:
        FocusItem(kConfirmPasswordField);
        break;
    case PasswordKeyAction::FocusNew:
        FocusItem(kNewPasswordField);
        break;
    case PasswordKeyAction::Submit:
        return Submit() ? FormKey::Close : FormKey::Used;
    }
    return FormKey::Used;
}

void ChangePasswordDialog::ShowError(unsigned messageId) {
    MessageDialog message(this, kErrorTitleId, Text(messageId));
    RunWindow(&message);
    Window::ShowCursor(true);
}

void ChangePasswordDialog::CheckOldPassword() {
    const int status = Authenticate(LoggedInUser(), fields_[kOldPasswordField]->Value());
    if (status == PAM_SUCCESS || status == PAM_NEW_AUTHTOK_REQD) {
        FocusItem(kNewPasswordField);
        return;
    }
    ShowError(TextId::OldPasswordIncorrect);
    ClearPasswordField(*fields_[kOldPasswordField]);
    FocusItem(kOldPasswordField);
    if (List() != nullptr)
        List()->Draw();
}

bool ChangePasswordDialog::Submit() {
    const std::string& oldPassword = fields_[kOldPasswordField]->Value();
    const std::string& newPassword = fields_[kNewPasswordField]->Value();
    const NewPasswordCheck check =
        CheckNewPassword(oldPassword, newPassword, fields_[kConfirmPasswordField]->Value());
    if (const unsigned message = NewPasswordMessage(check); message != 0) {
        ShowError(message);
        return false;
    }
    if (check == NewPasswordCheck::Same) {
        const bool confirmed = ConfirmSamePassword(this);
        Window::ShowCursor(true);
        if (!confirmed)
            return false;
    }
    if (!ChangePassword()) {
        ShowError(TextId::PasswordChangeFailed);
        return false;
    }
    SaveHostConfiguration();
    const std::string& user = LoggedInUser();
    Log(LOG_INFO, "Login password for user %s has changed", user.c_str());
    ReportEvent(kEventPasswordChanged, user.c_str());
    SetEmptyPassword(newPassword.empty());
    return true;
}

bool ChangePasswordDialog::ChangePassword() {
    return ChangePasswordThroughPam(LoggedInUser(), fields_[kOldPasswordField]->Value(),
                                    fields_[kNewPasswordField]->Value());
}

} // namespace Tarn
