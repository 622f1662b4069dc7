// Focus bookkeeping of items and the composed texts of labels, check boxes and radio buttons.
#include "ui/Item.h"

#include "core/Keys.h"
#include "ui/TextArea.h"

namespace Tarn {

void Item::SetFocus(bool focused) {
    if (focused == focused_)
        return;
    focused_ = focused;
    FocusChanged();
}

bool Item::OnKey(int) {
    return false;
}

void LabelItem::Render(TextArea& row) {
    row.SetText(text_);
}

CheckItem::CheckItem(std::string label, bool checked, int indent)
    : LabelItem("", true), label_(std::move(label)), checked_(checked), indent_(indent < 0 ? 0 : indent) {
    Compose();
}

void CheckItem::SetChecked(bool checked) {
    checked_ = checked;
    Compose();
}

bool CheckItem::OnKey(int key) {
    if (key != Key::Space)
        return false;
    SetChecked(!checked_);
    return true;
}

void CheckItem::Compose() {
    text_ = std::string(static_cast<size_t>(indent_), ' ') + (checked_ ? "[X] " : "[ ] ") + label_;
}

RadioItem::RadioItem(std::string label, bool chosen, int group)
    : LabelItem("", true), label_(std::move(label)), chosen_(chosen), group_(group) {
    Compose();
}

void RadioItem::SetChosen(bool chosen) {
    chosen_ = chosen;
    Compose();
}

void RadioItem::Compose() {
    text_ = (chosen_ ? "(o) " : "( ) ") + label_;
}

} // namespace Tarn
