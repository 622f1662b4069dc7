// The harness driving a real curses program (the benchmark's reference) in a pseudo-terminal: start-up,
// colours and palette per TERM, keys, resize, environment, exit and terminal restoration, screenshots.
#include "harness/Paths.h"
#include "harness/Screenshot.h"
#include "harness/Terminal.h"

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace e2e {
namespace {

LaunchOptions Reference(std::optional<std::string> term, int rows = 30, int cols = 100) {
    LaunchOptions o;
    o.program = BuildDir() + "/bench_reference";
    o.term = std::move(term);
    o.rows = rows;
    o.cols = cols;
    return o;
}

std::vector<std::string> Environ(pid_t pid) {
    std::ifstream in("/proc/" + std::to_string(pid) + "/environ", std::ios::binary);
    std::vector<std::string> out;
    for (std::string entry; std::getline(in, entry, '\0');)
        out.push_back(entry);
    return out;
}

// The amber the reference (like the console) puts into colour 3.
const Rgb kAmber{255, 204, 0};

TEST(Reference, PaintsWithRedefinedPaletteOnEachColourTerm) {
    for (std::string term : {"linux", "xterm-256color"}) {
        SCOPED_TRACE(term);
        Terminal t(Reference(term));
        ASSERT_TRUE(t.WaitForText("Reference console")) << t.View().Text();
        ASSERT_TRUE(t.WaitForText("<Enter>"));
        EXPECT_EQ(t.View().Palette(3), kAmber);
        EXPECT_EQ(t.View().PaletteChanges().size(), 5u);
        // Title: white on dark grey.
        Cell title = t.CellAt(3, 1);
        EXPECT_EQ(title.text, "R");
        EXPECT_EQ(title.fg.Index(), 7);
        EXPECT_EQ(title.bg.Index(), 6);
        // Footer label drawn reverse + bold on black-on-amber: the user sees amber on black.
        auto label = t.Find("<Enter>");
        ASSERT_TRUE(label);
        EXPECT_EQ(label->row, 28);
        Cell c = t.CellAt(label->col, label->row);
        EXPECT_TRUE(c.reverse);
        EXPECT_TRUE(c.bold);
        EXPECT_EQ(c.fg.Index(), 3);
        EXPECT_EQ(c.bg.Index(), 0);
        // A wide character takes two columns: the text after it sits where the columns say.
        auto wide = t.Find("Wide: \xe6\x97\xa5\xe6\x9c\xac");
        ASSERT_TRUE(wide);
        EXPECT_EQ(t.CellAt(wide->col + 6, wide->row).width, 2);
    }
}

TEST(Reference, MonochromeTermHasNoPaletteChanges) {
    Terminal t(Reference("vt102"));
    ASSERT_TRUE(t.WaitForText("Reference console"));
    EXPECT_TRUE(t.View().PaletteChanges().empty());
}

TEST(Reference, EnvironmentIsExactlyTheOneGiven) {
    LaunchOptions o = Reference("vt102");
    o.env["EXTRA"] = "1";
    o.env["HOME"] = std::nullopt;
    Terminal t(o);
    ASSERT_TRUE(t.WaitForText("Reference console"));
    std::vector<std::string> env = Environ(t.Pid());
    std::sort(env.begin(), env.end());
    EXPECT_EQ(env, (std::vector<std::string>{"ESCDELAY=25", "EXTRA=1", "LANG=C.UTF-8", "PATH=/usr/bin:/bin",
                                             "TERM=vt102"}));
    // Unset TERM is absent, not empty; LINES and COLUMNS never leak in.
    LaunchOptions bare;
    bare.program = "/usr/bin/env";
    bare.term = std::nullopt;
    bare.env["LINES"] = "99";
    Terminal e(bare);
    ASSERT_TRUE(e.WaitExit());
    EXPECT_EQ(e.Output().find("TERM="), std::string::npos) << e.Output();
    EXPECT_EQ(e.Output().find("LINES="), std::string::npos) << e.Output();
    EXPECT_NE(e.Output().find("LANG=C.UTF-8"), std::string::npos) << e.Output();
}

TEST(Reference, KeysArriveAsCursesDecodesThemPerTerm) {
    for (std::string term : {"linux", "xterm-256color", "vt102"}) {
        SCOPED_TRACE(term);
        Terminal t(Reference(term));
        ASSERT_TRUE(t.WaitForText("Reference console"));
        t.Key("Down");
        EXPECT_TRUE(t.WaitForText("Keys: 1, last KEY_DOWN")) << t.Row(2);
        t.Key("F1");
        EXPECT_TRUE(t.WaitForText("Keys: 2, last KEY_F(1)")) << t.Row(2);
        t.Key("Enter");
        EXPECT_TRUE(t.WaitForText("Keys: 3, last ^J")) << t.Row(2);
        // A lone Esc comes through after ESCDELAY (25 ms), not after curses' default second.
        auto sent = Clock::now();
        t.Key("Esc");
        EXPECT_TRUE(t.WaitForText("Keys: 4, last ^[", 900ms)) << t.Row(2);
        EXPECT_LT(Clock::now() - sent, 900ms);
        t.Type("q");
        auto status = t.WaitExit();
        ASSERT_TRUE(status);
        EXPECT_TRUE(status->exited);
        EXPECT_EQ(status->code, 0);
    }
}

TEST(Reference, ExitRestoresTheTerminal) {
    Terminal t(Reference("xterm-256color"));
    ASSERT_TRUE(t.WaitForText("Reference console"));
    EXPECT_TRUE(t.View().AltScreen());
    EXPECT_FALSE(t.View().CursorVisible());
    EXPECT_EQ(t.Modes().c_lflag & (ICANON | ECHO), 0u);
    t.Type("q");
    ASSERT_TRUE(t.WaitExit());
    EXPECT_FALSE(t.View().AltScreen());
    EXPECT_TRUE(t.View().CursorVisible());
    EXPECT_EQ(t.Modes().c_lflag & (ICANON | ECHO), tcflag_t(ICANON | ECHO));
    EXPECT_FALSE(t.View().Contains("Reference console"));
}

TEST(Reference, SignalAndResizeAreDelivered) {
    Terminal t(Reference("linux"));
    ASSERT_TRUE(t.WaitForText("<Enter>"));
    // A SIGWINCH that comes while curses is still between its paint and its first getch() is not turned
    // into KEY_RESIZE: let the program settle into its key wait first.
    ASSERT_TRUE(t.WaitQuiet(100ms));
    t.Resize(20, 60);
    EXPECT_TRUE(t.WaitForText("last KEY_RESIZE")) << t.View().Text();
    EXPECT_EQ(t.View().Cols(), 60);
    t.Signal(SIGTERM);
    auto status = t.WaitExit();
    ASSERT_TRUE(status);
    EXPECT_FALSE(status->exited && status->code == 0) << status->Describe();
    EXPECT_GT(status->usage.ru_maxrss, 0);
}

TEST(Reference, WaitsTimeOutWithoutHanging) {
    Terminal t(Reference("linux"));
    auto t0 = Clock::now();
    EXPECT_FALSE(t.WaitForText("never shown", 200ms));
    EXPECT_GE(Clock::now() - t0, 200ms);
    EXPECT_LT(Clock::now() - t0, 2s);
    EXPECT_TRUE(t.WaitQuiet(50ms));
    EXPECT_FALSE(t.WaitExit(100ms));
    EXPECT_TRUE(t.Running());
}

TEST(Reference, ScreenshotWritesSvgAndPng) {
    Terminal t(Reference("xterm-256color", 25, 80));
    ASSERT_TRUE(t.WaitForText("<Enter>"));
    ScreenshotFiles files = SaveScreenshot(t.View(), "selftest-reference");
    EXPECT_TRUE(std::filesystem::file_size(files.svg) > 10000);
    ASSERT_FALSE(files.png.empty()) << "rsvg-convert failed";
    std::ifstream png(files.png, std::ios::binary);
    char magic[4] = {};
    png.read(magic, 4);
    EXPECT_EQ(std::string(magic + 1, 3), "PNG");
    // Dark grey as the program defined it, not libvterm's default colour 6.
    std::ifstream svg(files.svg);
    std::stringstream text;
    text << svg.rdbuf();
    EXPECT_NE(text.str().find("#555555"), std::string::npos);
}

} // namespace
} // namespace e2e
