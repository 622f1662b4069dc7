// Input field editing under any key sequence through any filter: the value holds only what the filter lets
// in, the cursor stays inside the value and inside the shown field, and the field line fills its row
// exactly, showing the part of the value around the cursor.
#include "FuzzCheck.h"
#include "ui/InputItem.h"
#include "ui/Markup.h"

#include <curses.h>

#include <cctype>
#include <cstdint>
#include <string>

namespace {

const int kEditKeys[] = {KEY_HOME, KEY_END, KEY_LEFT, KEY_RIGHT, KEY_DC, KEY_BACKSPACE, KEY_UP, KEY_F(2)};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 3)
        return 0;
    const int rowWidth = data[0] % 100 + 10;
    const int fieldWidth = Tarn::EffectiveFieldWidth(rowWidth, data[1] % 2 ? -1 : data[1] % 40 + 1);
    const bool password = data[2] & 1;
    const auto filter = static_cast<Tarn::FieldFilter>(data[2] >> 1 & 3);
    const std::string label = "Field";
    Tarn::FieldState state;
    state.value = "12"; // passes every filter
    state.cursor = static_cast<int>(state.value.size());
    for (size_t i = 3; i < size; ++i) {
        const int key = data[i] < 0xf0 ? data[i] : kEditKeys[data[i] - 0xf0 & 7];
        if (Tarn::FieldAccepts(filter, key))
            Tarn::EditField(state, key, password);
        FUZZ_CHECK(state.cursor >= 0 && state.cursor <= static_cast<int>(state.value.size()));
        for (char c : state.value)
            FUZZ_CHECK(std::isprint(static_cast<unsigned char>(c)) && Tarn::FieldAccepts(filter, c));

        const Tarn::FieldLine line = Tarn::BuildFieldLine(label, rowWidth, fieldWidth, state, true, password);
        FUZZ_CHECK(state.offset >= 0 && state.offset <= state.cursor);
        FUZZ_CHECK(state.cursor - state.offset < fieldWidth);
        if (static_cast<int>(label.size()) + 5 + fieldWidth > rowWidth)
            continue; // a row too narrow for its label: nothing to hold the line to
        FUZZ_CHECK(line.cursorColumn >= 0 && line.cursorColumn < rowWidth);
        const auto lines = Tarn::Markup::Layout(line.markup, rowWidth, 1);
        FUZZ_CHECK(lines.size() == 1);
        std::string shown = state.value.substr(state.offset, fieldWidth);
        if (password)
            shown.assign(shown.size(), '*');
        shown.resize(fieldWidth, ' ');
        const std::string text = Tarn::Markup::PlainText(lines[0]);
        FUZZ_CHECK(text.size() >= shown.size() + 4 &&
                   text.compare(text.size() - shown.size() - 2, shown.size(), shown) == 0);
    }
    return 0;
}
