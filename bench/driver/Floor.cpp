// The floor of a repaint, in ECMA-48 terms any terminal of the console's kind accepts: CUP/CUU/CUD/CUF/CUB,
// CR, LF and BS for the cursor, SGR with the reset or the single "off" codes for attributes, UTF-8 for text.
#include "Floor.h"

#include <algorithm>
#include <string>

namespace bench {

namespace {

using e2e::Cell;
using e2e::Color;

struct Attr {
    Color fg, bg; // as the program set them: reverse video not applied
    bool bold = false, underline = false, reverse = false;
};

bool SameColor(const Color& a, const Color& b) {
    if (a.kind != b.kind)
        return false;
    if (a.kind == Color::Kind::Indexed)
        return a.index == b.index;
    if (a.kind == Color::Kind::Rgb)
        return a.rgb == b.rgb;
    return true;
}

Attr AttrOf(const Cell& c) {
    Attr a{c.fg, c.bg, c.bold, c.underline, c.reverse};
    if (c.reverse) // the harness shows reverse video swapped; the program sent the colours unswapped
        std::swap(a.fg, a.bg);
    return a;
}

bool SameAttr(const Attr& a, const Attr& b) {
    return SameColor(a.fg, b.fg) && SameColor(a.bg, b.bg) && a.bold == b.bold && a.underline == b.underline &&
           a.reverse == b.reverse;
}

bool SameCell(const Cell& a, const Cell& b) {
    return a.text == b.text && SameAttr(AttrOf(a), AttrOf(b));
}

// SGR parameter for a colour; `base` 30 for foreground, 40 for background.
std::string ColorCode(const Color& c, int base) {
    switch (c.kind) {
    case Color::Kind::Indexed:
        if (c.index < 8)
            return std::to_string(base + c.index);
        if (c.index < 16)
            return std::to_string(base + 60 + c.index - 8);
        return std::to_string(base + 8) + ";5;" + std::to_string(c.index);
    case Color::Kind::Rgb:
        return std::to_string(base + 8) + ";2;" + std::to_string(c.rgb.r) + ";" + std::to_string(c.rgb.g) +
               ";" + std::to_string(c.rgb.b);
    default:
        return std::to_string(base + 9);
    }
}

bool IsDefault(const Color& c) {
    return c.kind == Color::Kind::DefaultFg || c.kind == Color::Kind::DefaultBg;
}

int SgrLength(const std::vector<std::string>& params) {
    int n = 3; // ESC [ ... m
    for (size_t i = 0; i < params.size(); ++i)
        n += int(params[i].size()) + (i > 0 ? 1 : 0);
    return n;
}

// Bytes to go from attributes `a` to `b`: a reset followed by what `b` needs, or only the differences.
int SgrCost(const Attr& a, const Attr& b) {
    if (SameAttr(a, b))
        return 0;
    std::vector<std::string> reset = {"0"};
    if (b.bold)
        reset.push_back("1");
    if (b.underline)
        reset.push_back("4");
    if (b.reverse)
        reset.push_back("7");
    if (!IsDefault(b.fg))
        reset.push_back(ColorCode(b.fg, 30));
    if (!IsDefault(b.bg))
        reset.push_back(ColorCode(b.bg, 40));
    if (reset.size() == 1)
        reset.clear(); // ESC [ m
    std::vector<std::string> delta;
    if (a.bold != b.bold)
        delta.push_back(b.bold ? "1" : "22");
    if (a.underline != b.underline)
        delta.push_back(b.underline ? "4" : "24");
    if (a.reverse != b.reverse)
        delta.push_back(b.reverse ? "7" : "27");
    if (!SameColor(a.fg, b.fg))
        delta.push_back(ColorCode(b.fg, 30));
    if (!SameColor(a.bg, b.bg))
        delta.push_back(ColorCode(b.bg, 40));
    return std::min(SgrLength(reset), SgrLength(delta));
}

// "ESC [ n X" with n left out when it is 1.
int CsiLength(int n) {
    return 3 + (n > 1 ? int(std::to_string(n).size()) : 0);
}

int MoveCost(e2e::Pos from, e2e::Pos to) {
    if (from == to)
        return 0;
    // CUP, with the row or column left out when it is the first.
    int cup = 3 + (to.row > 0 ? int(std::to_string(to.row + 1).size()) : 0) +
              (to.col > 0 ? 1 + int(std::to_string(to.col + 1).size()) : 0);
    const int dr = to.row - from.row, dc = to.col - from.col;
    int vertical = 0;
    if (dr > 0)
        vertical = std::min(dr, CsiLength(dr)); // line feeds, or CUD
    else if (dr < 0)
        vertical = CsiLength(-dr);
    int horizontal = 0;
    if (dc != 0) {
        horizontal = CsiLength(std::abs(dc)) /* CUF or CUB */;
        if (dc == -1)
            horizontal = 1; // BS
        if (to.col == 0)
            horizontal = 1; // CR
        else
            horizontal = std::min(horizontal, 1 + CsiLength(to.col)); // CR, then CUF
    }
    return std::min(cup, vertical + horizontal);
}

} // namespace

Grid Snapshot(const e2e::Screen& screen) {
    Grid g;
    g.rows = screen.Rows();
    g.cols = screen.Cols();
    g.cells.reserve(size_t(g.rows * g.cols));
    for (int row = 0; row < g.rows; ++row)
        for (int col = 0; col < g.cols; ++col)
            g.cells.push_back(screen.CellAt(col, row));
    g.cursor = screen.Cursor();
    g.cursorVisible = screen.CursorVisible();
    return g;
}

Change Diff(const Grid& before, const Grid& after) {
    Change change;
    e2e::Pos cursor = before.cursor;
    Attr current; // the console leaves the attributes reset after each update
    int bytes = 0;
    for (int row = 0; row < after.rows; ++row) {
        std::vector<int> changed;
        for (int col = 0; col < after.cols; ++col) {
            if (col > 0 && after.At(col - 1, row).width == 2)
                continue; // the right half of a wide character
            if (!SameCell(before.At(col, row), after.At(col, row)))
                changed.push_back(col);
        }
        if (changed.empty())
            continue;
        ++change.rowsChanged;
        change.cellsChanged += int(changed.size());
        for (int col : changed) {
            const e2e::Pos target{col, row};
            // Over a gap on the same row: rewrite the unchanged cells or move, whichever is cheaper.
            if (cursor.row == row && cursor.col < col) {
                int rewrite = 0;
                Attr a = current;
                for (int c = cursor.col; c < col; ++c) {
                    const Cell& cell = after.At(c, row);
                    rewrite += SgrCost(a, AttrOf(cell)) + int(cell.text.size());
                    a = AttrOf(cell);
                }
                const int move = MoveCost(cursor, target);
                if (rewrite < move) {
                    bytes += rewrite;
                    current = a;
                } else {
                    bytes += move;
                }
            } else {
                bytes += MoveCost(cursor, target);
            }
            const Cell& cell = after.At(col, row);
            bytes += SgrCost(current, AttrOf(cell)) + int(cell.text.size());
            current = AttrOf(cell);
            cursor = {std::min(col + std::max(cell.width, 1), after.cols - 1), row};
        }
    }
    if (after.cursorVisible)
        bytes += MoveCost(cursor, after.cursor);
    change.floorBytes = bytes;
    return change;
}

} // namespace bench
