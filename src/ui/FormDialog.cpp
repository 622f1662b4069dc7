// The form dialog's key loop and its refusal of a faulty row.
#include "ui/FormDialog.h"

#include "core/EventLoop.h"
#include "core/Keys.h"
#include "ui/InputItem.h"
#include "ui/ItemList.h"
#include "ui/RunWindow.h"
#include "ui/ScreenUpdate.h"
#include "ui/StandardDialogs.h"

namespace Tarn {
namespace {

// The cursor is hidden again on every way out of the form (an idle time-out included).
struct CursorShown {
    explicit CursorShown(bool show) : show_(show) {}
    ~CursorShown() {
        if (show_)
            Window::ShowCursor(false);
    }
    CursorShown(const CursorShown&) = delete;
    CursorShown& operator=(const CursorShown&) = delete;

private:
    bool show_;
};

} // namespace

FormDialog::FormDialog(Frame* parent, DialogSize size, const std::string& title, const std::string& body,
                       const std::string& footer)
    : Dialog(parent, size.width, size.height, size.splitRow) {
    SetTitle(title);
    SetBody(body);
    SetFooter(footer);
    if (content_ != nullptr)
        list_ = content_->AddChild<ItemList>(0, 0, content_->Width(), content_->Height());
}

FormDialog::~FormDialog() = default;

void FormDialog::SetItems(std::vector<Item*> items) {
    if (list_ != nullptr)
        list_->SetItems(std::move(items));
}

bool FormDialog::Run() {
    return RunWindow(this) == 1;
}

std::optional<FormError> FormDialog::Validate() {
    return validator_ ? validator_() : std::nullopt;
}

void FormDialog::Refuse(const FormError& error) {
    if (list_ != nullptr)
        list_->FocusItem(error.row);
    NotificationDialog message(this, error.title, error.text);
    RunWindow(&message);
}

void FormDialog::FollowFocus() {
    if (!showCursor_)
        return;
    // On a radio button or a check box the cursor would stand in whichever field was drawn last.
    const bool inField = list_ != nullptr && dynamic_cast<InputItem*>(list_->FocusedItem()) != nullptr;
    if (inField != Window::CursorVisible())
        Window::ShowCursor(inField);
}

int FormDialog::Foreground() {
    CursorShown cursor(showCursor_);
    FollowFocus();
    if (showCursor_ && Window::CursorVisible())
        Draw(true); // again, now that the cursor shows: the focused field places it
    for (;;) {
        // Nested dialogs and the key hook may have shown or hidden the cursor, or moved the focus.
        FollowFocus();
        const int key = GetKey(this, true);
        FormKey action = hook_ ? hook_(key) : FormKey::Unused;
        if (action == FormKey::Unused) {
            if (key == Key::Escape)
                action = FormKey::Cancel;
            else if (key == Key::Enter)
                action = FormKey::Accept;
            else if (list_ != nullptr) {
                ScreenUpdate update; // the cursor leaves or enters a field in the same update as the focus
                list_->OnKey(key);
                FollowFocus();
            }
        }
        if (action == FormKey::Cancel)
            return 0;
        if (action == FormKey::Close)
            return 1;
        if (action == FormKey::Accept) {
            std::optional<FormError> error = Validate();
            if (!error)
                return 1;
            Refuse(*error);
        }
    }
}

} // namespace Tarn
