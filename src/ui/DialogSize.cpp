// Sizing of the dialogs whose size follows their text: the widest line of markup and the wrapped line count,
// measured by the same layout that draws the text.
#include "ui/DialogSize.h"

#include "ui/Markup.h"

#include <algorithm>
#include <string_view>

namespace Tarn {
namespace {

constexpr int kMinWidth = 40;
constexpr int kMaxWidth = 72;        // leaves a margin on an 80-column terminal
constexpr int kTextMargin = 6;       // title and body areas are 6 columns narrower than the pane
constexpr int kTopPaneFrame = 4;     // border, title, blank line above the body, blank line below it
constexpr int kBottomPaneHeight = 3; // blank row, footer, border: too low for a content pane
constexpr int kUnlimitedLines = 1000;
constexpr int kTitlePaneHeight = 2; // border and title

// Cells of the widest line, before any wrapping.
int WidestLine(std::string_view markup) {
    int widest = 0;
    size_t start = 0;
    while (start <= markup.size()) {
        size_t end = markup.find('\n', start);
        if (end == std::string_view::npos) {
            end = markup.size();
        }
        widest = std::max(widest, Markup::VisibleLength(markup.substr(start, end - start)));
        start = end + 1;
    }
    return widest;
}

} // namespace

DialogSize MessageDialogSize(const std::string& title, const std::string& body, int screenColumns,
                             int screenRows) {
    const int needed =
        std::max({Markup::VisibleLength(kEnterOkFooter), Markup::VisibleLength(title), WidestLine(body)}) +
        kTextMargin;
    const int cap = screenColumns > 0 ? std::min(kMaxWidth, screenColumns) : kMaxWidth;
    const int width = std::min(std::max(needed, kMinWidth), cap);

    int bodyLines =
        static_cast<int>(Markup::Layout(body, std::max(width - kTextMargin, 1), kUnlimitedLines).size());
    if (screenRows > 0) {
        // A body taller than the screen is cut rather than letting curses refuse the whole dialog.
        bodyLines = std::min(bodyLines, screenRows - kTopPaneFrame - kBottomPaneHeight);
    }
    bodyLines = std::max(bodyLines, 1);
    const int splitRow = bodyLines + kTopPaneFrame;
    return {width, splitRow + kBottomPaneHeight, splitRow};
}

DialogSize FitToScreen(DialogSize wanted, int screenColumns, int screenRows) {
    DialogSize fitted = wanted;
    fitted.width = std::min(wanted.width, std::max(screenColumns, 0));
    fitted.height = std::min(wanted.height, std::max(screenRows, 0));
    const int excess = wanted.height - fitted.height;
    fitted.splitRow = std::max(wanted.splitRow - excess, std::min(wanted.splitRow, kTitlePaneHeight));
    fitted.splitRow = std::min(fitted.splitRow, fitted.height);
    return fitted;
}

} // namespace Tarn
