// Markup layout without a terminal (what each line shows, where, in which colours, for the tolerant corners
// of the grammar and for alignment and wrapping), and the dialog sizes it yields.
#include "ui/DialogSize.h"
#include "ui/Markup.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Tarn::Markup {
namespace {

TEST(MarkupLayout, PlainTextOfLines) {
    const struct {
        const char* name;
        std::string text;
        int width, height;
        std::vector<std::string> expected;
    } cases[] = {
        {"tags take no cells", "{color:white}ab{/color}c", 10, 5, {"abc"}},
        {"empty and unknown tags dropped", "a{}b{blink}c{/blink}d", 10, 5, {"abcd"}},
        {"stray closing colour shows nothing", "{/color}x", 10, 5, {"x"}},
        {"malformed colour name is an open tag", "{color:black>}<F3>{/color} Login", 20, 5, {"<F3> Login"}},
        {"unclosed brace swallows the rest", "abc{color:white def\nghi", 20, 5, {"abc"}},
        {"closing brace alone is text", "a}b", 10, 5, {"a}b"}},
        {"newlines and empty lines", "one\n\nthree", 10, 5, {"one", "", "three"}},
        {"height cut", "1\n2\n3\n4", 10, 2, {"1", "2"}},
        {"wrap at last blank", "alpha beta gamma", 11, 5, {"alpha beta", "gamma"}},
        {"blank at the edge is the break", "abcde fgh", 5, 5, {"abcde", "fgh"}},
        {"word wider than the area is cut", "abcdefgh", 5, 5, {"abcde", "fgh"}},
        {"wrap stops at the height", "aa bb cc dd ee", 5, 2, {"aa bb", "cc dd"}},
        {"tab is one blank", "a\tb", 10, 5, {"a b"}},
        {"right align", "{align:right}{color:black}<Enter>{/color} OK{/align}", 12, 5, {"  <Enter> OK"}},
        {"right align after text, each line", "x{align:right}yz\ncd{/align}", 6, 5, {"x   yz", "    cd"}},
        {"right align keeps a blank after text", "ab{align:right}cd{/align}", 5, 5, {"ab cd"}},
        {"too wide beside text: next line", "abc{align:right}de{/align}", 5, 5, {"abc", "   de"}},
        {"next line cut by the height", "abc{align:right}de{/align}", 5, 1, {"abc"}},
        {"centre keeps a blank after text", "abcd{align:center}ef{/align}", 8, 5, {"abcd ef"}},
        {"centre rounds down", "{align:center}abc{/align}", 10, 5, {"   abc"}},
        {"unknown align argument acts as left", "{align:middle}abc{/align}d", 10, 5, {"abcd"}},
        {"padding columns",
         "{align:padding:8}Device{/align}{align:padding:5}Up{/align}",
         20,
         5,
         {"Device  Up   "}},
        {"padding counts from where the tag opened", "ab{align:padding:4}c{/align}d", 20, 5, {"abc   d"}},
        {"text longer than its padding runs on", "{align:padding:3}abcdef{/align}g", 20, 5, {"abcdefg"}},
        {"no nested align", "{align:padding:6}a{align:right}b{/align}c", 10, 5, {"ab    c"}},
        {"aligned text wider than the area", "{align:right}abcdefgh{/align}", 5, 5, {"abcde", "fgh"}},
        {"UTF-8 character is one cell", "\u2593\u2593 ok", 5, 5, {"\u2593\u2593 ok"}},
        {"nothing in a zero-sized area", "text", 0, 5, {}},
    };
    for (const auto& c : cases) {
        std::vector<std::string> lines;
        for (const Line& line : Layout(c.text, c.width, c.height))
            lines.push_back(PlainText(line));
        EXPECT_EQ(lines, c.expected) << c.name;
    }
    EXPECT_EQ(VisibleLength("{color:white}<Esc>{/color} Log Out"), 13);
    EXPECT_EQ(VisibleLength("a{unclosed"), 1);
    EXPECT_EQ(VisibleLength("\u2588x"), 2);
}

TEST(MarkupLayout, RunsCarryColours) {
    const struct {
        const char* name;
        std::string text;
        Line expected;
    } cases[] = {
        {"colour and back", "a{color:red}b{/color}c", {{0, "a", -1, -1}, {1, "b", 1, -1}, {2, "c", -1, -1}}},
        {"colours do not stack",
         "{color:red}a{color:yellow}b{/color}c",
         {{0, "a", 1, -1}, {1, "b", 3, -1}, {2, "c", -1, -1}}},
        {"unknown colour keeps the current one",
         "{color:red}a{color:black>}b{/color}c",
         {{0, "ab", 1, -1}, {2, "c", -1, -1}}},
        {"closing colour keeps the background",
         "{bgcolor:dark-grey}{color:white}x{/color}y{/bgcolor}z",
         {{0, "x", 7, 6}, {1, "y", -1, 6}, {2, "z", -1, -1}}},
        {"all six names",
         "{color:white}a{color:black}b{color:dark-grey}c{color:light-grey}d{color:yellow}e{color:red}f",
         {{0, "a", 7, -1},
          {1, "b", 0, -1},
          {2, "c", 6, -1},
          {3, "d", 2, -1},
          {4, "e", 3, -1},
          {5, "f", 1, -1}}},
        {"padding blanks take the colour in force",
         "{color:red}{align:padding:3}a{/align}",
         {{0, "a  ", 1, -1}}},
    };
    for (const auto& c : cases) {
        std::vector<Line> lines = Layout(c.text, 10, 5);
        ASSERT_EQ(lines.size(), 1u) << c.name;
        EXPECT_EQ(lines[0], c.expected) << c.name;
    }
    // A colour survives line breaks and wrapping.
    std::vector<Line> broken = Layout("{color:yellow}a\nb{/color}c", 10, 5);
    ASSERT_EQ(broken.size(), 2u);
    EXPECT_EQ(broken[1], (Line{{0, "b", 3, -1}, {1, "c", -1, -1}}));
    std::vector<Line> wrapped = Layout("{color:yellow}one two{/color} x", 4, 5);
    EXPECT_EQ(wrapped, (std::vector<Line>{{{0, "one", 3, -1}}, {{0, "two", 3, -1}}, {{0, "x", -1, -1}}}));
}

TEST(DialogSize, FollowsTitleAndBody) {
    std::string words = "word"; // 30 words of 4 letters
    for (int i = 1; i < 30; ++i)
        words += " word";
    std::string accents;
    for (int i = 0; i < 50; ++i)
        accents += "\u00e9";
    const struct {
        const char* name;
        std::string title, body;
        int columns, rows;
        DialogSize want;
    } cases[] = {
        {"short body gets the minimum width", "Warning", "Done.", 0, 0, {40, 8, 5}},
        {"long paragraph wraps at the widest dialog", "T", words, 0, 0, {72, 10, 7}},
        {"markup is not measured", "", "{color:red}" + std::string(50, 'y') + "{/color}", 0, 0, {56, 8, 5}},
        {"unclosed tag hides the rest", "", "ok {color:red " + std::string(80, 'z'), 0, 0, {40, 8, 5}},
        {"word longer than a line is split", "", std::string(150, 'x'), 0, 0, {72, 10, 7}},
        {"multi-byte characters take one cell each", "", accents, 0, 0, {56, 8, 5}},
        {"narrow screen", "T", words, 50, 0, {50, 11, 8}},
        {"tiny screen keeps one body line", "T", words, 50, 3, {50, 8, 5}},
    };
    for (const auto& c : cases) {
        const DialogSize got = MessageDialogSize(c.title, c.body, c.columns, c.rows);
        EXPECT_EQ((std::vector<int>{got.width, got.height, got.splitRow}),
                  (std::vector<int>{c.want.width, c.want.height, c.want.splitRow}))
            << c.name;
    }
}

} // namespace
} // namespace Tarn::Markup
