// The console's markup language as pure code: tags "{color:..}", "{bgcolor:..}", "{align:..}" and their
// closing forms, laid out into display lines of styled runs for an area of a given width and height. No
// curses here.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Tarn::Markup {

// A stretch of text on one display line, drawn in one style. Colours are curses colour numbers; -1 means the
// area's default colour.
struct Run {
    int column = 0;
    std::string text;
    int foreground = -1;
    int background = -1;

    bool operator==(const Run&) const = default;
};

using Line = std::vector<Run>;

// Colour number for a colour name ("white", "black", "dark-grey", "light-grey", "yellow", "red"); -1 for a
// name that is not in the table.
int ColorNumber(std::string_view name);

// Breaks `text` into at most `height` lines no wider than `width` cells. Never fails: unknown and empty tags
// are dropped, an unclosed `{` swallows the rest, unknown colour names leave the colour as it is.
std::vector<Line> Layout(std::string_view text, int width, int height);

// Number of character cells the text takes on one line, tags not counted (UTF-8 sequences count as one cell).
int VisibleLength(std::string_view text);

// The line as plain text, runs placed at their columns and gaps filled with blanks (for tests and debugging).
std::string PlainText(const Line& line);

} // namespace Tarn::Markup
