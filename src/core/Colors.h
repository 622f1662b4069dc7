// Colour-pair numbering shared by the colour set-up and ColorAttr.
#pragma once

namespace Tarn {

// Colour numbers of the console's palette (redefined at start-up where the terminal allows it).
namespace Color {
inline constexpr int Black = 0;
inline constexpr int Red = 1;
inline constexpr int LightGrey = 2;
inline constexpr int Amber = 3;
inline constexpr int DarkGrey = 6;
inline constexpr int White = 7;

// Roles: what each colour is used for on screen.
inline constexpr int ScreenBackground = Black;
inline constexpr int Text = White;
inline constexpr int PaneBackground = DarkGrey;   // a dialog's top pane, the menu's left pane
inline constexpr int ContentBackground = Amber;   // a dialog's bottom pane and its items
inline constexpr int ItemText = Black;            // an item row without the focus
inline constexpr int DisabledItemText = DarkGrey; // an item that cannot be chosen
inline constexpr int FocusBackground = Black;     // the focus bar: white on black
inline constexpr int FocusText = White;
inline constexpr int DimmedText = DarkGrey; // every window behind the current one
} // namespace Color

// The colours the console uses, in pair-definition order: white, black, amber, grey, dark grey, red.
inline constexpr int kConsoleColors[] = {7, 0, 3, 2, 6, 1};

// Pair number of a background/foreground combination on a terminal with `colors` colours.
int ColorPairNumber(int background, int foreground, int colors);

} // namespace Tarn
