// Screen pictures for review and documentation: an SVG with one rectangle and one text element per cell in
// the program's palette colours, and a PNG rendered from it by rsvg-convert.
#pragma once

#include "harness/Screen.h"

#include <string>

namespace e2e {

std::string ScreenToSvg(const Screen& screen);

struct ScreenshotFiles {
    std::string svg;
    std::string png; // empty when rsvg-convert is missing or failed
};

// Writes OutDir()/NAME.svg and OutDir()/NAME.png.
ScreenshotFiles SaveScreenshot(const Screen& screen, const std::string& name);

} // namespace e2e
