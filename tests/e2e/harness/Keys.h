// Named keys turned into the bytes a terminal of a given TERM sends, read from that TERM's terminfo entry.
#pragma once

#include <string>

namespace e2e {

// Names: "F1".."F12", "Up", "Down", "Left", "Right", "Home", "End", "PageUp", "PageDown", "Insert",
// "Delete", "Enter" (a carriage return, 13, as terminals send it), "LineFeed" (10), "Esc" (a lone 27), "Tab",
// "Backspace". `term` empty means TERM unset, which the
// program treats as vt102. A key the entry does not define (vt102 has no F5..F12) falls back to the
// "ESC [ n ~" form a PC keyboard sends. Throws std::invalid_argument for an unknown name.
std::string KeyBytes(const std::string& term, const std::string& name);

} // namespace e2e
