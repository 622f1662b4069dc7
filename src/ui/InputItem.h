// An editable field in an item list: "label ... [ value ]", right-aligned in the row. The editing rules and
// the line text are pure functions of the field state, so they can be checked without a terminal.
#pragma once

#include "ui/FieldFilter.h"
#include "ui/Item.h"

#include <string>

namespace Tarn {

// The value being edited. `fresh` makes a pre-filled value behave like selected text: the first character
// typed replaces it, Delete or Backspace clears it.
struct FieldState {
    std::string value;
    int cursor = 0; // index in value, 0..size
    int offset = 0; // index of the first value character shown
    bool fresh = true;
};

// Zeroes the whole buffer of `text` (its capacity, not only its size) and empties it. Every value a field
// drops goes through it: a field may hold a password.
void WipeText(std::string& text);

// Applies one key (curses key code); false when the key is not an editing key. No edit leaves a copy of
// the value behind in memory. A shown field refuses '{': it would open a tag in the field's markup and hide
// the rest of the line; a masked one shows it as '*'.
bool EditField(FieldState& state, int key, bool password = false);

// The field width in cells: `fieldWidth`, or half of the row width minus 1 when it is -1.
int EffectiveFieldWidth(int rowWidth, int fieldWidth);

struct FieldLine {
    std::string markup;
    int cursorColumn; // column of the terminal cursor in the row
};

// The row's markup for a row `rowWidth` cells wide and a field `fieldWidth` cells wide (already effective).
// Adjusts state.offset first so that the cursor stays inside the field.
FieldLine BuildFieldLine(const std::string& label, int rowWidth, int fieldWidth, FieldState& state,
                         bool focused, bool password);

class InputItem : public Item {
public:
    InputItem(std::string label, const std::string& value, int fieldWidth,
              FieldFilter filter = FieldFilter::Text);
    ~InputItem() override;

    void FocusChanged() override { state_.fresh = true; }
    // Builds the field line into the row and moves the terminal cursor into the field.
    void Render(TextArea& row) override;
    bool HandleKey(int key) { return EditField(state_, key, password_); }
    // Editing keys, and the characters the field's filter lets in.
    bool OnKey(int key) override { return FieldAccepts(filter_, key) && HandleKey(key); }
    FieldFilter Filter() const { return filter_; }

    // Cursor at the end, offset 0, fresh again. The old value is wiped.
    void SetValue(const std::string& value);
    // Wipes the value and leaves the field empty.
    void Wipe() { SetValue(""); }
    const std::string& Value() const { return state_.value; }
    const std::string& Label() const { return label_; }
    void SetPassword(bool password) { password_ = password; }
    bool Password() const { return password_; }
    const FieldState& State() const { return state_; }

private:
    std::string label_;
    FieldState state_;
    int fieldWidth_;
    bool password_ = false;
    FieldFilter filter_;
};

} // namespace Tarn
