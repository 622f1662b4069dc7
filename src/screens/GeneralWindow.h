// The System Customization menu: tasks on the left, the selected task's description and state on the right.
#pragma once

#include "ui/Window.h"

namespace Tarn {

class GeneralWindow : public RootWindow {
public:
    explicit GeneralWindow(Frame* parent);
    ~GeneralWindow() override;
    // Returns when the operator logs out with Esc; Tarn::TarnTimeout passes through.
    int Foreground() override;
};

} // namespace Tarn
