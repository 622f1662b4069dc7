// The harness's decoding on fixed byte streams, where the console tests would not notice a fault: the
// Linux palette sequences split across reads, reverse video and default colours, wide characters,
// screenshot colours and escaping, and key bytes of terminals the console is not run on.
#include "harness/Keys.h"
#include "harness/PaletteFilter.h"
#include "harness/Screen.h"
#include "harness/Screenshot.h"

#include <gtest/gtest.h>
#include <stdexcept>

namespace e2e {
namespace {

TEST(PaletteFilter, StripsLinuxSequencesAtEverySplitAndPassesLookalikesThrough) {
    std::vector<std::vector<int>> sets;
    int resets = 0;
    PaletteFilter f({[&](int i, uint8_t r, uint8_t g, uint8_t b) {
                         sets.push_back({i, r, g, b});
                     },
                     [&] { ++resets; }});
    const std::string stream = "ab\x1b]P3ffcc00cd\x1b]Rx\x1b[0m\x1b]0;title\x07";
    for (size_t cut = 0; cut <= stream.size(); ++cut) {
        SCOPED_TRACE(cut);
        sets.clear();
        resets = 0;
        std::string out = f.Feed(stream.substr(0, cut));
        EXPECT_EQ(out + f.Feed(stream.substr(cut)), "abcdx\x1b[0m\x1b]0;title\x07");
        EXPECT_EQ(sets, (std::vector<std::vector<int>>{{3, 0xff, 0xcc, 0x00}}));
        EXPECT_EQ(resets, 1);
    }
    // Not hex after "ESC ] P": not a palette sequence; a lone ESC at the end waits for its next byte.
    EXPECT_EQ(f.Feed("\x1b]Pxyz1234"), "\x1b]Pxyz1234");
    EXPECT_EQ(f.Feed("q\x1b"), "q");
    EXPECT_EQ(f.Feed("[A"), "\x1b[A");
}

TEST(Screen, DecodesReverseDefaultColoursPaletteAndWideCharacters) {
    Screen s(5, 20);
    s.Feed("\x1b[37;46mA\x1b[7;1;33;40mC\x1b[0mD\x1b]4;6;rgb:55/55/55\x1b\\");
    s.Feed("\r\n\xe6\x97\xa5 ok");
    EXPECT_EQ(s.CellAt(1, 0).fg.Index(), 0) << "reverse video shows the background colour as foreground";
    EXPECT_EQ(s.CellAt(1, 0).bg.Index(), 3);
    EXPECT_TRUE(s.CellAt(1, 0).bold);
    EXPECT_EQ(s.CellAt(2, 0).fg.Index(), -1);
    EXPECT_EQ(s.Resolve(s.CellAt(0, 0).bg), (Rgb{0x55, 0x55, 0x55}));
    s.Feed("\x1b]104\x07");
    EXPECT_TRUE(s.PaletteChanges().empty()) << "OSC 104 undoes it";
    EXPECT_EQ(s.CellAt(0, 1).width, 2);
    EXPECT_EQ(s.Find("ok"), (Pos{3, 1}));
}

TEST(Screenshot, SvgUsesTheProgramsPaletteAndEscapesText) {
    Screen s(1, 2);
    s.Feed("\x1b]4;1;rgb:ff/00/00\x1b\\\x1b[31m<&");
    const std::string svg = ScreenToSvg(s);
    EXPECT_NE(svg.find("fill=\"#ff0000\">&lt;</text>"), std::string::npos) << svg;
    EXPECT_NE(svg.find("&amp;"), std::string::npos);
}

TEST(Keys, FollowTheTerminfoOfEachTermWithThePcFormForMissingKeys) {
    EXPECT_EQ(KeyBytes("linux", "F1"), "\x1b[[A");
    EXPECT_EQ(KeyBytes("vt102", "F12"), "\x1b[24~");
    EXPECT_EQ(KeyBytes("", "F2"), KeyBytes("vt102", "F2"));
    EXPECT_THROW(KeyBytes("linux", "F13"), std::invalid_argument);
}

} // namespace
} // namespace e2e
