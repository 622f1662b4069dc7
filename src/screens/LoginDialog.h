// The login dialog (password, or smart-card login id and PIN, checked through PAM service "tarn") and the
// dialog shown instead when console login is switched off.
#pragma once

#include "ui/FormDialog.h"

#include <memory>
#include <string>

namespace Tarn {

class InputItem;
class ItemList;
class LabelItem;

// True when console login is allowed (the marker file /var/run/orvane/show-tarn-login exists).
bool LoginAllowed();

// Wipes a masked field's text in place and empties it.
void ClearPasswordField(InputItem& field);

// A form whose Enter and Tab step through the fields and whose keys switch between password and smart-card
// login; the credentials are checked on the password field's Enter.
class LoginDialog : public FormDialog {
public:
    explicit LoginDialog(Frame* parent);
    ~LoginDialog() override;
    // Lays the fields out afresh, then runs the form: 1 when the user is authenticated, 0 when cancelled.
    int Foreground() override;
    const std::string& UserName() const { return userName_; }

private:
    FormKey OnKey(int key);
    // Texts, footer and fields for the mode; the password field starts empty.
    void Layout(bool pinMode);
    int Focus() const;
    void FocusItem(int index);
    // Checks the credentials and acts on the outcome; true when the user is logged in.
    bool Submit();

    std::string userName_;
    bool pinMode_ = false;
    std::unique_ptr<LabelItem> keyboard_;
    std::unique_ptr<InputItem> login_;
    std::unique_ptr<InputItem> password_;
};

// "Authentication Denied": direct console access is disabled for this host. Closes on Enter or Esc.
void ShowLoginDisabled(Frame* parent);

} // namespace Tarn
