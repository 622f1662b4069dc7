// Start-up of the console: colours per TERM, the TERM rules, the VT argument and the pid-file rule.
#include "harness/Console.h"
#include "harness/Screenshot.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace e2e {
namespace {

// The root screen's key hint: present as soon as the first paint is complete.
constexpr const char* kReady = "<F2>";

TEST(Startup, RedefinesTheFiveColoursWhereTheTerminalAllowsIt) {
    Console c({.term = "xterm-256color"});
    ASSERT_TRUE(c->WaitForText(kReady)) << c->View().Text();
    const Screen& s = c->View();
    EXPECT_EQ(s.Palette(3), (Rgb{255, 204, 0}));
    EXPECT_EQ(s.Palette(6), (Rgb{85, 85, 85}));
    EXPECT_EQ(s.Palette(2), (Rgb{170, 170, 170}));
    EXPECT_EQ(s.Palette(7), (Rgb{255, 255, 255}));
    EXPECT_EQ(s.Palette(1), (Rgb{255, 0, 0}));
    std::vector<int> changed;
    for (const auto& [index, rgb] : s.PaletteChanges())
        changed.push_back(index);
    EXPECT_EQ(changed, (std::vector<int>{1, 2, 3, 6, 7})) << "colour 0 stays black";
    // Cells are painted with palette indices from the console's own set, never the terminal's defaults.
    auto hint = c->Find(kReady);
    ASSERT_TRUE(hint);
    Cell cell = c->CellAt(hint->col + 1, hint->row);
    const std::vector<int> own = {0, 1, 2, 3, 6, 7};
    EXPECT_NE(std::find(own.begin(), own.end(), cell.fg.Index()), own.end()) << cell.fg.Index();
    EXPECT_NE(std::find(own.begin(), own.end(), cell.bg.Index()), own.end()) << cell.bg.Index();
    EXPECT_NE(cell.fg.Index(), cell.bg.Index());
    SaveScreenshot(s, "startup-xterm-256color");
}

// The program's own setenv() does not show in /proc/PID/environ (that is the exec-time block), so the chosen
// TERM is observed through what the program writes: its first paint must be byte for byte the one it
// writes when started with that TERM.
std::string FirstPaint(std::optional<std::string> term) {
    Console c({.term = std::move(term)});
    EXPECT_TRUE(c->WaitForText(kReady)) << c->View().Text();
    EXPECT_TRUE(c->WaitQuiet(100ms));
    EXPECT_TRUE(c->View().PaletteChanges().empty()) << "vt102 cannot redefine colours";
    return c->Output();
}

TEST(Startup, LinuxOrNoTermOnANonConsoleTerminalBecomesVt102) {
    const std::string vt102 = FirstPaint("vt102");
    ASSERT_FALSE(vt102.empty());
    EXPECT_EQ(FirstPaint("linux"), vt102);
    EXPECT_EQ(FirstPaint(std::nullopt), vt102);
    EXPECT_EQ(vt102.find("\x1b]P"), std::string::npos) << "no Linux palette sequences";
}

TEST(Startup, InvalidTerminalNumberIsLoggedAndIgnored) {
    for (std::string arg : {"0", "64", "tty2"}) {
        SCOPED_TRACE(arg);
        Console c({.args = {arg}});
        ASSERT_TRUE(c->WaitForText(kReady));
        EXPECT_EQ(c.Host().SyslogMatching("Invalid VT specified for TARN: " + arg).size(), 1u);
        EXPECT_TRUE(c->Running());
    }
}

TEST(PidFile, HoldsTheOwnPidAndReplacesStaleContent) {
    // A pid that surely belongs to no process: a child that has been reaped.
    pid_t dead = fork();
    if (dead == 0)
        _exit(0);
    waitpid(dead, nullptr, 0);
    for (const std::string& stale : std::vector<std::string>{"", "0", "-5", "junk", std::to_string(dead)}) {
        SCOPED_TRACE("pid file held '" + stale + "'");
        SimHost host;
        if (!stale.empty())
            host.WriteFile("var/run/tarn.pid", stale);
        Console c(host, {});
        ASSERT_TRUE(c->WaitForText(kReady));
        EXPECT_EQ(host.PidFile(), std::to_string(c->Pid()));
        EXPECT_TRUE(host.SyslogMatching("Attempt to run multiple TARN instances").empty());
    }
}

TEST(PidFile, LiveForeignPidIsKeptAndReported) {
    SimHost host;
    const std::string other = std::to_string(getpid()); // alive for as long as this test runs
    host.WriteFile("var/run/tarn.pid", other);
    Console c(host, {});
    ASSERT_TRUE(c->WaitForText(kReady));
    EXPECT_TRUE(c->Running()) << "a second instance still runs";
    EXPECT_EQ(host.PidFile(), other);
    auto lines = host.SyslogMatching("Attempt to run multiple TARN instances, not updating " +
                                     host.Path("var/run/tarn.pid"));
    EXPECT_EQ(lines.size(), 1u) << host.ReadFile("var/log/syslog.log");
}

} // namespace
} // namespace e2e
