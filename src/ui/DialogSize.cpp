// Sizing of the dialogs whose size follows their text: visible width of markup and word-wrapped line count.
#include "ui/DialogSize.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <vector>

namespace Tarn {
namespace {

constexpr int kMinWidth = 40;
constexpr int kMaxWidth = 72;        // leaves a margin on an 80-column terminal
constexpr int kTextMargin = 6;       // title and body areas are 6 columns narrower than the pane
constexpr int kTopPaneFrame = 4;     // border, title, blank line above the body, blank line below it
constexpr int kBottomPaneHeight = 3; // blank row, footer, border: too low for a content pane

// The text that markup shows: a tag runs from '{' to the next '}', and an unclosed one swallows the rest.
std::string VisibleText(const std::string& markup) {
    std::string out;
    for (size_t i = 0; i < markup.size(); ++i) {
        if (markup[i] != '{') {
            out += markup[i];
            continue;
        }
        const size_t close = markup.find('}', i);
        if (close == std::string::npos) {
            break;
        }
        i = close;
    }
    return out;
}

std::vector<std::string> SplitLines(const std::string& text) {
    std::vector<std::string> lines(1);
    for (char c : text) {
        if (c == '\n') {
            lines.emplace_back();
        } else {
            lines.back() += c;
        }
    }
    return lines;
}

// Display lines of one paragraph broken between words at `width`; a word wider than a line takes as many
// lines as it needs.
int WrappedLines(const std::string& paragraph, int width) {
    int lines = 1;
    int column = 0;
    size_t i = 0;
    while (i < paragraph.size()) {
        if (std::isspace(static_cast<unsigned char>(paragraph[i]))) {
            ++i;
            continue;
        }
        size_t end = i;
        while (end < paragraph.size() && !std::isspace(static_cast<unsigned char>(paragraph[end]))) {
            ++end;
        }
        int word = static_cast<int>(end - i);
        if (column > 0 && column + 1 + word <= width) {
            column += 1 + word;
        } else {
            if (column > 0) {
                ++lines;
            }
            lines += (word - 1) / width;
            column = (word - 1) % width + 1;
        }
        i = end;
    }
    return lines;
}

} // namespace

DialogSize MessageDialogSize(const std::string& title, const std::string& body, int screenColumns,
                             int screenRows) {
    const std::vector<std::string> paragraphs = SplitLines(VisibleText(body));
    size_t longest = VisibleText(kEnterOkFooter).size();
    longest = std::max(longest, VisibleText(title).size());
    for (const std::string& p : paragraphs) {
        longest = std::max(longest, p.size());
    }
    const int cap = screenColumns > 0 ? std::min(kMaxWidth, screenColumns) : kMaxWidth;
    const int width = std::min(std::max(static_cast<int>(longest) + kTextMargin, kMinWidth), cap);

    int bodyLines = 0;
    for (const std::string& p : paragraphs) {
        bodyLines += WrappedLines(p, std::max(width - kTextMargin, 1));
    }
    if (screenRows > 0) {
        // A body taller than the screen is cut rather than letting curses refuse the whole dialog.
        bodyLines = std::min(bodyLines, screenRows - kTopPaneFrame - kBottomPaneHeight);
    }
    bodyLines = std::max(bodyLines, 1);
    const int splitRow = bodyLines + kTopPaneFrame;
    return {width, splitRow + kBottomPaneHeight, splitRow};
}

} // namespace Tarn
