// The harness's decoding on fixed byte streams: palette sequences, colours, reverse video, wide characters,
// and key bytes per TERM.
#include "harness/Keys.h"
#include "harness/PaletteFilter.h"
#include "harness/Screen.h"
#include "harness/Screenshot.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <vector>

namespace e2e {
namespace {

struct Recorded {
    std::vector<std::vector<int>> sets;
    int resets = 0;
    PaletteFilter Filter() {
        return PaletteFilter({[this](int i, uint8_t r, uint8_t g, uint8_t b) {
                                  sets.push_back({i, r, g, b});
                              },
                              [this] { ++resets; }});
    }
};

TEST(PaletteFilter, StripsLinuxSequencesEvenWhenSplitAcrossReads) {
    Recorded rec;
    PaletteFilter f = rec.Filter();
    std::string out;
    const std::string stream = "ab\x1b]P3ffcc00cd\x1b]Rx\x1b[0m\x1b]0;title\x07";
    // Every split point must give the same result as one read.
    for (size_t cut = 0; cut <= stream.size(); ++cut) {
        rec.sets.clear();
        rec.resets = 0;
        out = f.Feed(stream.substr(0, cut));
        out += f.Feed(stream.substr(cut));
        EXPECT_EQ(out, "abcdx\x1b[0m\x1b]0;title\x07") << "cut at " << cut;
        ASSERT_EQ(rec.sets.size(), 1u) << "cut at " << cut;
        EXPECT_EQ(rec.sets[0], (std::vector<int>{3, 0xff, 0xcc, 0x00}));
        EXPECT_EQ(rec.resets, 1);
    }
}

TEST(PaletteFilter, PassesLookalikesThrough) {
    Recorded rec;
    PaletteFilter f = rec.Filter();
    // Not hex after "ESC ] P": not a palette sequence; a lone ESC at the end waits for its next byte.
    EXPECT_EQ(f.Feed("\x1b]Pxyz1234"), "\x1b]Pxyz1234");
    EXPECT_EQ(f.Feed("q\x1b"), "q");
    EXPECT_EQ(f.Feed("[A"), "\x1b[A");
    EXPECT_TRUE(rec.sets.empty());
}

TEST(Screen, DecodesColoursReverseBoldAndPalette) {
    Screen s(5, 20);
    // fg 7 on bg 6, then reverse + bold with fg 3 on bg 0, then OSC 4 redefining colour 6.
    s.Feed("\x1b[37;46mAB\x1b[7;1;33;40mC\x1b[0mD");
    s.Feed("\x1b]4;6;rgb:55/55/55\x1b\\");
    Cell a = s.CellAt(0, 0);
    EXPECT_EQ(a.text, "A");
    EXPECT_EQ(a.fg.Index(), 7);
    EXPECT_EQ(a.bg.Index(), 6);
    EXPECT_FALSE(a.reverse);
    Cell c = s.CellAt(2, 0);
    EXPECT_TRUE(c.reverse);
    EXPECT_TRUE(c.bold);
    EXPECT_EQ(c.fg.Index(), 0) << "reverse video shows the background colour as foreground";
    EXPECT_EQ(c.bg.Index(), 3);
    Cell d = s.CellAt(3, 0);
    EXPECT_EQ(d.fg.Index(), -1);
    EXPECT_EQ(d.fg.kind, Color::Kind::DefaultFg);
    EXPECT_EQ(s.Palette(6), (Rgb{0x55, 0x55, 0x55}));
    ASSERT_EQ(s.PaletteChanges().size(), 1u);
    EXPECT_EQ(s.Resolve(a.bg), (Rgb{0x55, 0x55, 0x55}));
    // OSC 104 undoes it.
    s.Feed("\x1b]104\x07");
    EXPECT_TRUE(s.PaletteChanges().empty());
    EXPECT_NE(s.Palette(6), (Rgb{0x55, 0x55, 0x55}));
}

TEST(Screen, LinuxPaletteSequenceDoesNotSwallowText) {
    Screen s(3, 20);
    s.Feed("\x1b]P1ff0000");
    s.Feed("visible");
    EXPECT_EQ(s.Row(0).substr(0, 7), "visible");
    EXPECT_EQ(s.Palette(1), (Rgb{0xff, 0, 0}));
}

TEST(Screen, WideCharactersTakeTwoCellsAndFindCountsColumns) {
    Screen s(3, 20);
    s.Feed("\xe6\x97\xa5\xe6\x9c\xac ok");
    EXPECT_EQ(s.CellAt(0, 0).text, "\xe6\x97\xa5");
    EXPECT_EQ(s.CellAt(0, 0).width, 2);
    auto pos = s.Find("ok");
    ASSERT_TRUE(pos);
    EXPECT_EQ(*pos, (Pos{5, 0}));
    EXPECT_EQ(s.Text().substr(0, 9), "\xe6\x97\xa5\xe6\x9c\xac ok");
    EXPECT_FALSE(s.Find("missing"));
}

TEST(Screen, ResizeKeepsContentAndChangesGeometry) {
    Screen s(4, 10);
    s.Feed("\x1b[2;3Hxy");
    s.Resize(6, 12);
    EXPECT_EQ(s.Rows(), 6);
    EXPECT_EQ(s.Cols(), 12);
    EXPECT_EQ(*s.Find("xy"), (Pos{2, 1}));
}

TEST(Screenshot, SvgHasOneRectAndTextPerCellInPaletteColours) {
    Screen s(2, 4);
    s.Feed("\x1b]4;1;rgb:ff/00/00\x1b\\\x1b[31m<&\x1b[0m");
    std::string svg = ScreenToSvg(s);
    size_t rects = 0, texts = 0;
    for (size_t at = 0; (at = svg.find("<rect", at)) != std::string::npos; ++at)
        ++rects;
    for (size_t at = 0; (at = svg.find("<text", at)) != std::string::npos; ++at)
        ++texts;
    EXPECT_EQ(rects, 8u);
    EXPECT_EQ(texts, 8u);
    EXPECT_NE(svg.find("fill=\"#ff0000\">&lt;</text>"), std::string::npos);
    EXPECT_NE(svg.find("&amp;"), std::string::npos);
}

TEST(Keys, FollowTheTerminfoOfEachTerm) {
    EXPECT_EQ(KeyBytes("xterm-256color", "F1"), "\x1bOP");
    EXPECT_EQ(KeyBytes("xterm-256color", "F12"), "\x1b[24~");
    EXPECT_EQ(KeyBytes("linux", "F1"), "\x1b[[A");
    EXPECT_EQ(KeyBytes("linux", "Backspace"), "\x7f");
    EXPECT_EQ(KeyBytes("vt102", "F1"), "\x1bOP");
    // vt102 defines no F12: the PC keyboard form; TERM unset means vt102.
    EXPECT_EQ(KeyBytes("vt102", "F12"), "\x1b[24~");
    EXPECT_EQ(KeyBytes("", "F2"), KeyBytes("vt102", "F2"));
    EXPECT_EQ(KeyBytes("linux", "Enter"), "\n");
    EXPECT_EQ(KeyBytes("linux", "Esc"), "\x1b");
    EXPECT_THROW(KeyBytes("linux", "F13"), std::invalid_argument);
    EXPECT_THROW(KeyBytes("no-such-terminal", "F1"), std::invalid_argument);
}

} // namespace
} // namespace e2e
