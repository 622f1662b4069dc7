// Colour set-up (redefined palette, one pair per combination) and the attribute of a combination.
#include "core/Colors.h"

#include "core/EventLoop.h"

#include <algorithm>
#include <curses.h>

namespace Tarn {
namespace {
bool gMonochrome = false;
} // namespace

int ColorPairNumber(int background, int foreground, int colors) {
    // A curses attribute holds 8 bits of pair number; on terminals with more than 16 colours the stride is
    // capped so that all 36 pairs stay below 256 and keep their background.
    int stride = std::min(colors, 16);
    return foreground + stride * background + 1;
}

void InitColors() {
    use_default_colors();
    if (!can_change_color()) {
        gMonochrome = true;
        return;
    }
    gMonochrome = false;
    init_color(3, 1000, 800, 0);     // amber
    init_color(6, 334, 334, 334);    // dark grey
    init_color(2, 667, 667, 667);    // grey
    init_color(7, 1000, 1000, 1000); // white
    init_color(1, 1000, 0, 0);       // red
    for (int background : kConsoleColors)
        for (int foreground : kConsoleColors)
            init_pair(static_cast<short>(ColorPairNumber(background, foreground, COLORS)),
                      static_cast<short>(foreground), static_cast<short>(background));
}

unsigned long ColorAttr(int background, int foreground) {
    if (gMonochrome)
        return (background == 0 || background == 6) ? A_STANDOUT : A_NORMAL;
    return COLOR_PAIR(ColorPairNumber(background, foreground, COLORS));
}

bool Monochrome() {
    return gMonochrome;
}

} // namespace Tarn
