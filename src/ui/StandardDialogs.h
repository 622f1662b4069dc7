// The ready-made dialogs for simple messages: a notification (title and body markup), a message whose title
// is a catalogue text, and an information dialog with a longer text in its content pane. All close on Enter.
#pragma once

#include "ui/DialogSize.h"
#include "ui/Window.h"

#include <string>

namespace Tarn {

// Reads keys for `window` (with the idle timeout) until Enter and returns 1; TarnTimeout passes through.
int WaitForEnter(Window* window);

// Built in to RunWindow: HasForeground() is false, and RunWindow may either call Foreground() or run the
// same Enter loop itself with TitleText()/BodyText(). A subclass that brings its own key loop must return
// true from HasForeground().
class NotificationDialog : public Dialog {
public:
    // Sized for its title and body.
    NotificationDialog(Frame* parentFrame, std::string title, std::string body);
    NotificationDialog(Frame* parentFrame, DialogSize size, std::string title, std::string body);

    int Foreground() override;
    bool HasForeground() const override { return false; }

    const std::string& TitleText() const { return titleText_; }
    const std::string& BodyText() const { return bodyText_; }

private:
    std::string titleText_;
    std::string bodyText_;
};

class MessageDialog : public Dialog {
public:
    // Sized for its title and body.
    MessageDialog(Frame* parentFrame, unsigned titleId, std::string body);
    MessageDialog(Frame* parentFrame, DialogSize size, unsigned titleId, std::string body);

    int Foreground() override;

    unsigned TitleId() const { return titleId_; }
    const std::string& BodyText() const { return bodyText_; }

private:
    unsigned titleId_;
    std::string bodyText_;
};

// 70 x 15 with a 5-row top pane; the information text fills the content pane in the pane's colours.
class InfoDialog : public Dialog {
public:
    static constexpr int kWidth = 70;
    static constexpr int kHeight = 15;
    static constexpr int kSplitRow = 5;

    InfoDialog(Frame* parentFrame, const std::string& information, const std::string& title,
               const std::string& body, const std::string& footer);

    int Foreground() override;

    TextArea* InformationArea() const { return information_; }

private:
    TextArea* information_ = nullptr;
};

} // namespace Tarn
