// Notification, message and information dialogs: fill the two panes, then wait for Enter.
#include "ui/StandardDialogs.h"

#include "core/EventLoop.h"
#include "core/Keys.h"
#include "ui/StringFactory.h"
#include "ui/TextArea.h"

#include <curses.h>

#include <utility>

namespace Tarn {

int WaitForEnter(Window* window) {
    while (GetKey(window, true) != Key::Enter) {
    }
    return 1;
}

namespace {

DialogSize SizeOnScreen(const std::string& title, const std::string& body) {
    return MessageDialogSize(title, body, COLS, LINES);
}

std::string CatalogueText(unsigned id) {
    return StringFactory::Get("en_US")->GetString(id);
}

} // namespace

NotificationDialog::NotificationDialog(Frame* parentFrame, std::string title, std::string body)
    : NotificationDialog(parentFrame, SizeOnScreen(title, body), title, body) {}

NotificationDialog::NotificationDialog(Frame* parentFrame, DialogSize size, std::string title,
                                       std::string body)
    : Dialog(parentFrame, size.width, size.height, size.splitRow), titleText_(std::move(title)),
      bodyText_(std::move(body)) {
    // Set now so that the first draw by RunWindow already shows them.
    SetTitle(titleText_);
    SetBody(bodyText_);
    SetFooter(kEnterOkFooter);
}

int NotificationDialog::Foreground() {
    return WaitForEnter(this);
}

MessageDialog::MessageDialog(Frame* parentFrame, unsigned titleId, std::string body)
    : MessageDialog(parentFrame, SizeOnScreen(CatalogueText(titleId), body), titleId, body) {}

MessageDialog::MessageDialog(Frame* parentFrame, DialogSize size, unsigned titleId, std::string body)
    : Dialog(parentFrame, size.width, size.height, size.splitRow), titleId_(titleId),
      bodyText_(std::move(body)) {
    SetTitle(Text(titleId_));
    SetBody(bodyText_);
    SetFooter(kEnterOkFooter);
}

int MessageDialog::Foreground() {
    return WaitForEnter(this);
}

InfoDialog::InfoDialog(Frame* parentFrame, const std::string& information, const std::string& title,
                       const std::string& body, const std::string& footer)
    : Dialog(parentFrame, kWidth, kHeight, kSplitRow) {
    SetTitle(title);
    SetBody(body);
    SetFooter(footer);
    if (content_ != nullptr) {
        information_ = content_->AddChild<TextArea>(0, 0, content_->Width(), content_->Height(),
                                                    content_->Foreground(), content_->Background());
        information_->SetText(information);
    }
}

int InfoDialog::Foreground() {
    return WaitForEnter(this);
}

} // namespace Tarn
