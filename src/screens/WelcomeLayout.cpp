// Welcome screen geometry: the top half takes the lower half of an odd line count, the bottom half the rest.
#include "screens/WelcomeLayout.h"

#include <algorithm>

namespace Tarn {

namespace {

// Rows that the longest warning wraps onto in its box at 80 columns.
constexpr int kWarningLines = 3;
// The row under the management box, where the warning moves up to when it has too little room at row 9.
constexpr int kWarningHighestRow = 8;

// A box keeps its place but ends above `limit`, the first row it must leave alone (a half's border, the
// footer): on a short terminal the window would otherwise not fit, or the boxes would cover the footer.
WelcomeRect Above(WelcomeRect r, int limit) {
    r.height = std::clamp(limit - r.row, 0, r.height);
    return r;
}

} // namespace

WelcomeGeometry ComputeWelcomeGeometry(int columns, int lines) {
    WelcomeGeometry g;
    const int topHeight = lines / 2;
    const int bottomHeight = lines - topHeight; // (lines + 1) / 2 for odd counts
    const int topBorder = topHeight - 1;
    const int footerRow = bottomHeight - 2;
    g.top = {0, 0, columns, topHeight};
    g.bottom = {0, topHeight, columns, bottomHeight};
    const int textWidth = columns - 16;
    g.header = Above({8, 5, textWidth, 1}, topBorder);
    g.hardware = Above({8, 7, textWidth, 1}, topBorder);
    g.cpuMemory = Above({8, 9, textWidth, 2}, topBorder);
    g.management = Above({8, 1, textWidth, 7}, footerRow);
    // At 25 lines (a Linux console) row 9 leaves two rows above the footer: a whole warning needs three.
    WelcomeRect warning{16, 9, columns - 32, 6};
    if (footerRow - warning.row < kWarningLines)
        warning.row = std::max(kWarningHighestRow, footerRow - kWarningLines);
    g.warning = Above(warning, footerRow);
    g.footer = {2, footerRow, columns - 4, 1};
    g.message = {2, 2, columns - 4, lines - 4};
    return g;
}

WelcomePalette WelcomeHalfColors(bool alternate) {
    if (alternate)
        return {{0, 7}, {2, 0}};
    return {{6, 7}, {3, 0}};
}

} // namespace Tarn
