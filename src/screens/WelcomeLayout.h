// Where the welcome screen's parts sit for a given terminal size, and the colours of its two halves. Pure, so
// that the geometry is checked without a terminal.
#pragma once

namespace Tarn {

struct WelcomeRect {
    int column = 0, row = 0, width = 0, height = 0;
    bool operator==(const WelcomeRect&) const = default;
};

struct WelcomeGeometry {
    // Relative to the screen.
    WelcomeRect top, bottom;
    // Relative to the top half.
    WelcomeRect header, hardware, cpuMemory;
    // Relative to the bottom half.
    WelcomeRect management, warning, footer;
    // The custom-message layout's one text area, relative to the screen.
    WelcomeRect message;
};

WelcomeGeometry ComputeWelcomeGeometry(int columns, int lines);

// Background and foreground colour numbers of one half.
struct HalfColors {
    int background, foreground;
};

struct WelcomePalette {
    HalfColors top, bottom;
};

// Dark grey over amber; the alternate palette (F4) trades them for black over grey, for screens on which
// the amber is hard to read.
WelcomePalette WelcomeHalfColors(bool alternate);

} // namespace Tarn
