// The form dialog's key loop and its refusal of a faulty row.
#include "ui/FormDialog.h"

#include "core/EventLoop.h"
#include "core/Keys.h"
#include "ui/ItemList.h"
#include "ui/RunWindow.h"
#include "ui/StandardDialogs.h"

namespace Tarn {
namespace {

// The cursor shows while the form is open, on every way out (an idle time-out included).
struct CursorShown {
    explicit CursorShown(bool show) : show_(show) {
        if (show_)
            Window::ShowCursor(true);
    }
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

int FormDialog::Foreground() {
    CursorShown cursor(showCursor_);
    if (showCursor_)
        Draw(true); // again, now that the cursor shows: the focused field places it
    for (;;) {
        const int key = GetKey(this, true);
        FormKey action = hook_ ? hook_(key) : FormKey::Unused;
        if (action == FormKey::Unused) {
            if (key == Key::Escape)
                action = FormKey::Cancel;
            else if (key == Key::Enter)
                action = FormKey::Accept;
            else if (list_ != nullptr)
                list_->OnKey(key);
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
