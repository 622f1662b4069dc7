// The harness driving a real curses program (the benchmark's reference): what the console tests take on
// trust — the exact environment, waits that give up, and the terminal state they compare against.
#include "harness/Paths.h"
#include "harness/Terminal.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>

namespace e2e {
namespace {

LaunchOptions Launch(const std::string& program, std::optional<std::string> term,
                     std::map<std::string, std::optional<std::string>> env = {}) {
    return {.program = program, .args = {}, .term = std::move(term), .env = std::move(env)};
}

TEST(Reference, EnvironmentIsExactlyTheOneGiven) {
    Terminal t(Launch(BuildDir() + "/bench_reference", "vt102", {{"EXTRA", "1"}, {"HOME", std::nullopt}}));
    ASSERT_TRUE(t.WaitForText("Reference console"));
    std::ifstream in("/proc/" + std::to_string(t.Pid()) + "/environ", std::ios::binary);
    std::vector<std::string> env;
    for (std::string entry; std::getline(in, entry, '\0');)
        env.push_back(entry);
    std::ranges::sort(env);
    EXPECT_EQ(env, (std::vector<std::string>{"ESCDELAY=25", "EXTRA=1", "LANG=C.UTF-8", "PATH=/usr/bin:/bin",
                                             "TERM=vt102"}));
    // Unset TERM is absent, not empty; LINES never leaks in.
    Terminal e(Launch("/usr/bin/env", std::nullopt, {{"LINES", "99"}}));
    ASSERT_TRUE(e.WaitExit());
    EXPECT_EQ(e.Output().find("TERM="), std::string::npos) << e.Output();
    EXPECT_EQ(e.Output().find("LINES="), std::string::npos) << e.Output();
}

TEST(Reference, WaitsGiveUpAndTheTerminalStateIsSeenBeforeAndAfterExit) {
    Terminal t(Launch(BuildDir() + "/bench_reference", "xterm-256color"));
    ASSERT_TRUE(t.WaitForText("Reference console"));
    const auto t0 = Clock::now();
    EXPECT_FALSE(t.WaitForText("never shown", 200ms));
    EXPECT_GE(Clock::now() - t0, 200ms);
    EXPECT_LT(Clock::now() - t0, 2s);
    EXPECT_FALSE(t.WaitExit(100ms));
    EXPECT_TRUE(t.View().AltScreen());
    EXPECT_FALSE(t.View().CursorVisible());
    EXPECT_EQ(t.Modes().c_lflag & (ICANON | ECHO), 0u);
    t.Type("q");
    auto status = t.WaitExit();
    ASSERT_TRUE(status);
    EXPECT_TRUE(status->exited && status->code == 0) << status->Describe();
    EXPECT_GT(status->usage.ru_maxrss, 0);
    EXPECT_FALSE(t.View().AltScreen());
    EXPECT_TRUE(t.View().CursorVisible());
    EXPECT_EQ(t.Modes().c_lflag & (ICANON | ECHO), tcflag_t(ICANON | ECHO));
}

} // namespace
} // namespace e2e
