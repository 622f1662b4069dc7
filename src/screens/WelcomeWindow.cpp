// TEMPORARY ROOT SCREEN (see the header): product line, key hint, F2 notification.
#include "screens/WelcomeWindow.h"

#include "core/EventLoop.h"
#include "core/Keys.h"
#include "core/Terminal.h"
#include "ui/StandardDialogs.h"
#include "ui/TextArea.h"

namespace Tarn {

WelcomeWindow::WelcomeWindow() : Frame(nullptr, 0, 0, ScreenColumns(), ScreenLines(), 0, 7) {
    int width = Width();
    product_ = AddChild<TextArea>(0, Height() / 3, width, 1, 7, 0);
    product_->SetText(std::string("{align:center}") + Text(2) + "{/align}");
    hint_ = AddChild<TextArea>(2, Height() - 2, width - 4, 1, 2, 0);
    hint_->SetText("{color:yellow}<F2>{/color} Show notification");
}

int WelcomeWindow::Foreground() {
    for (;;) {
        if (GetKey(this, false) != Key::F(2))
            continue;
        NotificationDialog dialog(this, "Notification", "This console is starting up.");
        try {
            RunWindow(&dialog);
        } catch (const TarnTimeout&) {
            // Nobody is logged in: the notification just closes.
        }
    }
}

} // namespace Tarn
