// Asks for the console keyboard layout: one radio item per layout the host offers, the configured one
// marked. The caller applies the answer (ChooseKeyboardLayout does both).
#pragma once

#include "ui/FormDialog.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Tarn {

class RadioItem;

class KeyboardDialog : public FormDialog {
public:
    explicit KeyboardDialog(Frame* parent);
    ~KeyboardDialog() override;

    // The marked layout after Enter; nothing after Esc or when no layout is marked.
    std::optional<std::string> Ask();

    // Index of the marked layout, -1 when none is.
    int Marked() const;

private:
    std::vector<std::string> layouts_;
    std::vector<std::unique_ptr<RadioItem>> items_;
};

// Asks on top of `parent` and applies the layout chosen; true when the layout changed.
bool ChooseKeyboardLayout(Frame* parent);

} // namespace Tarn
