// Colour-pair numbering shared by the colour set-up and ColorAttr.
#pragma once

namespace Tarn {

// The colours the console uses, in pair-definition order: white, black, amber, grey, dark grey, red.
inline constexpr int kConsoleColors[] = {7, 0, 3, 2, 6, 1};

// Pair number of a background/foreground combination on a terminal with `colors` colours.
int ColorPairNumber(int background, int foreground, int colors);

} // namespace Tarn
