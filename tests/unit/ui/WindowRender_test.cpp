// The window tree, text areas and item lists drawn on an off-screen 80x24 terminal, read back from what
// curses believes the terminal shows (curscr): geometry, colours, dimming, subtree deletion, refused windows,
// and the bytes a focus move or a typed character costs.
#include "core/EventLoop.h"
#include "ui/InputItem.h"
#include "ui/Item.h"
#include "ui/ItemList.h"
#include "ui/TextArea.h"
#include "ui/Window.h"

#include <gtest/gtest.h>

#include <curses.h>
#include <fcntl.h>
#include <pty.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <clocale>
#include <cstdio>
#include <cwchar>
#include <regex>
#include <string>

namespace Tarn {
namespace {

class WindowRendering : public ::testing::Test {
protected:
    void SetUp() override {
        std::setlocale(LC_ALL, "C.UTF-8");
        out_ = std::tmpfile();
        in_ = std::fopen("/dev/null", "r");
        screen_ = newterm(term_, out_, in_);
        ASSERT_NE(screen_, nullptr);
        set_term(screen_);
        resizeterm(24, 80);
        start_color();
        InitColors();
        refresh();
    }

    void TearDown() override {
        Window::ShowCursor(false);
        if (screen_ != nullptr) {
            endwin();
            delscreen(screen_);
        }
        std::fclose(out_);
        std::fclose(in_);
    }

    // The text the terminal shows at (row, column), `count` cells.
    static std::string Screen(int row, int column, int count) {
        std::string text;
        for (int c = column; c < column + count; ++c) {
            cchar_t cell;
            mvwin_wch(curscr, row, c, &cell);
            wchar_t chars[CCHARW_MAX + 1] = {};
            attr_t attrs = 0;
            short pair = 0;
            getcchar(&cell, chars, &attrs, &pair, nullptr);
            char bytes[MB_LEN_MAX] = {};
            std::mbstate_t state{};
            size_t n = std::wcrtomb(bytes, chars[0], &state);
            text.append(bytes, n == static_cast<size_t>(-1) ? 0 : n);
        }
        return text;
    }

    static int PairOnScreen(int row, int column) {
        cchar_t cell;
        mvwin_wch(curscr, row, column, &cell);
        wchar_t chars[CCHARW_MAX + 1] = {};
        attr_t attrs = 0;
        short pair = 0;
        getcchar(&cell, chars, &attrs, &pair, nullptr);
        return pair;
    }

    static int Pair(int background, int foreground) {
        return static_cast<int>(PAIR_NUMBER(static_cast<int>(ColorAttr(background, foreground))));
    }

    long BytesWritten() const {
        std::fflush(out_);
        struct stat st {};
        fstat(fileno(out_), &st);
        return static_cast<long>(st.st_size);
    }

    // What was sent to the terminal since byte `from`, escape characters shown as "^[".
    std::string OutputSince(long from) const {
        std::string bytes(static_cast<size_t>(BytesWritten() - from), '\0');
        if (pread(fileno(out_), bytes.data(), bytes.size(), from) < 0)
            return {};
        std::string shown;
        for (char ch : bytes)
            shown += ch == 27 ? std::string("^[") : std::string(1, ch);
        return shown;
    }

