// The confirmation dialog's layout and key loop.
#include "ui/ConfirmDialog.h"

#include "core/Colors.h"
#include "core/EventLoop.h"
#include "core/Terminal.h"
#include "ui/ItemList.h"
#include "ui/Markup.h"
#include "ui/RunWindow.h"
#include "ui/TextArea.h"

#include <algorithm>

namespace Tarn {

ConfirmDialog::ConfirmDialog(Frame* parent, const Confirmation& confirmation)
    : ConfirmDialog(parent,
                    MessageDialogSize(confirmation.title, confirmation.text, ScreenColumns(), ScreenLines()),
                    confirmation) {}

ConfirmDialog::ConfirmDialog(Frame* parent, DialogSize size, const Confirmation& confirmation)
    : Dialog(parent, size.width, size.height, size.splitRow), keys_(confirmation.keys),
      idleTimeout_(confirmation.idleTimeout) {
    SetTitle(confirmation.title);
    if (confirmation.title.empty() && top_->Height() > 2) {
        // A small question without a title gives the title's rows to its text.
        top_->AddChild<TextArea>(3, 1, top_->Width() - 6, top_->Height() - 2, Color::LightGrey, -1)
            ->SetText(confirmation.text);
    } else {
        SetBody(confirmation.text);
    }
    SetFooter(confirmation.footer);
    if (content_ != nullptr && !confirmation.question.empty()) {
        // As many rows as the wrapped question needs: a long question is not cut after its first line.
        const int rows = static_cast<int>(
            Markup::Layout(confirmation.question, content_->Width(), content_->Height()).size());
        question_ = content_->AddChild<TextArea>(0, 0, content_->Width(), std::max(rows, 1),
                                                 content_->Foreground(), content_->Background());
        question_->SetText(confirmation.question);
    }
}

ConfirmDialog::~ConfirmDialog() = default;

void ConfirmDialog::SetItems(std::vector<Item*> items) {
    if (content_ == nullptr)
        return;
    const int top = question_ != nullptr ? question_->Height() + 1 : 0;
    if (list_ == nullptr && content_->Height() > top)
        list_ = content_->AddChild<ItemList>(0, top, content_->Width(), content_->Height() - top);
    if (list_ != nullptr)
        list_->SetItems(std::move(items));
}

Answer ConfirmDialog::Ask() {
    return static_cast<Answer>(RunWindow(this));
}

int ConfirmDialog::Foreground() {
    if (whenShown_ && !whenShown_())
        return static_cast<int>(Answer::Cancel);
    for (;;) {
        const int key = GetKey(this, idleTimeout_);
        auto answer =
            std::find_if(keys_.begin(), keys_.end(), [key](const AnswerKey& a) { return a.key == key; });
        if (answer != keys_.end())
            return static_cast<int>(answer->answer);
        if (list_ != nullptr)
            list_->OnKey(key);
    }
}

} // namespace Tarn
