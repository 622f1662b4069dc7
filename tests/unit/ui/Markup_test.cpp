// Markup layout without a terminal: what each line shows, where, and in which colours, for the tolerant
// corners of the grammar (unknown colours, stray closing tags, unclosed braces) and for alignment and
// wrapping.
#include "ui/Markup.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Tarn::Markup {
namespace {

std::vector<std::string> Plain(const std::string& text, int width, int height = 100) {
    std::vector<std::string> lines;
    for (const Line& line : Layout(text, width, height))
        lines.push_back(PlainText(line));
    return lines;
}

struct PlainCase {
    const char* name;
    std::string text;
    int width;
    int height;
    std::vector<std::string> expected;
};

TEST(MarkupLayout, PlainTextOfLines) {
    const PlainCase cases[] = {
        {"tags take no cells", "{color:white}ab{/color}c", 10, 5, {"abc"}},
        {"empty tag dropped", "a{}b", 10, 5, {"ab"}},
        {"unknown tag dropped", "a{blink}b{/blink}c", 10, 5, {"abc"}},
        {"stray closing colour shows nothing", "{/color}x", 10, 5, {"x"}},
        {"malformed colour name is an open tag", "{color:black>}<F3>{/color} Login", 20, 5, {"<F3> Login"}},
        {"unclosed brace swallows the rest", "abc{color:white def\nghi", 20, 5, {"abc"}},
        {"closing brace alone is text", "a}b", 10, 5, {"a}b"}},
        {"newline ends a line", "one\ntwo", 10, 5, {"one", "two"}},
        {"empty line kept", "one\n\nthree", 10, 5, {"one", "", "three"}},
        {"height cut", "1\n2\n3\n4", 10, 2, {"1", "2"}},
        {"wrap at last blank", "alpha beta gamma", 11, 5, {"alpha beta", "gamma"}},
        {"blank at the edge is the break", "abcde fgh", 5, 5, {"abcde", "fgh"}},
        {"word wider than the area is cut", "abcdefgh", 5, 5, {"abcde", "fgh"}},
        {"wrapped lines count for the height", "aa bb cc dd", 5, 2, {"aa bb", "cc dd"}},
        {"wrap stops at the height", "aa bb cc dd ee", 5, 2, {"aa bb", "cc dd"}},
        {"tab is one blank", "a\tb", 10, 5, {"a b"}},
        {"right align in width 10", "{align:right}ok{/align}", 10, 5, {"        ok"}},
        {"right align ignores tags in the length",
         "{align:right}{color:black}<Enter>{/color} OK{/align}",
         12,
         5,
         {"  <Enter> OK"}},
        {"centre rounds down", "{align:center}abc{/align}", 10, 5, {"   abc"}},
        {"left align pads nothing", "{align:left}abc{/align}d", 10, 5, {"abcd"}},
        {"unknown align argument acts as left", "{align:middle}abc{/align}d", 10, 5, {"abcd"}},
        {"padding makes a table",
         "{align:padding:20}Device Name{/align}{align:padding:10}Uplinks{/align}",
         40,
         5,
         {"Device Name         Uplinks   "}},
        {"padding counts from where the tag opened", "ab{align:padding:4}c{/align}d", 20, 5, {"abc   d"}},
        {"text longer than its padding runs on", "{align:padding:3}abcdef{/align}g", 20, 5, {"abcdefg"}},
        {"no nested align", "{align:padding:6}a{align:right}b{/align}c", 10, 5, {"ab    c"}},
        {"right align of each line across a break",
         "{align:right}ab\ncd{/align}",
         6,
         5,
         {"    ab", "    cd"}},
        {"right align after text on the line", "x{align:right}yz{/align}", 6, 5, {"x   yz"}},
        {"aligned text wider than the area is not padded",
         "{align:right}abcdefgh{/align}",
         5,
         5,
         {"abcde", "fgh"}},
        {"UTF-8 character is one cell", "\u2593\u2593 ok", 5, 5, {"\u2593\u2593 ok"}},
        {"nothing in a zero-sized area", "text", 0, 5, {}},
    };
    for (const PlainCase& c : cases)
        EXPECT_EQ(Plain(c.text, c.width, c.height), c.expected) << c.name;
}

TEST(MarkupLayout, PaddedColumnStartsWhereThePaddingEnds) {
    std::vector<Line> lines =
        Layout("{align:padding:20}Device Name{/align}{align:padding:10}Uplinks{/align}", 60, 1);
    ASSERT_EQ(lines.size(), 1u);
    std::string plain = PlainText(lines[0]);
    EXPECT_EQ(plain.find("Uplinks"), 20u);
}

struct StyleCase {
    const char* name;
    std::string text;
    int width;
    Line expected;
};

TEST(MarkupLayout, RunsCarryColours) {
    const StyleCase cases[] = {
        {"default colours are -1", "ab", 10, {{0, "ab", -1, -1}}},
        {"colour and back",
         "a{color:red}b{/color}c",
         10,
         {{0, "a", -1, -1}, {1, "b", 1, -1}, {2, "c", -1, -1}}},
        {"colours do not stack",
         "{color:red}a{color:yellow}b{/color}c",
         10,
         {{0, "a", 1, -1}, {1, "b", 3, -1}, {2, "c", -1, -1}}},
        {"unknown colour keeps the current one",
         "{color:red}a{color:black>}b{/color}c",
         10,
         {{0, "ab", 1, -1}, {2, "c", -1, -1}}},
        {"background and foreground together",
         "{bgcolor:white}{color:black}x{/color}{/bgcolor}y",
         10,
         {{0, "x", 0, 7}, {1, "y", -1, -1}}},
        {"closing colour keeps the background",
         "{bgcolor:dark-grey}{color:white}x{/color}y{/bgcolor}",
         10,
         {{0, "x", 7, 6}, {1, "y", -1, 6}}},
        {"all six names",
         "{color:white}a{color:black}b{color:dark-grey}c{color:light-grey}d{color:yellow}e"
         "{color:red}f",
         10,
         {{0, "a", 7, -1},
          {1, "b", 0, -1},
          {2, "c", 6, -1},
          {3, "d", 2, -1},
          {4, "e", 3, -1},
          {5, "f", 1, -1}}},
        {"padding blanks take the colour in force",
         "{color:red}{align:padding:3}a{/align}",
         10,
         {{0, "a  ", 1, -1}}},
    };
    for (const StyleCase& c : cases) {
        std::vector<Line> lines = Layout(c.text, c.width, 5);
        ASSERT_EQ(lines.size(), 1u) << c.name;
        EXPECT_EQ(lines[0], c.expected) << c.name;
    }
}

TEST(MarkupLayout, ColourSurvivesLineBreaksAndWrapping) {
    std::vector<Line> broken = Layout("{color:yellow}a\nb{/color}c", 10, 5);
    ASSERT_EQ(broken.size(), 2u);
    EXPECT_EQ(broken[1], (Line{{0, "b", 3, -1}, {1, "c", -1, -1}}));

    std::vector<Line> wrapped = Layout("{color:yellow}one two{/color} x", 4, 5);
    ASSERT_EQ(wrapped.size(), 3u);
    EXPECT_EQ(wrapped[0], (Line{{0, "one", 3, -1}}));
    EXPECT_EQ(wrapped[1], (Line{{0, "two", 3, -1}}));
    EXPECT_EQ(wrapped[2], (Line{{0, "x", -1, -1}}));
}

// Whatever the text, lines stay within the area; built from fragments that stress the tag and wrap rules.
TEST(MarkupLayout, HostileTextsStayInsideTheArea) {
    // clang-format off
    const std::vector<std::string> fragments{
        "{", "}", "{}", "{{", "}}", "{color:}", "{color:red}", "{/color}", "{bgcolor:nope}", "{/bgcolor}",
        "{align:right}", "{align:center}", "{align:padding:}", "{align:padding:-5}",
        "{align:padding:99999999999999999999}", "{align:padding:7}", "{/align}", "\n", " ", "\t", "word",
        "averyveryverylongword", "\u2593", "\xff",
    };
    // clang-format on
    unsigned seed = 12345;
    auto next = [&seed] { return seed = seed * 1103515245u + 12345u, (seed >> 16) & 0x7fff; };
    for (int round = 0; round < 2000; ++round) {
        std::string text;
        const unsigned pieces = next() % 12;
        for (unsigned i = 0; i < pieces; ++i)
            text += fragments[next() % fragments.size()];
        const int width = static_cast<int>(next() % 12) + 1;
        const int height = static_cast<int>(next() % 4) + 1;
        std::vector<Line> lines = Layout(text, width, height);
        ASSERT_LE(static_cast<int>(lines.size()), height) << text;
        for (const Line& line : lines) {
            int end = 0;
            for (const Markup::Run& run : line) {
                ASSERT_GE(run.column, end) << text;
                end = run.column + VisibleLength(run.text);
            }
            ASSERT_LE(end, width) << text << " in width " << width;
        }
    }
}

TEST(MarkupLayout, VisibleLengthAndColourNames) {
    EXPECT_EQ(VisibleLength("{color:white}<Esc>{/color} Log Out"), 13);
    EXPECT_EQ(VisibleLength("a{unclosed"), 1);
    EXPECT_EQ(VisibleLength("\u2588x"), 2);
    EXPECT_EQ(ColorNumber("light-grey"), 2);
    EXPECT_EQ(ColorNumber("grey"), -1);
}

} // namespace
} // namespace Tarn::Markup
