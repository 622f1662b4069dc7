// The escape sequences the console registers with curses beside the terminal's own key descriptions, so
// that consoles and terminals without function keys still reach F1 to F12.
#pragma once

#include <string>
#include <vector>

namespace Tarn {

// Curses key codes for code that does not include curses (screens); checked against curses in Keys.cpp.
namespace Key {
inline constexpr int BackspaceByte = 8; // Ctrl-H, what some terminals send for Backspace
inline constexpr int Tab = 9;
inline constexpr int Enter = 10; // curses' newline mode turns a carriage return into this
inline constexpr int Escape = 27;
inline constexpr int Space = ' ';
inline constexpr int Down = 0402;
inline constexpr int Up = 0403;
inline constexpr int Left = 0404;
inline constexpr int Right = 0405;
inline constexpr int Home = 0406;
inline constexpr int Backspace = 0407;
inline constexpr int Delete = 0512;
inline constexpr int Insert = 0513;
inline constexpr int PageDown = 0522;
inline constexpr int PageUp = 0523;
inline constexpr int End = 0550;
inline constexpr int Resize = 0632;
constexpr int F(int n) {
    return 0410 + n;
}
} // namespace Key

struct KeyBinding {
    std::string sequence;
    int key; // curses key code
};

// In registration order.
const std::vector<KeyBinding>& KeyTable();

} // namespace Tarn
