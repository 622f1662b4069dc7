// The window tree and text areas drawn on an off-screen 80x24 terminal: geometry, colours, dimming, subtree
// deletion, refused windows, and type-ahead discarded when a frame is drawn.
#include "ui/InputItem.h"
#include "ui/Item.h"
#include "ui/ItemList.h"
#include "ui/TextArea.h"
#include "ui/Window.h"

#include "OffscreenTerminal.h"

#include <fcntl.h>
#include <pty.h>

namespace Tarn {
namespace {

using WindowRendering = Testing::OffscreenTerminal;

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

} // namespace
} // namespace Tarn
