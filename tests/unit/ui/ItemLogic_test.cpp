// Item list navigation and input field editing as pure logic: focus and ordinal counting over headings and
// disabled entries, scrolling, and the field's editing keys and line text.
#include "ui/InputItem.h"
#include "ui/Item.h"
#include "ui/ListNavigation.h"

#include <gtest/gtest.h>

#include <curses.h>

#include <string>
#include <vector>

namespace Tarn {
namespace {

constexpr ListEntry H{false, true}; // heading: not selectable
constexpr ListEntry E{true, true};  // enabled
constexpr ListEntry D{true, false}; // selectable but disabled

struct Position {
    int focus;
    int ordinal;
    int top;
    bool operator==(const Position&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Position& p) {
    return out << "{focus " << p.focus << ", ordinal " << p.ordinal << ", top " << p.top << "}";
}

Position At(const ListNavigation& n) {
    return {n.FocusIndex(), n.Ordinal(), n.TopIndex()};
}

struct NavigationCase {
    const char* name;
    std::vector<ListEntry> entries;
    int rows;
    std::string moves; // 'u' = Up, 'd' = Down
    Position expected;
};

TEST(ListNavigationTest, FocusOrdinalAndTop) {
    const NavigationCase cases[] = {
        {"first selectable after a heading", {H, E, E}, 5, "", {1, 0, 0}},
        {"disabled first entries are counted", {D, D, E, E}, 5, "", {2, 2, 0}},
        {"down counts disabled entries", {E, D, E}, 5, "d", {2, 2, 0}},
        {"down skips headings without counting", {E, H, H, E}, 5, "d", {3, 1, 0}},
        {"up counts back the same way", {E, D, H, E}, 5, "du", {0, 0, 0}},
        {"down on the last stays", {E, E, D}, 5, "ddd", {1, 1, 0}},
        {"up on the first stays", {H, E, E}, 5, "u", {1, 0, 0}},
        {"down scrolls: new item is the last row", {E, E, E, E, E}, 3, "ddd", {3, 3, 1}},
        {"down past a heading scrolls it into view too", {E, E, E, H, E}, 3, "ddd", {4, 3, 2}},
        {"up scrolls: new item is the first row", {E, E, E, E, E}, 3, "dddduuu", {1, 1, 1}},
        {"up inside the rows keeps the top", {E, E, E, E, E}, 3, "ddddu", {3, 3, 2}},
        {"up above a heading leaves the heading above the top", {H, E, E, E, E}, 2, "ddduuu", {1, 0, 1}},
        {"nothing enabled: no focus", {H, D}, 3, "du", {-1, 0, 0}},
        {"long heading block starts scrolled", {H, H, H, E}, 2, "", {3, 0, 2}},
    };
    for (const NavigationCase& c : cases) {
        ListNavigation n(c.rows);
        n.Reset(c.entries);
        for (char move : c.moves) {
            if (move == 'u')
                n.Up(c.entries);
            else
                n.Down(c.entries);
        }
        EXPECT_EQ(At(n), c.expected) << c.name;
        if (n.FocusIndex() >= 0) {
            EXPECT_GE(n.FocusRow(), 0) << c.name;
            EXPECT_LT(n.FocusRow(), c.rows) << c.name;
        }
    }
}

TEST(ListNavigationTest, MovesReportWhetherTheFocusChanged) {
    std::vector<ListEntry> entries{E, D, E};
    ListNavigation n(5);
    n.Reset(entries);
    EXPECT_FALSE(n.Up(entries));
    EXPECT_TRUE(n.Down(entries));
    EXPECT_FALSE(n.Down(entries));
}

TEST(ListNavigationTest, ScrollBar) {
    std::vector<ListEntry> entries(10, E);
    ListNavigation n(4);
    n.Reset(entries);
    EXPECT_FALSE(n.NeedsScrollBar(4)) << "exactly as many items as rows";
    EXPECT_TRUE(n.NeedsScrollBar(5));
    EXPECT_EQ(n.ScrollThumbRow(10), 0);
    for (int i = 0; i < 9; ++i)
        n.Down(entries);
    EXPECT_EQ(n.TopIndex(), 6);
    EXPECT_EQ(n.ScrollThumbRow(10), 3); // 6 * 100 / 6 = 100 % -> last row
    n.Up(entries);
    n.Up(entries);
    n.Up(entries);
    n.Up(entries);
    EXPECT_EQ(n.TopIndex(), 5);
    EXPECT_EQ(n.ScrollThumbRow(10), 2); // 83 % of 3 rows
}

struct EditCase {
    const char* name;
    FieldState start;
    std::vector<int> keys;
    std::string value;
    int cursor;
    bool fresh;
};

TEST(FieldEditing, Keys) {
    const FieldState prefilled{"10.0.0.1", 8, 0, true};
    const FieldState edited{"abc", 1, 0, false};
    const EditCase cases[] = {
        {"fresh: a character replaces the value", prefilled, {'5'}, "5", 1, false},
        {"fresh: Delete clears", prefilled, {KEY_DC}, "", 0, false},
        {"fresh: Backspace clears", prefilled, {KEY_BACKSPACE}, "", 0, false},
        {"fresh: byte 8 clears", prefilled, {8}, "", 0, false},
        {"Left then a character inserts", prefilled, {KEY_LEFT, 'x'}, "10.0.0.x1", 8, false},
        {"End keeps the value", prefilled, {KEY_END, '2'}, "10.0.0.12", 9, false},
        {"Home goes to the start", prefilled, {KEY_HOME, '9'}, "910.0.0.1", 1, false},
        {"Right at the end stays", prefilled, {KEY_RIGHT, KEY_RIGHT}, "10.0.0.1", 8, false},
        {"Delete removes at the cursor", edited, {KEY_DC}, "ac", 1, false},
        {"Backspace removes before the cursor", edited, {KEY_BACKSPACE}, "bc", 0, false},
        {"Backspace at the start does nothing", edited, {KEY_HOME, KEY_BACKSPACE}, "abc", 0, false},
        {"Delete at the end does nothing", edited, {KEY_END, KEY_DC}, "abc", 3, false},
        {"Left at the start stays", edited, {KEY_LEFT, KEY_LEFT}, "abc", 0, false},
        {"non-printable keys are ignored", edited, {10, 27, KEY_F(2), KEY_UP}, "abc", 1, false},
        {"End on an empty value", FieldState{"", 0, 0, true}, {KEY_END, 'a'}, "a", 1, false},
    };
    for (const EditCase& c : cases) {
        FieldState s = c.start;
        for (int key : c.keys)
            EditField(s, key);
        EXPECT_EQ(s.value, c.value) << c.name;
        EXPECT_EQ(s.cursor, c.cursor) << c.name;
        EXPECT_EQ(s.fresh, c.fresh) << c.name;
    }
}

TEST(FieldEditing, OnlyEditingKeysAreTaken) {
    FieldState s{"x", 1, 0, false};
    EXPECT_TRUE(EditField(s, 'a'));
    EXPECT_TRUE(EditField(s, KEY_LEFT));
    EXPECT_FALSE(EditField(s, 10));
    EXPECT_FALSE(EditField(s, KEY_DOWN));
}

TEST(FieldLine, Layout) {
    // Row of 30 cells, field of 8: label, blanks, " [ ", 8 cells, " ]"; the field ends at the row's edge.
    FieldState s{"abc", 3, 0, false};
    FieldLine line = BuildFieldLine("Name:", 30, 8, s, false, false);
    EXPECT_EQ(line.markup, "Name:" + std::string(12, ' ') + " [ abc      ]");
    EXPECT_EQ(line.markup.size(), 30u);
    EXPECT_EQ(line.cursorColumn, 30 - 2 - 8 + 3);
}

TEST(FieldLine, FocusMarksFreshAndEditedValues) {
    FieldState fresh{"ab", 2, 0, true};
    EXPECT_EQ(BuildFieldLine("L", 12, 4, fresh, true, false).markup,
              "L   [ {bgcolor:white}{color:black}ab{/color}{/bgcolor}   ]");
    FieldState edited{"ab", 2, 0, false};
    EXPECT_EQ(BuildFieldLine("L", 12, 4, edited, true, false).markup,
              "L   [ {bgcolor:black}{color:white}ab{/color}{/bgcolor}   ]");
}

TEST(FieldLine, PasswordShowsOneStarPerCharacter) {
    FieldState s{"secret", 6, 0, false};
    EXPECT_EQ(BuildFieldLine("", 20, 10, s, false, true).markup, std::string(5, ' ') + " [ ******     ]");
}

struct ScrollCase {
    const char* name;
    FieldState start;
    std::vector<int> keys;
    int offset;
    std::string shown;
};

TEST(FieldLine, CursorStaysVisible) {
    // Field of 4 cells over "abcdefgh".
    const FieldState atEnd{"abcdefgh", 8, 0, false};
    const ScrollCase cases[] = {
        {"cursor at the end: last three characters and the cursor cell", atEnd, {}, 5, "fgh "},
        {"Home scrolls back", atEnd, {KEY_HOME}, 0, "abcd"},
        {"Left through the offset follows", atEnd, {KEY_LEFT, KEY_LEFT, KEY_LEFT, KEY_LEFT}, 4, "efgh"},
        {"Backspace left of the offset", FieldState{"abcdefgh", 5, 5, false}, {KEY_BACKSPACE}, 4, "abcdfgh"},
        {"short value is never scrolled", FieldState{"abc", 3, 2, false}, {}, 0, "abc "},
    };
    for (const ScrollCase& c : cases) {
        FieldState s = c.start;
        for (int key : c.keys) {
            EditField(s, key);
            BuildFieldLine("", 12, 4, s, false, false); // every key is followed by a render
        }
        FieldLine line = BuildFieldLine("", 12, 4, s, false, false);
        EXPECT_EQ(s.offset, c.offset) << c.name;
        EXPECT_GE(s.cursor - s.offset, 0) << c.name;
        EXPECT_LT(s.cursor - s.offset, 4) << c.name;
        EXPECT_EQ(line.cursorColumn, 12 - 2 - 4 + s.cursor - s.offset) << c.name;
        if (c.name == std::string("Backspace left of the offset"))
            EXPECT_EQ(s.value, c.shown) << c.name;
        else
            EXPECT_EQ(line.markup.substr(6, 4), c.shown) << c.name;
    }
}

TEST(FieldLine, DefaultFieldWidthIsHalfTheRowMinusOne) {
    EXPECT_EQ(EffectiveFieldWidth(40, -1), 19);
    EXPECT_EQ(EffectiveFieldWidth(40, 12), 12);
    EXPECT_EQ(EffectiveFieldWidth(2, -1), 1);
}

TEST(InputItemTest, FocusChangeMakesTheValueFreshAgain) {
    InputItem item("Host", "old", 10);
    item.SetFocus(true);
    item.HandleKey(KEY_END);
    item.HandleKey('x');
    EXPECT_EQ(item.Value(), "oldx");
    item.SetFocus(false);
    item.SetFocus(true);
    item.HandleKey('n');
    EXPECT_EQ(item.Value(), "n");
    item.SetValue("reset");
    EXPECT_TRUE(item.State().fresh);
    EXPECT_EQ(item.State().cursor, 5);
}

TEST(ItemTexts, CheckAndRadio) {
    CheckItem check("Enable", true, 2);
    EXPECT_EQ(check.Text(), "  [X] Enable");
    check.SetChecked(false);
    EXPECT_EQ(check.Text(), "  [ ] Enable");
    RadioItem radio("DHCP", false);
    EXPECT_EQ(radio.Text(), "( ) DHCP");
    radio.SetChosen(true);
    EXPECT_EQ(radio.Text(), "(o) DHCP");
    EXPECT_TRUE(radio.Selectable());
    EXPECT_FALSE(LabelItem("Heading", false).Selectable());
}

} // namespace
} // namespace Tarn
