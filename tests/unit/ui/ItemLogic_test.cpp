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

TEST(ListNavigationTest, FocusOrdinalAndTop) {
    const struct {
        const char* name;
        std::vector<ListEntry> entries;
        int rows;
        std::string moves; // 'u' = Up, 'd' = Down
        int focus, ordinal, top;
        bool lastMoved;
    } cases[] = {
        {"first selectable after a heading", {H, E, E}, 5, "", 1, 0, 0, false},
        {"disabled first entries are counted", {D, D, E, E}, 5, "", 2, 2, 0, false},
        {"down counts disabled entries", {E, D, E}, 5, "d", 2, 2, 0, true},
        {"down skips headings without counting", {E, H, H, E}, 5, "d", 3, 1, 0, true},
        {"up counts back the same way", {E, D, H, E}, 5, "du", 0, 0, 0, true},
        {"down on the last stays", {E, E, D}, 5, "ddd", 1, 1, 0, false},
        {"down scrolls: new item is the last row", {E, E, E, E, E}, 3, "ddd", 3, 3, 1, true},
        {"down past a heading scrolls it into view too", {E, E, E, H, E}, 3, "ddd", 4, 3, 2, true},
        {"up scrolls: new item is the first row", {E, E, E, E, E}, 3, "dddduuu", 1, 1, 1, true},
        {"up above a heading leaves it above the top", {H, E, E, E, E}, 2, "ddduuu", 1, 0, 1, true},
        {"nothing enabled: no focus", {H, D}, 3, "du", -1, 0, 0, false},
        {"long heading block starts scrolled", {H, H, H, E}, 2, "", 3, 0, 2, false},
        // A window squeezed so far that the list has no rows: the focus moves, no row shows it.
        {"no rows", {E, E}, 0, "", 0, 0, 0, false},
        {"no rows, down", {E, E}, 0, "d", 1, 1, 2, true},
        {"no rows, down and up", {E, E}, 0, "du", 0, 0, 0, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ListNavigation n(c.rows);
        n.Reset(c.entries);
        bool moved = false;
        for (char move : c.moves)
            moved = move == 'u' ? n.Up(c.entries) : n.Down(c.entries);
        EXPECT_EQ((std::vector<int>{n.FocusIndex(), n.Ordinal(), n.TopIndex()}),
                  (std::vector<int>{c.focus, c.ordinal, c.top}));
        EXPECT_EQ(moved, c.lastMoved);
        if (n.FocusIndex() >= 0 && c.rows > 0) {
            EXPECT_GE(n.FocusRow(), 0);
            EXPECT_LT(n.FocusRow(), c.rows);
        } else {
            EXPECT_EQ(n.FocusRow(), -1) << "no row to draw the focus in";
        }
    }
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
    EXPECT_EQ(n.ScrollThumbRow(10), 3); // 100 % -> last row
    for (int i = 0; i < 4; ++i)
        n.Up(entries);
    EXPECT_EQ(n.TopIndex(), 5);
    EXPECT_EQ(n.ScrollThumbRow(10), 2); // 83 % of 3 rows
}

TEST(FieldEditing, Keys) {
    const FieldState prefilled{"10.0.0.1", 8, 0, true};
    const FieldState edited{"abc", 1, 0, false};
    const struct {
        const char* name;
        FieldState start;
        std::vector<int> keys;
        std::string value;
        int cursor;
        bool lastTaken;
    } cases[] = {
        {"fresh: a character replaces the value", prefilled, {'5'}, "5", 1, true},
        {"fresh: Delete clears", prefilled, {KEY_DC}, "", 0, true},
        {"fresh: Backspace clears", prefilled, {KEY_BACKSPACE}, "", 0, true},
        {"fresh: byte 8 clears", prefilled, {8}, "", 0, true},
        {"Left then a character inserts", prefilled, {KEY_LEFT, 'x'}, "10.0.0.x1", 8, true},
        {"End keeps the value", prefilled, {KEY_END, '2'}, "10.0.0.12", 9, true},
        {"Home goes to the start", prefilled, {KEY_HOME, '9'}, "910.0.0.1", 1, true},
        {"Delete removes at the cursor", edited, {KEY_DC}, "ac", 1, true},
        {"Backspace removes before the cursor", edited, {KEY_BACKSPACE}, "bc", 0, true},
        {"Backspace at the start does nothing", edited, {KEY_HOME, KEY_BACKSPACE}, "abc", 0, true},
        {"Left at the start stays", edited, {KEY_LEFT, KEY_LEFT}, "abc", 0, true},
        {"Enter is not taken", edited, {10}, "abc", 1, false},
        {"Down is not taken", edited, {KEY_DOWN}, "abc", 1, false},
        {"Escape, F2 and Up are ignored", edited, {27, KEY_F(2), KEY_UP}, "abc", 1, false},
        {"End on an empty value", FieldState{"", 0, 0, true}, {KEY_END, 'a'}, "a", 1, true},
        {"a shown field refuses a brace", edited, {'{'}, "abc", 1, false},
    };
    for (const auto& c : cases) {
        FieldState s = c.start;
        bool taken = false;
        for (int key : c.keys)
            taken = EditField(s, key);
        EXPECT_EQ(s.value, c.value) << c.name;
        EXPECT_EQ(s.cursor, c.cursor) << c.name;
        EXPECT_FALSE(s.fresh) << c.name;
        EXPECT_EQ(taken, c.lastTaken) << c.name;
    }
    FieldState masked = edited;
    EXPECT_TRUE(EditField(masked, '{', true));
    EXPECT_EQ(masked.value, "a{bc");
}

// Nothing a field drops stays in its buffer: it may have held a password.
TEST(FieldEditing, DroppedCharactersAreWiped) {
    // Past the short-string size, so the buffer is a heap block of its own.
    const std::string secret = "Kq9Vb7Rt-Kq9Vb7Rt-Kq9Vb7Rt";
    const auto leftOver = [](const std::string& value) {
        std::string rest(value.data() + value.size(), value.capacity() - value.size());
        return rest.find_first_not_of('\0') == std::string::npos ? std::string() : rest;
    };
    for (int key : {KEY_BACKSPACE, KEY_DC, int('x')}) {
        SCOPED_TRACE(key);
        FieldState state{secret, static_cast<int>(secret.size()), 0, true};
        ASSERT_TRUE(EditField(state, key));
        EXPECT_EQ(leftOver(state.value), "");
    }
    InputItem field("Password:", secret, 20);
    const std::string& value = field.Value();
    field.Wipe();
    EXPECT_EQ(value, "");
    EXPECT_EQ(leftOver(value), "");
    field.SetValue(secret);
    field.SetValue("ab");
    EXPECT_EQ(leftOver(value), "");
}

TEST(FieldLine, Text) {
    const struct {
        const char* label;
        int rowWidth, fieldWidth;
        FieldState state;
        bool focused, password;
        std::string markup;
    } cases[] = {
        // The field ends at the row's edge: label, blanks, " [ ", the field's cells, " ]".
        {"Name:",
         30,
         8,
         {"abc", 3, 0, false},
         false,
         false,
         "Name:" + std::string(12, ' ') + " [ abc      ]"},
        {"L",
         12,
         4,
         {"ab", 2, 0, true},
         true,
         false,
         "L   [ {bgcolor:white}{color:black}ab{/color}{/bgcolor}   ]"},
        {"L",
         12,
         4,
         {"ab", 2, 0, false},
         true,
         false,
         "L   [ {bgcolor:black}{color:white}ab{/color}{/bgcolor}   ]"},
        {"", 20, 10, {"secret", 6, 0, false}, false, true, std::string(5, ' ') + " [ ******     ]"},
    };
    for (auto c : cases)
        EXPECT_EQ(BuildFieldLine(c.label, c.rowWidth, c.fieldWidth, c.state, c.focused, c.password).markup,
                  c.markup);
    FieldState s{"abc", 3, 0, false};
    EXPECT_EQ(BuildFieldLine("Name:", 30, 8, s, false, false).cursorColumn, 30 - 2 - 8 + 3);
    // Without a width the field takes half the row less one.
    EXPECT_EQ(EffectiveFieldWidth(40, -1), 19);
    EXPECT_EQ(EffectiveFieldWidth(40, 12), 12);
    EXPECT_EQ(EffectiveFieldWidth(2, -1), 1);
}

TEST(FieldLine, CursorStaysVisible) {
    // Field of 4 cells over "abcdefgh".
    const FieldState atEnd{"abcdefgh", 8, 0, false};
    const struct {
        const char* name;
        FieldState start;
        std::vector<int> keys;
        int offset;
        std::string shown;
    } cases[] = {
        {"cursor at the end: last three characters and the cursor cell", atEnd, {}, 5, "fgh "},
        {"Home scrolls back", atEnd, {KEY_HOME}, 0, "abcd"},
        {"Left through the offset follows", atEnd, {KEY_LEFT, KEY_LEFT, KEY_LEFT, KEY_LEFT}, 4, "efgh"},
        {"Backspace left of the offset", FieldState{"abcdefgh", 5, 5, false}, {KEY_BACKSPACE}, 4, "fgh "},
        {"short value is never scrolled", FieldState{"abc", 3, 2, false}, {}, 0, "abc "},
    };
    for (const auto& c : cases) {
        FieldState s = c.start;
        for (int key : c.keys) {
            EditField(s, key);
            BuildFieldLine("", 12, 4, s, false, false); // every key is followed by a render
        }
        FieldLine line = BuildFieldLine("", 12, 4, s, false, false);
        EXPECT_EQ(s.offset, c.offset) << c.name;
        EXPECT_EQ(line.markup.substr(6, 4), c.shown) << c.name;
        EXPECT_EQ(line.cursorColumn, 12 - 2 - 4 + s.cursor - s.offset) << c.name;
        EXPECT_GE(s.cursor - s.offset, 0) << c.name;
        EXPECT_LT(s.cursor - s.offset, 4) << c.name;
    }
}

// A field fresh again on its focus is DialogKit's form test; fresh after SetValue, the shell time-out
// dialog's end-to-end run (typed over the shown value).

} // namespace
} // namespace Tarn
