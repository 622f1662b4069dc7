// SVG rendering of a decoded screen, PNG through rsvg-convert.
#include "harness/Screenshot.h"

#include "harness/Command.h"
#include "harness/Paths.h"

#include <cstdio>
#include <fstream>
#include <stdexcept>

namespace e2e {

namespace {

constexpr int kCellW = 9, kCellH = 18, kBaseline = 14;

std::string Hex(Rgb c) {
    char buf[8];
    std::snprintf(buf, sizeof buf, "#%02x%02x%02x", c.r, c.g, c.b);
    return buf;
}

std::string Escape(const std::string& s) {
    std::string out;
    for (char c : s) {
        switch (c) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '"':
            out += "&quot;";
            break;
        default:
            out.push_back(c);
        }
    }
    return out;
}

} // namespace

std::string ScreenToSvg(const Screen& screen) {
    const int w = screen.Cols() * kCellW, h = screen.Rows() * kCellH;
    std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + std::to_string(w) +
                      "\" height=\"" + std::to_string(h) +
                      "\" font-family=\"DejaVu Sans Mono, monospace\" font-size=\"15\"" +
                      " xml:space=\"preserve\">\n";
    for (int row = 0; row < screen.Rows(); ++row) {
        for (int col = 0; col < screen.Cols(); ++col) {
            Cell cell = screen.CellAt(col, row);
            const int x = col * kCellW, y = row * kCellH, cw = cell.width * kCellW;
            svg += "<rect x=\"" + std::to_string(x) + "\" y=\"" + std::to_string(y) + "\" width=\"" +
                   std::to_string(cw) + "\" height=\"" + std::to_string(kCellH) + "\" fill=\"" +
                   Hex(screen.Resolve(cell.bg)) + "\"/>";
            // Blank cells still get their element, so that every cell can be looked up by position.
            svg += "<text x=\"" + std::to_string(x) + "\" y=\"" + std::to_string(y + kBaseline) +
                   "\" fill=\"" + Hex(screen.Resolve(cell.fg)) + "\"" +
                   (cell.bold ? " font-weight=\"bold\"" : "") +
                   (cell.underline ? " text-decoration=\"underline\"" : "") + ">" + Escape(cell.text) +
                   "</text>\n";
            if (cell.width > 1)
                col += cell.width - 1;
        }
    }
    svg += "</svg>\n";
    return svg;
}

ScreenshotFiles SaveScreenshot(const Screen& screen, const std::string& name) {
    ScreenshotFiles files;
    const std::string base = OutDir() + "/" + name;
    files.svg = base + ".svg";
    {
        std::ofstream out(files.svg, std::ios::trunc);
        out << ScreenToSvg(screen);
        if (!out)
            throw std::runtime_error("cannot write " + files.svg);
    }
    if (RunCommand({"rsvg-convert", "-o", base + ".png", files.svg}).status == 0)
        files.png = base + ".png";
    return files;
}

} // namespace e2e
