// Notification, message and information dialogs, and the sizing of the two that have no fixed size.
#include "ui/StandardDialogs.h"

#include "core/EventLoop.h"
#include "ui/StringFactory.h"
#include "ui/TextArea.h"

#include <curses.h>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <utility>
#include <vector>

namespace Tarn {
namespace {

constexpr int kMinWidth = 40;
constexpr int kMaxWidth = 72;        // leaves a margin on an 80-column terminal
constexpr int kTextMargin = 6;       // title and body areas are 6 columns narrower than the pane
constexpr int kTopPaneFrame = 4;     // border, title, blank line above the body, blank line below it
constexpr int kBottomPaneHeight = 3; // footer row between two border rows: no content pane

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

int WaitForEnter(Window* window) {
    while (GetKey(window, true) != 10) {
    }
    return 1;
}

namespace {

DialogSize SizeOnScreen(const std::string& title, const std::string& body) {
    return MessageDialogSize(title, body, COLS, LINES);
}

std::string CatalogueText(unsigned id) {
    return StringFactory::Get("en_US")->GetString(id);
}

} // namespace

NotificationDialog::NotificationDialog(Frame* parentFrame, std::string title, std::string body)
    : NotificationDialog(parentFrame, SizeOnScreen(title, body), title, body) {}

NotificationDialog::NotificationDialog(Frame* parentFrame, DialogSize size, std::string title,
                                       std::string body)
    : Dialog(parentFrame, size.width, size.height, size.splitRow), titleText_(std::move(title)),
      bodyText_(std::move(body)) {
    // Set now so that the first draw by RunWindow already shows them.
    SetTitle(titleText_);
    SetBody(bodyText_);
    SetFooter(kEnterOkFooter);
}

int NotificationDialog::Foreground() {
    return WaitForEnter(this);
}

MessageDialog::MessageDialog(Frame* parentFrame, unsigned titleId, std::string body)
    : MessageDialog(parentFrame, SizeOnScreen(CatalogueText(titleId), body), titleId, body) {}

MessageDialog::MessageDialog(Frame* parentFrame, DialogSize size, unsigned titleId, std::string body)
    : Dialog(parentFrame, size.width, size.height, size.splitRow), titleId_(titleId),
      bodyText_(std::move(body)) {
    SetTitle(Text(titleId_));
    SetBody(bodyText_);
    SetFooter(kEnterOkFooter);
}

int MessageDialog::Foreground() {
    return WaitForEnter(this);
}

InfoDialog::InfoDialog(Frame* parentFrame, const std::string& information, const std::string& title,
                       const std::string& body, const std::string& footer)
    : Dialog(parentFrame, kWidth, kHeight, kSplitRow) {
    SetTitle(title);
    SetBody(body);
    SetFooter(footer);
    if (content_ != nullptr) {
        information_ = content_->AddChild<TextArea>(0, 0, content_->Width(), content_->Height(),
                                                    content_->Foreground(), content_->Background());
        information_->SetText(information);
    }
}

int InfoDialog::Foreground() {
    return WaitForEnter(this);
}

} // namespace Tarn
