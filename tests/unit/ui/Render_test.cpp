// Windows, item lists and the standard dialogs drawn on an off-screen 80x24 terminal: geometry, texts,
// colours, dimming, focus and scroll bars, the bytes a focus move costs, subtree deletion,
// dialogs cut to the screen, refused windows, the Enter loop, and type-ahead discarded when a frame is drawn.
#include "ui/DialogSize.h"
#include "ui/InputItem.h"
#include "ui/Item.h"
#include "ui/ItemList.h"
#include "ui/StandardDialogs.h"
#include "ui/TextArea.h"

#include "support/OffscreenTerminal.h"

#include <fcntl.h>
#include <pty.h>

#include <regex>

namespace Tarn {
namespace {

using Render = Testing::OffscreenTerminal;

struct TestDialog : Dialog { // nothing to run, for drawing only
    using Dialog::Dialog;
    int Foreground() override { return 0; }
};

struct Counted : Window {
    static inline int destroyed = 0;
    using Window::Window;
    ~Counted() override { ++destroyed; }
};

void ExpectBox(Window* w, int column, int row, int width, int height, const char* name) {
    ASSERT_NE(w, nullptr) << name;
    EXPECT_EQ((std::vector<int>{w->Column(), w->Row(), w->Width(), w->Height()}),
              (std::vector<int>{column, row, width, height}))
        << name;
    EXPECT_NE(w->Curses(), nullptr) << name;
}

TEST_F(Render, DialogGeometryTextsAndColours) {
    TestDialog dialog(nullptr, 40, 12, 7);
    ExpectBox(&dialog, 20, 6, 40, 12, "frame");
    ExpectBox(dialog.TopPane(), 20, 6, 40, 7, "top pane");
    ExpectBox(dialog.BottomPane(), 20, 13, 40, 5, "bottom pane");
    ExpectBox(dialog.TitleArea(), 23, 7, 34, 1, "title");
    ExpectBox(dialog.BodyArea(), 23, 9, 34, 3, "body");
    ExpectBox(dialog.FooterArea(), 22, 16, 36, 1, "footer");
    ExpectBox(dialog.ContentPane(), 22, 14, 36, 1, "content");
    EXPECT_EQ(TestDialog(nullptr, 40, 11, 7).ContentPane(), nullptr) << "bottom pane of 4 rows";

    dialog.SetTitle("Title");
    dialog.SetBody("Body text");
    dialog.SetFooter("{align:right}{color:black}<Enter>{/color} {color:dark-grey}OK{/color}{/align}");
    dialog.Draw(true);
    EXPECT_EQ(Screen(7, 23, 5), "Title");
    EXPECT_EQ(Screen(9, 23, 9), "Body text");
    EXPECT_EQ(Screen(16, 22, 36), std::string(26, ' ') + "<Enter> OK");
    EXPECT_EQ(PairOnScreen(7, 23), Pair(6, 7));
    EXPECT_EQ(PairOnScreen(16, 48), Pair(3, 0));
    EXPECT_EQ(PairOnScreen(14, 21), Pair(3, 7)) << "bottom pane margin";
    // The border keeps its line-drawing characters through recolouring, active and dimmed.
    const chtype corners = (ACS_ULCORNER & A_CHARTEXT) << 8 | (ACS_LRCORNER & A_CHARTEXT);
    for (bool active : {false, true}) {
        dialog.Draw(active);
        const chtype topLeft = mvwinch(curscr, 6, 20), bottomRight = mvwinch(curscr, 17, 59);
        EXPECT_TRUE(topLeft & bottomRight & A_ALTCHARSET) << active;
        EXPECT_EQ((topLeft & A_CHARTEXT) << 8 | (bottomRight & A_CHARTEXT), corners) << active;
    }
}

TEST_F(Render, ClosingADialogWiderThanTheOneUnderItRestoresEveryFrameBelow) {
    // A full-screen frame, two narrow dialogs on it (a login, then a password change) and a wide message on
    // the second: the message reaches past both onto the screen underneath.
    TestDialog screen(nullptr, 80, 24, 10);
    screen.Print(6, 12, "under");
    TestDialog login(&screen, 40, 12, 7);
    TestDialog narrow(&login, 40, 12, 7);
    TestDialog wide(&narrow, 70, 10, 5);
    for (TestDialog* d : {&screen, &login, &narrow, &wide})
        d->Draw(true);
    ASSERT_NE(Screen(12, 6, 5), "under") << "the message covers it";
    narrow.Draw(true); // the message closed
    EXPECT_EQ(Screen(12, 6, 5), "under");
}

TEST_F(Render, DeletingAWindowDeletesItsSubtree) {
    Window parent(0, 0, 20, 5, 3, 1);
    delete parent.AddChild<Window>(1, 1, 5, 2, -1, -1);
    EXPECT_TRUE(parent.Children().empty()) << "a deleted child leaves its parent's list";
    Counted::destroyed = 0;
    auto* root = new Counted(0, 0, 30, 10, 0, 7);
    root->AddChild<Counted>(1, 1, 10, 5, -1, -1)
        ->AddChild<Counted>(1, 1, 5, 2, -1, -1)
        ->AddChild<Counted>(0, 0, 2, 1, -1, -1);
    root->AddChild<Counted>(12, 1, 10, 5, -1, -1);
    delete root;
    EXPECT_EQ(Counted::destroyed, 5);
}

TEST_F(Render, DialogsAreCutToTheScreenAndRefusedChildrenAreSafe) {
    const struct {
        DialogSize wanted;
        int columns, rows;
        DialogSize fitted;
    } cases[] = {
        {{40, 12, 7}, 80, 24, {40, 12, 7}},
        {{60, 13, 7}, 50, 12, {50, 12, 6}}, // the login dialog: both fields stay
        {{100, 30, 10}, 80, 24, {80, 24, 4}},
        {{40, 20, 12}, 80, 10, {40, 10, 2}}, // the top pane keeps its title row, the list gives the rest
        {{60, 13, 7}, 2, 2, {2, 2, 2}},
    };
    for (const auto& c : cases) {
        const DialogSize got = FitToScreen(c.wanted, c.columns, c.rows);
        EXPECT_EQ((std::vector<int>{got.width, got.height, got.splitRow}),
                  (std::vector<int>{c.fitted.width, c.fitted.height, c.fitted.splitRow}))
            << c.wanted.width << "x" << c.wanted.height << " on " << c.columns << "x" << c.rows;
    }

    // Drawn, whole screen: what is typed into its list shows.
    TestDialog dialog(nullptr, 100, 30, 10);
    ExpectBox(&dialog, 0, 0, 80, 24, "frame");
    ExpectBox(dialog.ContentPane(), 2, 5, 76, 16, "content");
    dialog.SetTitle("{color:red}too big");
    auto* list = dialog.ContentPane()->AddChild<ItemList>(0, 0, 20, 4);
    InputItem typed("Name:", "typed", 8);
    list->SetItems({&typed});
    dialog.Draw(true);
    EXPECT_EQ(Screen(1, 3, 7), "too big");
    EXPECT_NE(Screen(5, 3, 18).find("typed"), std::string::npos) << Screen(5, 3, 18);

    // A child that does not fit its parent is refused by curses; nothing drawn through it may fail.
    auto* refused = dialog.ContentPane()->AddChild<ItemList>(0, 0, 20, 30);
    EXPECT_EQ(refused->Curses(), nullptr);
    LabelItem a("a", true), b("b", true);
    InputItem c("c", "v", 5);
    refused->SetItems({&a, &b, &c});
    dialog.Draw(true);
    refused->Down();
    refused->Down();
    dialog.Draw(false);
    dialog.Redraw();
    refused->Print(0, 0, "x");
    refused->MoveCursor(1, 1);
    EXPECT_EQ(refused->FocusedItem(), &c);
}

// An item list at screen column 12, rows 6..9: rows are 29 cells, the scroll bar is column 41.
struct ListFrame {
    Window frame{10, 5, 40, 10, 3, 6};
    ItemList* list = frame.AddChild<ItemList>(2, 1, 30, 4);
};
constexpr int kLeft = 12, kTop = 6, kScroll = 41;

TEST_F(Render, ItemListRowsFocusBarAndScrollBar) {
    ListFrame f;
    LabelItem heading("Choose:", false), a("Alpha", true), b("Beta", true), c("Gamma", true),
        d("Delta", true), e("Epsilon", true);
    b.SetEnabled(false);
    auto ScrollBar = [] {
        std::string bar;
        for (int row = kTop; row < kTop + 4; ++row)
            bar += Screen(row, kScroll, 1);
        return bar;
    };
    f.list->SetItems({&heading, &a, &b, &c, &d, &e});
    f.frame.Draw(true);
    EXPECT_EQ(Screen(kTop, kLeft + 1, 7), "Choose:");
    EXPECT_EQ(Screen(kTop + 1, kLeft + 1, 5), "Alpha");
    EXPECT_EQ(f.list->FocusedItem(), &a);
    for (int column : {kLeft, kLeft + 1, kLeft + 28})
        EXPECT_EQ(PairOnScreen(kTop + 1, column), Pair(0, 7))
            << "focus bar across the row, column " << column;
    EXPECT_EQ(PairOnScreen(kTop + 2, kLeft + 1), Pair(3, 0));
    EXPECT_EQ(ScrollBar(), "\u2588\u2593\u2593\u2593");

    ASSERT_TRUE(f.list->Down());
    EXPECT_EQ(f.list->FocusedItem(), &c);
    EXPECT_EQ(f.list->Selection(), 2) << "the disabled item counts";
    EXPECT_EQ(PairOnScreen(kTop + 1, kLeft + 1), Pair(3, 0)) << "old row back in the item's colours";
    EXPECT_EQ(PairOnScreen(kTop + 3, kLeft + 1), Pair(0, 7));
    ASSERT_TRUE(f.list->Down());
    ASSERT_TRUE(f.list->Down());
    EXPECT_FALSE(f.list->Down());
    EXPECT_EQ(Screen(kTop, kLeft + 1, 4), "Beta");
    EXPECT_EQ(Screen(kTop + 3, kLeft + 1, 7), "Epsilon");
    EXPECT_EQ(PairOnScreen(kTop + 3, kLeft + 1), Pair(0, 7));
    EXPECT_EQ(ScrollBar(), "\u2593\u2593\u2593\u2588");

    // Items that fit: no scroll bar; fewer items than rows leave the rows below empty.
    f.list->SetItems({&a, &c});
    f.list->Draw();
    EXPECT_EQ(ScrollBar(), "    ");
    EXPECT_EQ(Screen(kTop + 2, kLeft, 29), std::string(29, ' '));
}

// On a virtual terminal (TERM=linux) a focus move sends only the two rows that change.
TEST_F(Render, FocusMoveSendsOnlyTheTwoRows) {
    Open("linux");
    ListFrame f;
    LabelItem a("Configure Password", true), b("Configure Lockdown", true), c("Restart", true);
    f.list->SetItems({&a, &b, &c});
    f.frame.Draw(true);
    long before = BytesWritten();
    f.list->Down();
    const std::string focusMove = OutputSince(before);
    const std::regex position("\x1b\\[(\\d+);\\d+H"); // rows 7 and 8 (1-based) are the only ones addressed
    int addressed = 0;
    for (std::sregex_iterator at(focusMove.begin(), focusMove.end(), position), end; at != end;
         ++at, ++addressed)
        EXPECT_TRUE((*at)[1] == "7" || (*at)[1] == "8") << focusMove;
    EXPECT_EQ(addressed, 2) << focusMove;
    EXPECT_NE(focusMove.find(" Configure Password "), std::string::npos) << focusMove;
    EXPECT_NE(focusMove.find(" Configure Lockdown "), std::string::npos) << focusMove;
    EXPECT_LE(focusMove.size(), 2 * 29 + 2 * 7 + 2 * 10 + 20u)
        << focusMove; // rows, addressing, colours, reset
}

TEST_F(Render, OnlyEnterClosesAStandardDialogAndLaterKeysStayUnread) {
    for (const char* typed : {"xq \n!", "\x1b[A\x1b[B\n!", "\n!"}) {
        NotificationDialog notification(nullptr, "T", "B");
        MessageDialog message(nullptr, 112, "B");
        InfoDialog info(nullptr, "I", "T", "B", "F");
        for (Dialog* dialog : std::initializer_list<Dialog*>{&notification, &message, &info}) {
            Type(typed);
            EXPECT_EQ(dialog->Foreground(), 1) << testing::PrintToString(std::string(typed));
            EXPECT_EQ(GetKey(dialog, false), '!');
        }
    }
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
    for (bool drawFrame : {false, true}) {
        char buffer[4096];
        while (read(master, buffer, sizeof buffer) > 0) {
        }
        ASSERT_EQ(write(master, "k", 1), 1);
        usleep(20000); // let the key reach the slave side
        if (drawFrame)
            Window(0, 0, 10, 3, 0, 7).Draw(true);
        EXPECT_EQ(wgetch(stdscr), drawFrame ? ERR : 'k') << (drawFrame ? "after a draw" : "without a draw");
    }
    endwin();
    delscreen(screen);
    std::fclose(out);
    std::fclose(in);
    close(master);
}

} // namespace
} // namespace Tarn
