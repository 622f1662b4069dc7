// Sets a new login password for the logged-in user through PAM.
#pragma once

#include "ui/FormDialog.h"

#include <memory>

namespace Tarn {

class InputItem;
class ItemList;

// A form whose Enter and Tab step through the fields (old password checked first); the change is made when
// the confirmation field is submitted. Run() is true when the password was changed.
class ChangePasswordDialog : public FormDialog {
public:
    explicit ChangePasswordDialog(Frame* parent);
    ~ChangePasswordDialog() override;

private:
    FormKey OnKey(int key);
    int Focus() const;
    void FocusItem(int index);
    // The old password is checked before the new one is typed; an expired one counts as correct.
    void CheckOldPassword();
    // True when the password was changed.
    bool Submit();
    // Through PAM, for the logged-in user.
    bool ChangePassword();
    void ShowError(unsigned messageId);

    std::unique_ptr<InputItem> fields_[3];
};

} // namespace Tarn
