// Start-up decisions (terminal type, pid-file single-instance rule; the VT argument is fuzz_vt_argument's)
// and the deadline arithmetic of GetKey (dimming, idle time-out, wait lengths, the time-out option) with an
// injected clock.
#include "core/IdleDeadline.h"
#include "core/StartupRules.h"
#include "platform/AdvancedOptions.h"
#include "support/TestHost.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>

namespace Tarn {
namespace {

TEST(StartupRules, TerminalType) {
    const struct {
        bool linuxConsole;
        const char* term;
        bool ssh;
        const char* expectTerm;
        bool expectLocal;
    } cases[] = {
        {true, "xterm", false, "linux", true},   {true, nullptr, false, "linux", true},
        {false, "linux", false, "vt102", false}, {false, nullptr, false, "vt102", false},
        {false, "xterm", false, "xterm", true},  {false, "xterm", true, "xterm", false},
        {false, "linux", true, "vt102", false},  {false, "xterm-256color", false, "xterm-256color", false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message()
                     << c.linuxConsole << ' ' << (c.term ? c.term : "(unset)") << ' ' << c.ssh);
        TerminalChoice choice = ChooseTerminalType(c.linuxConsole, c.term, c.ssh);
        EXPECT_EQ(choice.term, c.expectTerm);
        EXPECT_EQ(choice.localConsole, c.expectLocal);
    }
}

TEST(StartupRules, PidFileIsOverwrittenUnlessItNamesAnotherLiveProcess) {
    TestHost dir(TestHost::Layout::Empty);
    const std::string path = dir.Path("/tarn.pid");
    const pid_t dead = fork();
    if (dead == 0)
        _exit(0);
    waitpid(dead, nullptr, 0);
    const std::string live = std::to_string(getpid());
    const struct {
        const char* content; // nullptr: no file
        std::string holder;
        pid_t self;
        PidFileOutcome outcome;
        std::string after;
    } cases[] = {
        {nullptr, "", 77, PidFileOutcome::Claimed, "77"},
        {"", "", 4242, PidFileOutcome::Claimed, "4242"},
        {"garbage", "", 4242, PidFileOutcome::Claimed, "4242"},
        {"0", "", 4242, PidFileOutcome::Claimed, "4242"},
        {"-17", "", 4242, PidFileOutcome::Claimed, "4242"},
        {"", std::to_string(dead), 4242, PidFileOutcome::Claimed, "4242"},
        {"", live, 4242, PidFileOutcome::OtherInstance, live},
        {"", live + "\n", 4242, PidFileOutcome::OtherInstance, live + "\n"},
        {"", live, getpid(), PidFileOutcome::Claimed, live}, // its own pid is not another instance
    };
    for (const auto& c : cases) {
        std::remove(path.c_str());
        if (c.content != nullptr)
            std::ofstream(path) << c.content << c.holder;
        SCOPED_TRACE(c.content ? std::string("'") + c.content + c.holder + "'" : std::string("no file"));
        EXPECT_EQ(ClaimPidFile(path, c.self), c.outcome);
        EXPECT_EQ(dir.Read("/tarn.pid"), c.after);
    }
    EXPECT_EQ(ClaimPidFile(dir.Path("/missing/tarn.pid"), 77), PidFileOutcome::Claimed)
        << "an unwritable place is silent";
}

using Clock = IdleDeadline::Clock;
using std::chrono::seconds;
const Clock::time_point t0 = Clock::time_point() + std::chrono::hours(1);

TEST(IdleDeadline, TimeoutInForceAndWhenItFires) {
    const struct {
        unsigned configured;
        bool useIdleTimeout;
        int firesAfter; // seconds; 0: never
    } cases[] = {{600, true, 600}, {30, true, 60}, {60, true, 60}, {0, true, 0}, {600, false, 0}};
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message()
                     << c.configured << (c.useIdleTimeout ? "" : " without idle time-out"));
        IdleDeadline d(t0, c.configured, c.useIdleTimeout);
        EXPECT_EQ(d.TimeoutInForce(), c.firesAfter != 0);
        if (c.firesAfter != 0) {
            EXPECT_FALSE(d.Expired(t0 + seconds(c.firesAfter) - std::chrono::milliseconds(1)));
            EXPECT_TRUE(d.Expired(t0 + seconds(c.firesAfter)));
        } else {
            EXPECT_FALSE(d.Expired(t0 + std::chrono::hours(24)));
        }
        // Dimming comes once, after 60 s, whatever the time-out.
        EXPECT_FALSE(d.DimDue(t0 + seconds(59)));
        EXPECT_TRUE(d.DimDue(t0 + seconds(60)));
        d.MarkDimmed();
        EXPECT_FALSE(d.DimDue(t0 + seconds(120)));
    }
}

TEST(IdleDeadline, WaitsUntilTheNextDeadlineOnly) {
    IdleDeadline withTimeout(t0, 900, true);
    EXPECT_EQ(withTimeout.WaitTime(t0 + seconds(10)), Clock::duration(seconds(50))) << "until dimming";
    withTimeout.MarkDimmed();
    EXPECT_EQ(withTimeout.WaitTime(t0 + seconds(61)), Clock::duration(seconds(839))) << "until the time-out";
    EXPECT_EQ(withTimeout.WaitTime(t0 + seconds(1000)), Clock::duration::zero()) << "never negative";
    // Without a time-out, a dimmed window waits for ever: no periodic wake-ups while idle.
    IdleDeadline without(t0, 0, true);
    EXPECT_EQ(without.WaitTime(t0), Clock::duration(seconds(60)));
    without.MarkDimmed();
    EXPECT_FALSE(without.WaitTime(t0 + seconds(60)).has_value());

    // Waits round up to whole milliseconds.
    const timeval a = ToTimeval(std::chrono::microseconds(1)),
                  b = ToTimeval(std::chrono::milliseconds(59999));
    EXPECT_EQ(a.tv_sec * 1000000 + a.tv_usec, 1000);
    EXPECT_EQ(b.tv_sec * 1000000 + b.tv_usec, 59999000);
    EXPECT_EQ(ToTimeval(Clock::duration::zero()).tv_usec, 0);
}

TEST(IdleDeadline, TimeoutFromOption) {
    HostCtl::Adv::AdvancedIntegerOption thirty("/UserVars/TarnTimeOut", 30);
    HostCtl::Adv::AdvancedIntegerOption zero("/UserVars/TarnTimeOut", 0);
    HostCtl::Adv::AdvancedStringOption text("/UserVars/TarnTimeOut", "30");
    EXPECT_EQ(IdleTimeoutFromOption(nullptr), 600u);
    EXPECT_EQ(IdleTimeoutFromOption(&thirty), 30u);
    EXPECT_EQ(IdleTimeoutFromOption(&zero), 0u);
    EXPECT_EQ(IdleTimeoutFromOption(&text), 600u);
}

} // namespace
} // namespace Tarn
