// The window tree on top of curses: construction of top-level and child windows, drawing with the inactive
// (dimmed) look, the process-wide cursor state, destruction of subtrees, and the Dialog and RootWindow
// layouts. Curses may refuse a window (for example one that does not fit inside its parent); every operation
// then works on the object tree alone and skips the curses calls.
#include "ui/Window.h"

#include "core/Colors.h"
#include "core/EventLoop.h"
#include "ui/DialogSize.h"
#include "ui/ScreenUpdate.h"
#include "ui/StringFactory.h"
#include "ui/TextArea.h"

#include <algorithm>
#include <curses.h>

namespace Tarn {
namespace {

// Where the terminal cursor is and whether it shows; kept in step by ShowCursor and MoveCursor.
struct CursorState {
    int visible = 0;
    int column = 0;
    int row = 0;
};
CursorState gCursor;

int gUpdateDepth = 0;

// Gives the window a new background and recolours every cell it holds, keeping the characters (borders and
// printed text stay). wbkgd alone leaves cells that already carry a colour pair as they were, and wchgat over
// a whole line would drop the alternate character set of the border, so runs of equal ACS state are changed.
void Paint(WINDOW* window, int background, int foreground) {
    if (window == nullptr)
        return;
    const attr_t attr = static_cast<attr_t>(ColorAttr(background, foreground));
    wbkgdset(window, static_cast<chtype>(attr) | ' ');
    const short pair = static_cast<short>(PAIR_NUMBER(attr));
    const attr_t others = attr & A_ATTRIBUTES & ~(A_COLOR | A_ALTCHARSET);
    const int width = getmaxx(window);
    for (int row = 0; row < getmaxy(window); ++row) {
        int start = 0;
        while (start < width) {
            const chtype acs = mvwinch(window, row, start) & A_ALTCHARSET;
            int end = start + 1;
            while (end < width && (mvwinch(window, row, end) & A_ALTCHARSET) == acs)
                ++end;
            mvwchgat(window, row, start, end - start, others | static_cast<attr_t>(acs), pair, nullptr);
            start = end;
        }
    }
}

// Sends the staged contents to the terminal. The cursor goes to the recorded position when it is visible;
// a hidden cursor is left where it is, which saves the bytes of moving it.
void Flush() {
    if (newscr == nullptr)
        return; // curses not started
    if (gCursor.visible) {
        leaveok(newscr, FALSE);
        wmove(newscr, gCursor.row, gCursor.column);
    } else {
        leaveok(newscr, TRUE);
    }
    doupdate();
}

// Stages `frame` and every frame under it, from the outermost up.
void StageFrames(Frame* frame) {
    if (frame == nullptr)
        return;
    StageFrames(frame->ParentFrame());
    ScreenUpdate::Stage(frame->Curses());
}

} // namespace

ScreenUpdate::ScreenUpdate() {
    ++gUpdateDepth;
}

ScreenUpdate::~ScreenUpdate() {
    if (--gUpdateDepth == 0)
        Flush();
}

void ScreenUpdate::Stage(WINDOW* window) {
    if (window == nullptr)
        return;
    touchwin(window);
    wnoutrefresh(window);
}

Window::Window(int column, int row, int width, int height, int background, int foreground)
    : column_(column), row_(row), width_(width), height_(height),
      background_(background == -1 ? 0 : background), foreground_(foreground == -1 ? 7 : foreground) {
    if (width > 0 && height > 0)
        win_ = newwin(height, width, row, column);
    // Curses marks a new full-screen window for clearing, which would send the whole screen again when it
    // first shows: what it covers is known, so only the cells that differ need to go out.
    if (win_ != nullptr)
        clearok(win_, FALSE);
}

Window::Window(Window* parent, int column, int row, int width, int height, int background, int foreground)
    : parent_(parent), column_(parent->column_ + column), row_(parent->row_ + row), width_(width),
      height_(height), background_(background == -1 ? parent->background_ : background),
      foreground_(foreground == -1 ? parent->foreground_ : foreground) {
    // A size of 0 would mean "up to the parent's edge" to curses; such a window is not wanted.
    if (parent->win_ != nullptr && width > 0 && height > 0)
        win_ = subwin(parent->win_, height, width, row_, column_);
    parent->children_.push_back(this);
}

Window::~Window() {
    // Each child takes itself out of children_ as it goes; curses refuses to delete a window with subwindows,
    // so they must all be gone before delwin.
    while (!children_.empty())
        delete children_.back();
    if (parent_ != nullptr)
        parent_->Detach(this);
    if (win_ != nullptr)
        delwin(win_);
}

void Window::Detach(Window* child) {
    children_.erase(std::remove(children_.begin(), children_.end(), child), children_.end());
}

void Window::Draw(bool active) {
    ScreenUpdate update;
    if (active) {
        active_ = true;
        Paint(win_, background_, foreground_);
        for (Window* child : children_)
            child->Draw(true);
        ScreenUpdate::Stage(win_);
        // A window shown for the first time keeps the cursor as its owner set it (a form shows it in the
        // focused field); one that was dimmed gets back what it had.
        if (IsTopLevel() && cursorSaved_) {
            cursorSaved_ = false;
            ShowCursor(savedCursorVisible_ != 0);
            if (savedCursorVisible_ != 0) {
                gCursor.column = savedCursorColumn_;
                gCursor.row = savedCursorRow_;
                if (stdscr != nullptr)
                    move(savedCursorRow_, savedCursorColumn_);
            }
        }
    } else {
        // Save only on the way from active to inactive: a second dimming must not save the hidden cursor.
        if (IsTopLevel() && active_) {
            cursorSaved_ = true;
            savedCursorVisible_ = gCursor.visible;
            savedCursorColumn_ = gCursor.column;
            savedCursorRow_ = gCursor.row;
            ShowCursor(false);
        }
        active_ = false;
        Paint(win_, Color::ScreenBackground, Color::DimmedText);
        for (Window* child : children_)
            child->Draw(false);
        ScreenUpdate::Stage(win_);
    }
    // Keys typed before the window showed must not reach it. Once per frame is enough: panes are only ever
    // drawn as part of their frame, and a flush per pane would be a system call each.
    if (IsTopLevel() && stdscr != nullptr)
        flushinp();
}

void Window::Refresh() {
    ScreenUpdate update;
    if (win_ != nullptr)
        wtouchln(win_, 0, height_, 1);
    ScreenUpdate::Stage(win_);
}

void Window::Redraw() {
    if (win_ != nullptr)
        wredrawln(win_, 0, height_);
    for (Window* child : children_)
        child->Redraw();
}

void Window::Print(int column, int row, const std::string& text) {
    if (win_ == nullptr)
        return;
    wmove(win_, row, column);
    waddnstr(win_, text.c_str(), -1);
}

void Window::SetColors(int background, int foreground) {
    background_ = background == -1 && parent_ != nullptr ? parent_->background_ : background;
    foreground_ = foreground == -1 && parent_ != nullptr ? parent_->foreground_ : foreground;
    if (active_)
        Paint(win_, background_, foreground_);
    for (Window* child : children_)
        child->SetColors(background, foreground);
}

void Window::Erase() {
    if (win_ != nullptr)
        werase(win_);
}

void Window::DrawBorder() {
    if (win_ != nullptr)
        box(win_, 0, 0);
}

void Window::MoveCursor(int column, int row) {
    gCursor.column = column_ + column;
    gCursor.row = row_ + row;
    if (stdscr != nullptr)
        move(gCursor.row, gCursor.column);
}

void Window::ShowCursor(bool visible) {
    gCursor.visible = visible ? 1 : 0;
    if (stdscr == nullptr)
        return;
    curs_set(gCursor.visible);
    // A cursor that appears must appear where it belongs, not where the last output ended.
    if (visible && gUpdateDepth == 0)
        Flush();
}

bool Window::CursorVisible() {
    return gCursor.visible != 0;
}

Frame::Frame(Frame* parentFrame, int column, int row, int width, int height, int background, int foreground)
    : Window(column, row, width, height, background, foreground), parentFrame_(parentFrame),
      strings_(StringFactory::Get("en_US")) {}

const char* Frame::Text(unsigned id) const {
    return strings_ != nullptr ? strings_->GetString(id) : "";
}

Dialog::Dialog(Frame* parentFrame, int width, int height, int splitRow)
    : Dialog(parentFrame, FitToScreen({width, height, splitRow}, COLS, LINES)) {}

Dialog::Dialog(Frame* parentFrame, const DialogSize& fitted)
    : Frame(parentFrame, (COLS - fitted.width) / 2, (LINES - fitted.height) / 2, fitted.width, fitted.height,
            Color::ScreenBackground, Color::Text) {
    const int width = fitted.width, height = fitted.height, splitRow = fitted.splitRow;
    if (win_ != nullptr)
        werase(win_);
    top_ = new Window(this, 0, 0, width, splitRow, Color::PaneBackground, Color::Text);
    bottom_ = new Window(this, 0, splitRow, width, height - splitRow, Color::ContentBackground, Color::Text);
    if (win_ != nullptr)
        box(win_, 0, 0);
    const int topWidth = top_->Width();
    title_ = new TextArea(top_, 3, 1, topWidth - 6, 1, Color::White, -1);
    body_ = new TextArea(top_, 3, 3, topWidth - 6, splitRow - 4, Color::LightGrey, -1);
    const int bottomWidth = bottom_->Width();
    const int bottomHeight = bottom_->Height();
    footer_ = new TextArea(bottom_, 2, bottomHeight - 2, bottomWidth - 4, 1, Color::Black, -1);
    if (bottomHeight - 4 >= 1)
        content_ = new Window(bottom_, 2, 1, bottomWidth - 4, bottomHeight - 4, Color::ContentBackground,
                              Color::DarkGrey);
}

void Dialog::Draw(bool active) {
    ScreenUpdate update;
    // The frames underneath go out in the same update, the outermost first, so that whatever a closed dialog
    // left around this one is covered again, also where it reached past the frame just under this one.
    if (active)
        StageFrames(parentFrame_);
    Window::Draw(active);
}

void Dialog::SetTitle(const std::string& markup) {
    title_->SetText(markup);
}
void Dialog::SetBody(const std::string& markup) {
    body_->SetText(markup);
}
void Dialog::SetFooter(const std::string& markup) {
    footer_->SetText(markup);
}

RootWindow::RootWindow(Frame* parentFrame, int widestLabel)
    : Frame(parentFrame, 0, 0, COLS, LINES, Color::ScreenBackground, Color::Text) {
    if (win_ != nullptr)
        werase(win_);
    // Left: the list of tasks on amber inside a dark frame; right: title, description and key hints.
    // Around a name in the left pane: the pane's margins (2 + 2), the list row's (1 + 1) and the scroll bar.
    constexpr int kListChrome = 7;
    const int leftWidth = std::max({width_ * 2 / 5, std::min(widestLabel + kListChrome, width_ * 3 / 5), 0});
    left_ = new Window(this, 0, 0, leftWidth, height_, Color::PaneBackground, Color::Text);
    heading_ = new TextArea(left_, 2, 0, leftWidth - 4, 1, Color::White, -1);
    list_ = new Window(left_, 2, 1, leftWidth - 4, height_ - 2, Color::ContentBackground, Color::ItemText);
    right_ =
        new Window(this, leftWidth, 0, width_ - leftWidth, height_, Color::ScreenBackground, Color::Text);
    // The left pane's dark margin already parts the texts from the list: one blank column before them, so
    // that at 80 columns the longest names fit both in the list and as the title beside it.
    const int textWidth = right_->Width() - 3;
    // Two rows: a title too long for one at 80 columns wraps onto the blank row under it.
    title_ = new TextArea(right_, 1, 1, textWidth, 2, Color::White, -1);
    body_ = new TextArea(right_, 1, 3, textWidth, height_ - 6, Color::LightGrey, -1);
    footer_ = new TextArea(right_, 1, height_ - 2, textWidth, 1, Color::LightGrey, -1);
}

void RootWindow::SetHeading(const std::string& markup) {
    heading_->SetText(markup);
}
void RootWindow::SetTitle(const std::string& markup) {
    title_->SetText(markup);
}
void RootWindow::SetBody(const std::string& markup) {
    body_->SetText(markup);
}
void RootWindow::SetFooter(const std::string& markup) {
    footer_->SetText(markup);
}

} // namespace Tarn
