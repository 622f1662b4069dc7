// The login dialog (password, or smart-card login id and PIN, checked through PAM service "tarn") and the
// dialog shown instead when console login is switched off.
#pragma once

#include "ui/Window.h"

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

class LoginDialog : public Dialog {
public:
    explicit LoginDialog(Frame* parent);
    ~LoginDialog() override;
    // 1 when the user is authenticated, 0 when cancelled.
    int Foreground() override;
    bool Run() { return Foreground() != 0; }
    const std::string& UserName() const { return userName_; }

private:
    // Texts, footer and fields for the mode; the password field starts empty.
    void Layout(bool pinMode);
    int Focus() const;
    void FocusItem(int index);
    // Checks the credentials and acts on the outcome; true when the user is logged in.
    bool Submit();

    std::string userName_;
    bool pinMode_ = false;
    ItemList* list_ = nullptr; // owned by the content pane
    std::unique_ptr<LabelItem> keyboard_;
    std::unique_ptr<InputItem> login_;
    std::unique_ptr<InputItem> password_;
};

// "Authentication Denied": direct console access is disabled for this host. Closes on Enter or Esc.
void ShowLoginDisabled(Frame* parent);

} // namespace Tarn