    const char* term_ = "xterm-256color";
    FILE* out_ = nullptr;
    FILE* in_ = nullptr;
    SCREEN* screen_ = nullptr;
};

// A dialog with nothing to run, for drawing only.
struct TestDialog : Dialog {
    using Dialog::Dialog;
    int Foreground() override { return 0; }
};

struct Box {
    const char* name;
    Window* window;
    int column, row, width, height;
};

TEST_F(WindowRendering, DialogGeometry) {
    TestDialog dialog(nullptr, 40, 12, 7);
    const Box boxes[] = {
        {"frame", &dialog, 20, 6, 40, 12},
        {"top pane", dialog.TopPane(), 20, 6, 40, 7},
        {"bottom pane", dialog.BottomPane(), 20, 13, 40, 5},
        {"title", dialog.TitleArea(), 23, 7, 34, 1},
        {"body", dialog.BodyArea(), 23, 9, 34, 3},
        {"footer", dialog.FooterArea(), 22, 16, 36, 1},
        {"content", dialog.ContentPane(), 22, 14, 36, 1},
    };
    for (const Box& b : boxes) {
        ASSERT_NE(b.window, nullptr) << b.name;
        EXPECT_EQ(b.window->Column(), b.column) << b.name;
        EXPECT_EQ(b.window->Row(), b.row) << b.name;
        EXPECT_EQ(b.window->Width(), b.width) << b.name;
        EXPECT_EQ(b.window->Height(), b.height) << b.name;
        EXPECT_NE(b.window->Curses(), nullptr) << b.name;
    }
    EXPECT_EQ(dialog.TitleArea()->Foreground(), 7);
    EXPECT_EQ(dialog.BodyArea()->Foreground(), 2);
    EXPECT_EQ(dialog.FooterArea()->Foreground(), 0);
    EXPECT_EQ(dialog.ContentPane()->Background(), 3);
    EXPECT_EQ(dialog.ContentPane()->Foreground(), 6);

    EXPECT_EQ(TestDialog(nullptr, 40, 11, 7).ContentPane(), nullptr) << "bottom pane of 4 rows";
}

TEST_F(WindowRendering, RootWindowCoversTheScreenWithTwoPanes) {
    struct Menu : RootWindow {
        using RootWindow::RootWindow;
        int Foreground() override { return 0; }
    } menu(nullptr);
    EXPECT_EQ(menu.Width(), 80);
    EXPECT_EQ(menu.Height(), 24);
    Window* left = menu.LeftPane();
    Window* right = menu.RightPane();
    EXPECT_EQ(left->Column() + left->Width(), right->Column());
    EXPECT_EQ(right->Column() + right->Width(), 80);
    Window* list = menu.ListPane();
    EXPECT_GE(list->Column(), left->Column());
    EXPECT_LE(list->Column() + list->Width(), left->Column() + left->Width());
    EXPECT_NE(list->Curses(), nullptr);
    menu.SetTitle("Configure Password");
    menu.SetFooter("{align:right}<Esc> Log Out{/align}");
    menu.Draw(true);
    TextArea* title = menu.TitleArea();
    EXPECT_EQ(Screen(title->Row(), title->Column(), 18), "Configure Password");
    TextArea* footer = menu.FooterArea();
    EXPECT_EQ(Screen(footer->Row(), footer->Column() + footer->Width() - 13, 13), "<Esc> Log Out");
}

TEST_F(WindowRendering, DialogShowsItsTextsInItsColours) {
    TestDialog dialog(nullptr, 40, 12, 7);
    dialog.SetTitle("Title");
    dialog.SetBody("Body text");
    dialog.SetFooter("{align:right}{color:black}<Enter>{/color} {color:dark-grey}OK{/color}{/align}");
    dialog.Draw(true);
    EXPECT_EQ(Screen(7, 23, 5), "Title");
    EXPECT_EQ(Screen(9, 23, 9), "Body text");
    EXPECT_EQ(Screen(16, 48, 10), "<Enter> OK");
    EXPECT_EQ(Screen(16, 22, 26), std::string(26, ' '));
    EXPECT_EQ(PairOnScreen(7, 23), Pair(6, 7));
    EXPECT_EQ(PairOnScreen(9, 23), Pair(6, 2));
    EXPECT_EQ(PairOnScreen(16, 48), Pair(3, 0));
    EXPECT_EQ(PairOnScreen(16, 56), Pair(3, 6));
    EXPECT_EQ(PairOnScreen(14, 21), Pair(3, 7)) << "bottom pane margin";
    // The border keeps its line-drawing characters through recolouring, active and dimmed.
    for (bool active : {false, true}) {
        dialog.Draw(active);
        for (int row : {6, 10, 13, 17}) {
            EXPECT_TRUE(mvwinch(curscr, row, 20) & A_ALTCHARSET) << row;
            EXPECT_TRUE(mvwinch(curscr, row, 59) & A_ALTCHARSET) << row;
        }
        EXPECT_EQ(mvwinch(curscr, 6, 20) & A_CHARTEXT, ACS_ULCORNER & A_CHARTEXT);
        EXPECT_EQ(mvwinch(curscr, 17, 59) & A_CHARTEXT, ACS_LRCORNER & A_CHARTEXT);
        EXPECT_EQ(mvwinch(curscr, 6, 30) & A_CHARTEXT, ACS_HLINE & A_CHARTEXT);
    }
}

TEST_F(WindowRendering, ChildColoursOfMinusOneComeFromTheParent) {
    Window parent(0, 0, 20, 5, 3, 1);
    struct Case {
        int background, foreground, expectedBackground, expectedForeground;
    };
    const Case cases[] = {{-1, -1, 3, 1}, {-1, 7, 3, 7}, {6, -1, 6, 1}, {0, 2, 0, 2}};
    for (const Case& c : cases) {
        Window* child = parent.AddChild<Window>(1, 1, 5, 2, c.background, c.foreground);
        EXPECT_EQ(child->Background(), c.expectedBackground);
        EXPECT_EQ(child->Foreground(), c.expectedForeground);
        delete child;
    }
    EXPECT_TRUE(parent.Children().empty()) << "a deleted child leaves its parent's list";
}

struct Counted : Window {
    static inline int destroyed = 0;
    using Window::Window;
    ~Counted() override { ++destroyed; }
};

TEST_F(WindowRendering, DeletingAWindowDeletesItsSubtree) {
    Counted::destroyed = 0;
    auto* root = new Counted(0, 0, 30, 10, 0, 7);
    Window* a = root->AddChild<Counted>(1, 1, 10, 5, -1, -1);
    a->AddChild<Counted>(1, 1, 5, 2, -1, -1)->AddChild<Counted>(0, 0, 2, 1, -1, -1);
    root->AddChild<Counted>(12, 1, 10, 5, -1, -1);
    delete root;
    EXPECT_EQ(Counted::destroyed, 5);
}

TEST_F(WindowRendering, RefusedWindowsAreSafe) {
    // Larger than the screen: the centring gives negative coordinates and curses refuses the window.
    TestDialog dialog(nullptr, 100, 30, 10);
    EXPECT_EQ(dialog.Curses(), nullptr);
    ASSERT_NE(dialog.ContentPane(), nullptr);
    EXPECT_EQ(dialog.ContentPane()->Curses(), nullptr);
    dialog.SetTitle("{color:red}too big");
    auto* list = dialog.ContentPane()->AddChild<ItemList>(0, 0, 20, 10);
    LabelItem a("a", true), b("b", true);
    InputItem c("c", "v", 5);
    list->SetItems({&a, &b, &c});
    dialog.Draw(true);
    list->Down();
    list->Down();
    dialog.Draw(false);
    dialog.Refresh();
    dialog.Redraw();
    dialog.Print(0, 0, "x");
    dialog.SetColors(0, 7);
    dialog.MoveCursor(1, 1);
    EXPECT_EQ(list->FocusedItem(), &c);

    TestDialog fits(nullptr, 80, 24, 10);
    EXPECT_NE(fits.Curses(), nullptr) << "a dialog of exactly the screen's size";
}

TEST_F(WindowRendering, DimmedTextAreaUsesOneAttribute) {
    Window frame(0, 0, 20, 2, 3, 0);
    auto* area = frame.AddChild<TextArea>(0, 0, 20, 2, -1, -1);
    area->SetText("{color:red}Alert{/color} {bgcolor:white}ok");
    frame.Draw(true);
    EXPECT_EQ(PairOnScreen(0, 0), Pair(3, 1));
    EXPECT_EQ(PairOnScreen(0, 5), Pair(3, 0));
    EXPECT_EQ(PairOnScreen(0, 6), Pair(7, 0));
    frame.Draw(false);
    EXPECT_EQ(Screen(0, 0, 8), "Alert ok");
    for (int column : {0, 5, 6, 10})
        EXPECT_EQ(PairOnScreen(0, column), Pair(0, 6)) << column;
    EXPECT_EQ(PairOnScreen(1, 0), Pair(0, 6));
    frame.Draw(true);
    EXPECT_EQ(PairOnScreen(0, 0), Pair(3, 1)) << "colours come back";
}

// Keys waiting on the terminal when a frame is drawn are thrown away: they were typed for what was there
// before. Curses flushes the terminal it writes to, so input and output are both the pseudo-terminal here.
TEST(WindowTypeAhead, DrawingAFrameDiscardsPendingKeys) {
    int master = -1, slave = -1;
    ASSERT_EQ(openpty(&master, &slave, nullptr, nullptr, nullptr), 0);
    fcntl(master, F_SETFL, O_NONBLOCK);
    FILE* in = fdopen(slave, "r");
    FILE* out = fdopen(dup(slave), "w");
    SCREEN* screen = newterm("xterm-256color", out, in);
    ASSERT_NE(screen, nullptr);
    set_term(screen);
    cbreak();
    nodelay(stdscr, TRUE);
    auto drain = [master] {
        char buffer[4096];
        while (read(master, buffer, sizeof buffer) > 0) {
        }
    };
    struct Case {
        bool drawFrame;
        int expected;
    };
    for (Case c : {Case{false, 'k'}, Case{true, ERR}}) {
        drain();
        ASSERT_EQ(write(master, "k", 1), 1);
        usleep(20000); // let the key reach the slave side
        if (c.drawFrame) {
            Window frame(0, 0, 10, 3, 0, 7);
            frame.Draw(true);
        }
        EXPECT_EQ(wgetch(stdscr), c.expected) << (c.drawFrame ? "after a draw" : "without a draw");
    }
    endwin();
    delscreen(screen);
    std::fclose(out);
    std::fclose(in);
    close(master);
}

class ItemListRendering : public WindowRendering {
protected:
    void SetUp() override {
        WindowRendering::SetUp();
        frame_ = new Window(10, 5, 40, 10, 3, 6);
        list_ = frame_->AddChild<ItemList>(2, 1, 30, 4);
    }
    void TearDown() override {
        delete frame_;
        WindowRendering::TearDown();
    }
    // Screen coordinates of the list: column 12, rows 6..9; rows are 29 cells, the scroll bar is column 41.
    static constexpr int kLeft = 12, kTop = 6, kScroll = 41;

