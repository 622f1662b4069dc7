// Shut down or restart the host, optionally forcing running virtual machines off.
#pragma once

#include "ui/Window.h"

namespace Tarn {

class ShutdownDialog : public Dialog {
public:
    explicit ShutdownDialog(Frame* parent);
    ~ShutdownDialog() override;
    // 0 after Esc; does not return while the host goes down.
    int Foreground() override;
};

} // namespace Tarn
