// Chooses the console keyboard layout.
#pragma once

#include "ui/Window.h"

namespace Tarn {

class KeyboardDialog : public Dialog {
public:
    explicit KeyboardDialog(Frame* parent);
    ~KeyboardDialog() override;
    // 1 after Enter, 0 after Esc.
    int Foreground() override;
};

} // namespace Tarn