    Window* frame_ = nullptr;
    ItemList* list_ = nullptr;
};

TEST_F(ItemListRendering, RowsFocusBarAndScrollBar) {
    LabelItem heading("Choose:", false), a("Alpha", true), b("Beta", true), c("Gamma", true),
        d("Delta", true), e("Epsilon", true);
    b.SetEnabled(false);
    list_->SetItems({&heading, &a, &b, &c, &d, &e});
    frame_->Draw(true);
    EXPECT_EQ(Screen(kTop, kLeft + 1, 7), "Choose:");
    EXPECT_EQ(Screen(kTop + 1, kLeft + 1, 5), "Alpha");
    EXPECT_EQ(list_->FocusedItem(), &a);
    EXPECT_EQ(list_->Selection(), 0);
    for (int column : {kLeft, kLeft + 1, kLeft + 28})
        EXPECT_EQ(PairOnScreen(kTop + 1, column), Pair(0, 7))
            << "focus bar across the row, column " << column;
    EXPECT_EQ(PairOnScreen(kTop, kLeft), Pair(3, 0));
    EXPECT_EQ(PairOnScreen(kTop + 2, kLeft + 1), Pair(3, 0));
    EXPECT_EQ(Screen(kTop, kScroll, 1), "\u2588");
    EXPECT_EQ(Screen(kTop + 1, kScroll, 1), "\u2593");
    EXPECT_EQ(Screen(kTop + 3, kScroll, 1), "\u2593");

    ASSERT_TRUE(list_->Down());
    EXPECT_EQ(list_->FocusedItem(), &c);
    EXPECT_EQ(list_->Selection(), 2) << "the disabled item counts";
    EXPECT_EQ(PairOnScreen(kTop + 1, kLeft + 1), Pair(3, 0)) << "old row back in the item's colours";
    EXPECT_EQ(PairOnScreen(kTop + 3, kLeft + 1), Pair(0, 7));

    ASSERT_TRUE(list_->Down());
    ASSERT_TRUE(list_->Down());
    EXPECT_EQ(list_->TopIndex(), 2);
    EXPECT_EQ(Screen(kTop, kLeft + 1, 4), "Beta");
    EXPECT_EQ(Screen(kTop + 3, kLeft + 1, 7), "Epsilon");
    EXPECT_EQ(PairOnScreen(kTop + 3, kLeft + 1), Pair(0, 7));
    EXPECT_EQ(Screen(kTop + 3, kScroll, 1), "\u2588");
    EXPECT_EQ(Screen(kTop, kScroll, 1), "\u2593");
    EXPECT_FALSE(list_->Down());
}

TEST_F(ItemListRendering, NoScrollBarWhenTheItemsFit) {
    LabelItem a("One", true), b("Two", true), c("Three", true), d("Four", true);
    list_->SetItems({&a, &b, &c, &d});
    frame_->Draw(true);
    for (int row = kTop; row < kTop + 4; ++row)
        EXPECT_EQ(Screen(row, kScroll, 1), " ") << row;
    // Fewer items than rows: the rows below stay empty, also after a list with more items.
    list_->SetItems({&a});
    list_->Draw();
    EXPECT_EQ(Screen(kTop + 1, kLeft, 29), std::string(29, ' '));
    frame_->Draw(false);
    EXPECT_EQ(Screen(kTop + 1, kLeft, 29), std::string(29, ' '));
}

TEST_F(ItemListRendering, InputFieldAndCursor) {
    LabelItem heading("Address", false);
    InputItem address("IP Address", "10.0.0.1", 12), password("Password", "abc", 12);
    password.SetPassword(true);
    list_->SetItems({&heading, &address, &password});
    frame_->Draw(true);
    // A frame drawn for the first time hides the cursor; a screen with fields shows it.
    Window::ShowCursor(true);
    // Row text areas start one column into the row and are 27 cells wide; the field ends at their edge.
    const int fieldStart = kLeft + 1 + 27 - 2 - 12;
    // Read the cursor first: reading cells back moves curses' idea of it.
    EXPECT_EQ(getcury(curscr), kTop + 1);
    EXPECT_EQ(getcurx(curscr), fieldStart + 8);
    EXPECT_EQ(Screen(kTop + 1, kLeft + 1, 10), "IP Address");
    EXPECT_EQ(Screen(kTop + 1, fieldStart - 3, 17), " [ 10.0.0.1     ]");
    EXPECT_EQ(PairOnScreen(kTop + 1, fieldStart), Pair(7, 0)) << "fresh value marked";
    EXPECT_EQ(Screen(kTop + 2, fieldStart, 4), "*** ");

    address.HandleKey('1');
    list_->Draw();
    EXPECT_EQ(getcurx(curscr), fieldStart + 1);
    EXPECT_EQ(Screen(kTop + 1, fieldStart, 9), "1        ");
    EXPECT_EQ(PairOnScreen(kTop + 1, fieldStart), Pair(0, 7)) << "edited value plain";
}

// On a virtual terminal (TERM=linux) a focus move sends only the two rows that change, and a typed character
// costs no more than its cell in the field's colours.
class ItemListBytes : public ItemListRendering {
protected:
    void SetUp() override {
        term_ = "linux";
        ItemListRendering::SetUp();
    }
};

TEST_F(ItemListBytes, FocusMoveAndTypedCharacter) {
    LabelItem a("Configure Password", true), b("Configure Lockdown", true), c("Restart", true);
    InputItem host("Hostname", "host", 12);
    list_->SetItems({&a, &b, &c, &host});
    frame_->Draw(true);
    long before = BytesWritten();
    list_->Down();
    const std::string focusMove = OutputSince(before);
    // Rows 7 and 8 of the terminal (1-based) are the only ones addressed.
    std::smatch position;
    std::string rest = focusMove;
    int addressed = 0;
    while (std::regex_search(rest, position, std::regex("\\^\\[\\[(\\d+);\\d+H"))) {
        EXPECT_TRUE(position[1] == "7" || position[1] == "8") << focusMove;
        ++addressed;
        rest = position.suffix();
    }
    EXPECT_EQ(addressed, 2) << focusMove;
    EXPECT_NE(focusMove.find(" Configure Password "), std::string::npos) << focusMove;
    EXPECT_NE(focusMove.find(" Configure Lockdown "), std::string::npos) << focusMove;
    EXPECT_LE(focusMove.size(), 2 * 29 + 2 * 7 + 2 * 10 + 20u)
        << focusMove; // rows, addressing, colours, reset

    list_->Down();
    list_->Down();
    Window::ShowCursor(true);
    host.HandleKey(KEY_END);
    list_->Draw();
    before = BytesWritten();
    host.HandleKey('x');
    list_->Draw();
    const long typed = BytesWritten() - before;
    EXPECT_EQ(getcurx(curscr), kLeft + 1 + 27 - 2 - 12 + 5);
    EXPECT_LE(typed, 23) << OutputSince(before);
    EXPECT_EQ(Screen(kTop + 3, kLeft + 1 + 27 - 2 - 12, 6), "hostx ");
}

} // namespace
} // namespace Tarn
