// Item lists drawn on an off-screen terminal: rows, focus bar, scroll bar, input fields with the cursor, and
// the bytes a focus move or a typed character costs.
#include "ui/InputItem.h"
#include "ui/Item.h"
#include "ui/ItemList.h"
#include "ui/Window.h"

#include "OffscreenTerminal.h"

#include <regex>
#include <string>

namespace Tarn {
namespace {

class ItemListRendering : public Testing::OffscreenTerminal {
protected:
    void SetUp() override {
        OffscreenTerminal::SetUp();
        frame_ = new Window(10, 5, 40, 10, 3, 6);
        list_ = frame_->AddChild<ItemList>(2, 1, 30, 4);
    }
    void TearDown() override {
        delete frame_;
        OffscreenTerminal::TearDown();
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
