// The same-password question: Enter confirms, Esc goes back to the password dialog.
#include "screens/SamePasswordConfirmDialog.h"

#include "core/EventLoop.h"
#include "core/Keys.h"
#include "core/Terminal.h"
#include "screens/PasswordModel.h"
#include "ui/DialogSize.h"
#include "ui/StringFactory.h"
#include "ui/TextIds.h"

namespace Tarn {
namespace {

constexpr unsigned kTitleId = TextId::ConfigurePasswordWarning;
constexpr unsigned kQuestionId = TextId::SamePasswordQuestion;

DialogSize QuestionSize() {
    const StringFactory* strings = StringFactory::Get("en_US");
    return MessageDialogSize(strings->GetString(kTitleId), strings->GetString(kQuestionId), ScreenColumns(),
                             ScreenLines());
}

} // namespace

SamePasswordConfirmDialog::SamePasswordConfirmDialog(Frame* parent)
    : SamePasswordConfirmDialog(parent, QuestionSize()) {}

SamePasswordConfirmDialog::SamePasswordConfirmDialog(Frame* parent, DialogSize size)
    : Dialog(parent, size.width, size.height, size.splitRow) {
    SetTitle(Text(kTitleId));
    SetBody(Text(kQuestionId));
    SetFooter(kSamePasswordFooter);
}

int SamePasswordConfirmDialog::Foreground() {
    for (;;) {
        const int key = GetKey(this, true);
        if (key == Key::Enter)
            return 1;
        if (key == Key::Escape)
            return 0;
    }
}

} // namespace Tarn
