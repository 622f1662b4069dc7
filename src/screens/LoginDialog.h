// The login dialog (password, or smart-card login id and PIN, checked through PAM service "tarn") and the
// dialog shown instead when console login is switched off.
#pragma once

#include "ui/Window.h"

#include <string>

namespace Tarn {

// True when console login is allowed (the marker file /var/run/orvane/show-tarn-login exists).
bool LoginAllowed();

class LoginDialog : public Dialog {
public:
    explicit LoginDialog(Frame* parent);
    ~LoginDialog() override;
    // 1 when the user is authenticated, 0 when cancelled.
    int Foreground() override;
    bool Run() { return Foreground() != 0; }
    const std::string& UserName() const { return userName_; }

private:
    std::string userName_;
    // Further members are the implementer's.
};

class LoginDisabledDialog : public Dialog {
public:
    explicit LoginDisabledDialog(Frame* parent);
    int Foreground() override; // always 0
};

} // namespace Tarn
