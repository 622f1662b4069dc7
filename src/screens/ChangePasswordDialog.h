// Sets a new login password for the logged-in user through PAM.
#pragma once

#include "ui/Window.h"

namespace Tarn {

class ChangePasswordDialog : public Dialog {
public:
    explicit ChangePasswordDialog(Frame* parent);
    ~ChangePasswordDialog() override;
    // 1 when the password was changed, 0 when cancelled.
    int Foreground() override;
};

} // namespace Tarn
