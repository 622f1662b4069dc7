// Welcome screen geometry: the top half takes the lower half of an odd line count, the bottom half the rest.
#include "screens/WelcomeLayout.h"

namespace Tarn {

namespace {

// A box keeps its place but ends above the border row of a half that is too short for it: on a short
// terminal the window would otherwise not fit and not show at all.
WelcomeRect InsideHalf(WelcomeRect r, int halfHeight) {
    const int room = halfHeight - 1 - r.row;
    if (r.height > room)
        r.height = room > 0 ? room : 0;
    return r;
}

} // namespace

WelcomeGeometry ComputeWelcomeGeometry(int columns, int lines) {
    WelcomeGeometry g;
    const int topHeight = lines / 2;
    const int bottomHeight = lines - topHeight; // (lines + 1) / 2 for odd counts
    g.top = {0, 0, columns, topHeight};
    g.bottom = {0, topHeight, columns, bottomHeight};
    const int textWidth = columns - 16;
    g.header = InsideHalf({8, 5, textWidth, 1}, topHeight);
    g.hardware = InsideHalf({8, 7, textWidth, 1}, topHeight);
    g.cpuMemory = InsideHalf({8, 9, textWidth, 2}, topHeight);
    g.management = InsideHalf({8, 1, textWidth, 7}, bottomHeight);
    g.warning = InsideHalf({16, 9, columns - 32, 6}, bottomHeight);
    g.footer = {2, bottomHeight - 2, columns - 4, 1};
    g.message = {2, 2, columns - 4, lines - 4};
    return g;
}

WelcomePalette WelcomeHalfColors(bool alternate) {
    if (alternate)
        return {{0, 7}, {2, 0}};
    return {{6, 7}, {3, 0}};
}

} // namespace Tarn
