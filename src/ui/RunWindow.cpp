// RunWindow, with the plain notification's Enter loop built in.
#include "ui/RunWindow.h"

#include "core/EventLoop.h"
#include "core/Keys.h"
#include "ui/DialogSize.h"
#include "ui/ScreenUpdate.h"
#include "ui/StandardDialogs.h"
#include "ui/Window.h"

namespace Tarn {
namespace {

int RunNotification(NotificationDialog* dialog) {
    while (GetKey(dialog, true) != Key::Enter) {
    }
    return 1;
}

} // namespace

int RunWindow(Frame* frame) {
    SetNotifiedSurface(nullptr);
    Frame* parent = frame->ParentFrame();
    // A plain notification's run is built in; its texts go in before the first draw.
    auto* notification = frame->HasForeground() ? nullptr : dynamic_cast<NotificationDialog*>(frame);
    {
        // The dimmed parent and the new frame go out as one update: the cells the frame covers are sent
        // once, in their final look (nothing of the parent behind a full-screen frame).
        ScreenUpdate update;
        if (parent != nullptr) {
            parent->Draw(false);
            parent->Refresh();
        }
        if (notification != nullptr) {
            notification->SetTitle(notification->TitleText());
            notification->SetBody(notification->BodyText());
            notification->SetFooter(kEnterOkFooter);
        }
        frame->Draw(true);
    }
    SetNotifiedSurface(frame);

    int result;
    try {
        result = notification != nullptr ? RunNotification(notification) : frame->Foreground();
    } catch (...) {
        // The frame is going away with the exception (idle time-out, host failure): never notify it again.
        SetNotifiedSurface(nullptr);
        throw;
    }

    if (parent != nullptr) {
        if (!parent->TakesRepaint()) {
            parent->Draw(true);
            parent->Refresh();
        }
        SetNotifiedSurface(parent);
    } else {
        SetNotifiedSurface(nullptr);
    }
    return result;
}

} // namespace Tarn
