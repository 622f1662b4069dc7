// Sets a new login password for the logged-in user through PAM.
#pragma once

#include "ui/Window.h"

#include <memory>

namespace Tarn {

class InputItem;
class ItemList;

class ChangePasswordDialog : public Dialog {
public:
    explicit ChangePasswordDialog(Frame* parent);
    ~ChangePasswordDialog() override;
    // 1 when the password was changed, 0 when cancelled.
    int Foreground() override;
    bool Run() { return Foreground() != 0; }

private:
    int Focus() const;
    void FocusItem(int index);
    // The old password is checked before the new one is typed; an expired one counts as correct.
    void CheckOldPassword();
    // True when the password was changed.
    bool Submit();
    // Through PAM, for the logged-in user.
    bool ChangePassword();
    void ShowError(unsigned messageId);

    ItemList* list_ = nullptr; // owned by the content pane
    std::unique_ptr<InputItem> fields_[3];
};

} // namespace Tarn
