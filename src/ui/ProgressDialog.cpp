// The progress dialog: its text area in the content pane, the steps and the closing wait for Enter.
#include "ui/ProgressDialog.h"

#include "core/EventLoop.h"
#include "ui/RunWindow.h"
#include "ui/StandardDialogs.h"
#include "ui/TextArea.h"

#include <utility>

namespace Tarn {

ProgressDialog::ProgressDialog(Frame* parent, DialogSize size, const std::string& title,
                               const std::string& text, Script script, std::string endFooter)
    : Dialog(parent, size.width, size.height, size.splitRow), script_(std::move(script)),
      endFooter_(std::move(endFooter)) {
    SetTitle(title);
    SetBody(text);
    if (content_ != nullptr)
        area_ = content_->AddChild<TextArea>(0, 0, content_->Width(), content_->Height(),
                                             content_->Foreground(), content_->Background());
}

void ProgressDialog::Show() {
    if (area_ == nullptr)
        return;
    area_->SetText(progress_.Text());
    area_->Draw(true);
}

bool ProgressDialog::Step(const std::string& text, const std::function<bool()>& action, const char* done,
                          const char* failed) {
    progress_.Begin(text);
    Show();
    const bool ok = action();
    progress_.End(ok, done, failed);
    failed_ = failed_ || !ok;
    Show();
    return ok;
}

void ProgressDialog::Append(const std::string& text) {
    progress_.Append(text);
    Show();
}

void ProgressDialog::SetText(const std::string& text) {
    SetBody(text);
    BodyArea()->Draw(true);
}

bool ProgressDialog::Run() {
    return RunWindow(this) == 1;
}

int ProgressDialog::Foreground() {
    if (script_)
        script_(*this);
    SetFooter(endFooter_);
    FooterArea()->Draw(true);
    WaitForEnter(this);
    return failed_ ? 0 : 1;
}

} // namespace Tarn
