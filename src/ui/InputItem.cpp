// Editing of an input field and the building of its line: label, blanks, then " [ value ]" at the row's right
// edge, the shown part scrolled so that the cursor stays inside the field.
#include "ui/InputItem.h"

#include "ui/Markup.h"
#include "ui/TextArea.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <curses.h>

namespace Tarn {
namespace {

int Size(const std::string& s) {
    return static_cast<int>(s.size());
}

void Clear(FieldState& state) {
    WipeText(state.value);
    state.cursor = 0;
    state.offset = 0;
    state.fresh = false;
}

// Inserts without leaving a copy behind: a string that has to grow is moved by hand into a larger buffer and
// the old one is wiped before it is freed.
void InsertChar(std::string& value, size_t at, char c) {
    if (value.size() == value.capacity()) {
        std::string larger;
        larger.reserve(value.capacity() * 2 + 1);
        larger = value;
        WipeText(value);
        value.swap(larger);
    }
    value.insert(at, 1, c);
}

} // namespace

void WipeText(std::string& text) {
    // The whole buffer: characters erased earlier may still stand past the end.
    explicit_bzero(text.data(), text.capacity());
    text.clear();
}

bool EditField(FieldState& state, int key, bool password) {
    switch (key) {
    case KEY_HOME:
        state.cursor = 0;
        state.offset = 0;
        state.fresh = false;
        return true;
    case KEY_END:
        state.fresh = false;
        if (!state.value.empty())
            state.cursor = Size(state.value);
        return true;
    case KEY_LEFT:
        state.fresh = false;
        if (state.cursor > 0) {
            if (state.offset == state.cursor)
                --state.offset;
            --state.cursor;
        }
        return true;
    case KEY_RIGHT:
        state.fresh = false;
        if (state.cursor < Size(state.value))
            ++state.cursor;
        return true;
    case KEY_DC:
        if (state.fresh)
            Clear(state);
        else if (state.cursor < Size(state.value))
            state.value.erase(static_cast<size_t>(state.cursor), 1);
        return true;
    case KEY_BACKSPACE:
    case 8:
        if (state.fresh) {
            Clear(state);
        } else if (state.cursor > 0) {
            state.value.erase(static_cast<size_t>(state.cursor - 1), 1);
            --state.cursor;
        }
        return true;
    default:
        break;
    }
    if (key < 0 || key > 255 || !std::isprint(key) || (key == '{' && !password))
        return false;
    if (state.fresh) {
        Clear(state);
        state.value.push_back(static_cast<char>(key));
        state.cursor = 0;
    } else {
        InsertChar(state.value, static_cast<size_t>(state.cursor), static_cast<char>(key));
    }
    ++state.cursor;
    return true;
}

int EffectiveFieldWidth(int rowWidth, int fieldWidth) {
    int width = fieldWidth == -1 ? rowWidth / 2 - 1 : fieldWidth;
    return std::max(width, 1);
}

FieldLine BuildFieldLine(const std::string& label, int rowWidth, int fieldWidth, FieldState& state,
                         bool focused, bool password) {
    const int width = std::max(fieldWidth, 1);
    state.cursor = std::clamp(state.cursor, 0, Size(state.value));
    if (Size(state.value) < width) {
        state.offset = 0;
    } else {
        // The cursor may stand after the last character, so it needs a cell of its own inside the field.
        state.offset = std::clamp(state.offset, state.cursor - width + 1, state.cursor);
    }
    std::string shown = state.value.substr(static_cast<size_t>(state.offset), static_cast<size_t>(width));
    if (password)
        shown.assign(shown.size(), '*');
    const int fill = width - Size(shown);
    if (focused) {
        shown = (state.fresh ? "{bgcolor:white}{color:black}" : "{bgcolor:black}{color:white}") + shown +
                "{/color}{/bgcolor}";
    }
    const int labelCells = Markup::VisibleLength(label);
    const int blanks = std::max(rowWidth - 5 - width - labelCells, 0);
    FieldLine line;
    line.markup = label + std::string(static_cast<size_t>(blanks), ' ') + " [ " + shown +
                  std::string(static_cast<size_t>(fill), ' ') + " ]";
    line.cursorColumn = labelCells + blanks + 3 + state.cursor - state.offset;
    return line;
}

InputItem::InputItem(std::string label, const std::string& value, int fieldWidth, FieldFilter filter)
    : Item(true), label_(std::move(label)), fieldWidth_(fieldWidth), filter_(filter) {
    SetValue(value);
}

InputItem::~InputItem() {
    WipeText(state_.value);
}

void InputItem::SetValue(const std::string& value) {
    WipeText(state_.value);
    state_.value = value;
    state_.cursor = Size(value);
    state_.offset = 0;
    state_.fresh = true;
}

void InputItem::Render(TextArea& row) {
    const int width = EffectiveFieldWidth(row.Width(), fieldWidth_);
    FieldLine line = BuildFieldLine(label_, row.Width(), width, state_, focused_, password_);
    row.SetText(line.markup);
    row.MoveCursor(line.cursorColumn, 0);
}

} // namespace Tarn
