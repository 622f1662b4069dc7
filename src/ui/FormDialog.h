// The form dialog: items in the content pane, one key loop, and a check on Enter that either accepts the
// form or names the faulty row and the message to show. The list handles movement, Space and editing; a
// dialog adds keys of its own through a key hook. Form<T> ends with the value that the check read.
#pragma once

#include "ui/DialogSize.h"
#include "ui/Window.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace Tarn {

class Item;
class ItemList;

// Key hints of a form that Enter accepts and Esc cancels.
inline constexpr const char* kOkCancelFooter =
    "{align:right}{color:black}<Enter>{/color} {color:dark-grey}OK{/color}  {color:black}<Esc>{/color} "
    "{color:dark-grey}Cancel{/color}{/align}";

// A refused form: the item that gets the focus and the message dialog's title and text.
struct FormError {
    int row;
    std::string title;
    std::string text;
};

// What a dialog's own key hook made of a key.
enum class FormKey {
    Unused, // the list gets it next
    Used,   // handled by the hook
    Accept, // check the form as Enter does
    Cancel, // leave as Esc does
    Close,  // leave as accepted, without the check (the hook has done the work)
};

class FormDialog : public Dialog {
public:
    using Validator = std::function<std::optional<FormError>()>;
    using KeyHook = std::function<FormKey(int key)>;

    FormDialog(Frame* parent, DialogSize size, const std::string& title, const std::string& body,
               const std::string& footer);
    ~FormDialog() override;

    // The items stay the caller's; the first one that can take the focus gets it.
    void SetItems(std::vector<Item*> items);
    // Run on Enter; empty: the form is accepted. Without a validator every form is accepted.
    void SetValidator(Validator validator) { validator_ = std::move(validator); }
    void SetKeyHook(KeyHook hook) { hook_ = std::move(hook); }
    // Shows the terminal cursor while an input field of the form has the focus, placed in that field.
    void SetShowCursor(bool show) { showCursor_ = show; }

    // Runs the dialog modally: true when accepted, false on Esc. TarnTimeout passes through.
    bool Run();
    // The key loop: 1 accepted, 0 cancelled.
    int Foreground() override;

    ItemList* List() const { return list_; } // null when the dialog has no content pane

protected:
    virtual std::optional<FormError> Validate();
    // Moves the focus to the faulty row and shows the message; the typed text stays.
    void Refuse(const FormError& error);

private:
    void FollowFocus();

    ItemList* list_ = nullptr;
    Validator validator_;
    KeyHook hook_;
    bool showCursor_ = false;
};

// A form whose check reads the value out of the items: `read` returns the value or the error.
template <class T> class Form : public FormDialog {
public:
    using Reader = std::function<std::variant<T, FormError>()>;

    Form(Frame* parent, DialogSize size, const std::string& title, const std::string& body,
         const std::string& footer, Reader read)
        : FormDialog(parent, size, title, body, footer), read_(std::move(read)) {}

    // The value of the accepted form, or nothing on Esc.
    std::optional<T> Ask() {
        value_.reset();
        if (!Run())
            return std::nullopt;
        return std::move(value_);
    }

protected:
    std::optional<FormError> Validate() override {
        std::variant<T, FormError> result = read_();
        if (auto* error = std::get_if<FormError>(&result))
            return *error;
        value_ = std::move(std::get<T>(result));
        return std::nullopt;
    }

private:
    Reader read_;
    std::optional<T> value_;
};

} // namespace Tarn
