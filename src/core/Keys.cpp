// Key table and its registration with curses.
#include "core/Keys.h"

#include "core/EventLoop.h"

#include <curses.h>

namespace Tarn {

static_assert(Key::Down == KEY_DOWN && Key::Up == KEY_UP && Key::Left == KEY_LEFT && Key::Right == KEY_RIGHT);
static_assert(Key::Home == KEY_HOME && Key::End == KEY_END && Key::Backspace == KEY_BACKSPACE);
static_assert(Key::Delete == KEY_DC && Key::Insert == KEY_IC && Key::PageUp == KEY_PPAGE &&
              Key::PageDown == KEY_NPAGE && Key::Resize == KEY_RESIZE);
static_assert(Key::F(1) == KEY_F(1) && Key::F(12) == KEY_F(12));

namespace {
std::vector<KeyBinding> BuildTable() {
    const std::string esc = "\033";
    std::vector<KeyBinding> t;
    t.push_back({esc + "R", KEY_RESIZE});
    const char* const vtFunction[] = {"[11~", "[12~", "[13~", "[14~", "[15~", "[17~",
                                      "[18~", "[19~", "[20~", "[21~", "[23~", "[24~"};
    for (int i = 0; i < 12; ++i)
        t.push_back({esc + vtFunction[i], KEY_F(i + 1)});
    // ESC and a digit or ! @: F1..F12 on terminals without function keys.
    const char shifted[] = "1234567890!@";
    for (int i = 0; i < 12; ++i)
        t.push_back({esc + shifted[i], KEY_F(i + 1)});
    t.push_back({esc + "h", KEY_HOME});
    t.push_back({esc + "k", KEY_END});
    t.push_back({esc + "+", KEY_IC});
    t.push_back({esc + "-", KEY_DC});
    t.push_back({esc + "?", KEY_PPAGE});
    t.push_back({esc + "/", KEY_NPAGE});
    for (int i = 0; i < 12; ++i)
        t.push_back({esc + "[" + static_cast<char>('M' + i), KEY_F(i + 1)});
    for (int i = 0; i < 9; ++i)
        t.push_back({esc + "O" + static_cast<char>('P' + i), KEY_F(i + 1)});
    // Kept as it always was: ESC O Y is F12, and the ESC O series has no F10 or F11.
    t.push_back({esc + "OY", KEY_F(12)});
    const int arrows[] = {KEY_UP, KEY_DOWN, KEY_RIGHT, KEY_LEFT};
    for (int i = 0; i < 4; ++i)
        t.push_back({esc + "O" + static_cast<char>('A' + i), arrows[i]});
    for (int i = 0; i < 4; ++i)
        t.push_back({esc + "[" + static_cast<char>('A' + i), arrows[i]});
    t.push_back({esc + "[2~", KEY_IC});
    t.push_back({esc + "[3~", KEY_DC});
    t.push_back({esc + "[1~", KEY_HOME});
    t.push_back({esc + "[4~", KEY_END});
    t.push_back({esc + "[5~", KEY_PPAGE});
    t.push_back({esc + "[6~", KEY_NPAGE});
    t.push_back({"\177", KEY_BACKSPACE});
    return t;
}
} // namespace

const std::vector<KeyBinding>& KeyTable() {
    static const std::vector<KeyBinding> table = BuildTable();
    return table;
}

void DefineKeys() {
    for (const KeyBinding& binding : KeyTable())
        define_key(binding.sequence.c_str(), binding.key);
}

} // namespace Tarn
