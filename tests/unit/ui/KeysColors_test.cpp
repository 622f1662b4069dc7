// The key table as curses decodes it, and the colour pairs and attributes, on real curses screens fed from
// a pipe (no terminal needed).
#include "core/Colors.h"
#include "core/EventLoop.h"
#include "core/Keys.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <curses.h>
#include <set>
#include <unistd.h>

namespace Tarn {
namespace {

// A curses screen of the given terminal type whose input is a pipe the test writes to.
class PipeScreen {
public:
    explicit PipeScreen(const char* term) {
        if (pipe(fds_) != 0)
            return;
        in_ = fdopen(fds_[0], "r");
        out_ = std::fopen("/dev/null", "w");
        screen_ = newterm(term, out_, in_);
        if (screen_ == nullptr)
            return;
        set_term(screen_);
        cbreak();
        noecho();
        keypad(stdscr, TRUE);
    }
    ~PipeScreen() {
        if (screen_ != nullptr) {
            endwin();
            delscreen(screen_);
        }
        if (in_ != nullptr)
            std::fclose(in_);
        else if (fds_[0] >= 0)
            close(fds_[0]);
        if (fds_[1] >= 0)
            close(fds_[1]);
        if (out_ != nullptr)
            std::fclose(out_);
    }
    bool Ok() const { return screen_ != nullptr; }
    int Decode(const std::string& bytes) {
        if (write(fds_[1], bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
            return ERR;
        wtimeout(stdscr, 1000);
        return wgetch(stdscr);
    }

private:
    int fds_[2] = {-1, -1};
    FILE* in_ = nullptr;
    FILE* out_ = nullptr;
    SCREEN* screen_ = nullptr;
};

TEST(KeyTable, ShapeOfTheTable) {
    const auto& table = KeyTable();
    EXPECT_EQ(table.size(), 68u);
    EXPECT_EQ(table.front().sequence, "\033R");
    EXPECT_EQ(table.front().key, KEY_RESIZE);
    EXPECT_EQ(table.back().sequence, "\177");
    EXPECT_EQ(table.back().key, KEY_BACKSPACE);
    std::set<std::string> seen;
    for (const KeyBinding& b : table) {
        EXPECT_TRUE(seen.insert(b.sequence).second) << "duplicate sequence";
        // The ESC O series never reaches F10 or F11.
        if (b.sequence.size() == 3 && b.sequence.compare(0, 2, "\033O") == 0) {
            EXPECT_NE(b.key, KEY_F(10));
            EXPECT_NE(b.key, KEY_F(11));
        }
    }
}

TEST(KeyTable, CursesDecodesTheRegisteredSequences) {
    struct {
        const char* bytes;
        int key;
    } cases[] = {
        {"\033OY", KEY_F(12)},
        {"\033OX", KEY_F(9)},
        {"\033OP", KEY_F(1)},
        {"\033[11~", KEY_F(1)},
        {"\033[24~", KEY_F(12)},
        {"\033[23~", KEY_F(11)},
        {"\0331", KEY_F(1)},
        {"\0330", KEY_F(10)},
        {"\033!", KEY_F(11)},
        {"\033@", KEY_F(12)},
        {"\033[X", KEY_F(12)},
        {"\033[N", KEY_F(2)},
        {"\033h", KEY_HOME},
        {"\033k", KEY_END},
        {"\033+", KEY_IC},
        {"\033-", KEY_DC},
        {"\033?", KEY_PPAGE},
        {"\033/", KEY_NPAGE},
        {"\033OA", KEY_UP},
        {"\033[D", KEY_LEFT},
        {"\033[2~", KEY_IC},
        {"\033[3~", KEY_DC},
        {"\033[1~", KEY_HOME},
        {"\033[4~", KEY_END},
        {"\033[5~", KEY_PPAGE},
        {"\033[6~", KEY_NPAGE},
        {"\177", KEY_BACKSPACE},
        {"\033R", KEY_RESIZE},
        {"a", 'a'},
        {"\n", 10},
    };
    for (const char* term : {"linux", "vt102", "xterm"}) {
        SCOPED_TRACE(term);
        PipeScreen screen(term);
        ASSERT_TRUE(screen.Ok());
        DefineKeys();
        for (const auto& c : cases) {
            SCOPED_TRACE(testing::PrintToString(std::string(c.bytes)));
            EXPECT_EQ(screen.Decode(c.bytes), c.key);
        }
    }
}

TEST(Colors, PairsOnAConsoleThatRedefinesColours) {
    for (const char* term : {"linux", "xterm-256color"}) {
        SCOPED_TRACE(term);
        PipeScreen screen(term);
        ASSERT_TRUE(screen.Ok());
        start_color();
        InitColors();
        EXPECT_FALSE(Monochrome());
        for (int background : kConsoleColors) {
            for (int foreground : kConsoleColors) {
                int pair = PAIR_NUMBER(ColorAttr(background, foreground));
                // TERM=linux has 64 pairs: white on white (pair 64) is refused, and is never drawn.
                if (pair >= COLOR_PAIRS)
                    continue;
                short f = -1, b = -1;
                ASSERT_EQ(pair_content(static_cast<short>(pair), &f, &b), OK);
                EXPECT_EQ(f, foreground);
                EXPECT_EQ(b, background);
            }
        }
        short r, g, b;
        color_content(3, &r, &g, &b);
        EXPECT_EQ(r, 1000);
        EXPECT_EQ(g, 800);
        EXPECT_EQ(b, 0);
    }
}

TEST(Colors, PairNumbers) {
    EXPECT_EQ(ColorPairNumber(0, 7, 8), 8);
    EXPECT_EQ(ColorPairNumber(6, 7, 8), 56);
    EXPECT_EQ(ColorPairNumber(3, 0, 8), 25);
    EXPECT_EQ(ColorPairNumber(3, 0, 16), 49);
    // Many-colour terminals keep every pair inside the attribute's eight bits.
    EXPECT_EQ(ColorPairNumber(7, 7, 256), 120);
}

TEST(Colors, MonochromeWhenColoursCannotBeRedefined) {
    PipeScreen screen("xterm");
    ASSERT_TRUE(screen.Ok());
    start_color();
    InitColors();
    EXPECT_TRUE(Monochrome());
    EXPECT_EQ(ColorAttr(0, 7), A_STANDOUT);
    EXPECT_EQ(ColorAttr(6, 3), A_STANDOUT);
    EXPECT_EQ(ColorAttr(3, 0), A_NORMAL);
    EXPECT_EQ(ColorAttr(7, 0), A_NORMAL);
}

} // namespace
} // namespace Tarn
