// Deadline arithmetic of GetKey: dimming, idle time-out, wait lengths, and the time-out option value.
#include "core/IdleDeadline.h"

#include "platform/AdvancedOptions.h"

#include <gtest/gtest.h>

namespace Tarn {
namespace {
using Clock = IdleDeadline::Clock;
using std::chrono::seconds;

const Clock::time_point t0 = Clock::time_point() + std::chrono::hours(1);

struct TimeoutCase {
    const char* name;
    unsigned configured;
    bool useIdleTimeout;
    bool inForce;
    int firesAfter; // seconds; ignored when not in force
};

TEST(IdleDeadline, TimeoutInForceAndWhenItFires) {
    const TimeoutCase cases[] = {
        {"default", 600, true, true, 600},         {"below a minute counts as a minute", 30, true, true, 60},
        {"exactly a minute", 60, true, true, 60},  {"zero disables", 0, true, false, 0},
        {"fifteen minutes", 900, true, true, 900}, {"caller without idle time-out", 600, false, false, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        IdleDeadline d(t0, c.configured, c.useIdleTimeout);
        EXPECT_EQ(d.TimeoutInForce(), c.inForce);
        if (c.inForce) {
            EXPECT_FALSE(d.Expired(t0 + seconds(c.firesAfter) - std::chrono::milliseconds(1)));
            EXPECT_TRUE(d.Expired(t0 + seconds(c.firesAfter)));
        } else {
            EXPECT_FALSE(d.Expired(t0 + std::chrono::hours(24)));
        }
    }
}

TEST(IdleDeadline, DimsOnceAfterSixtySecondsEvenWithoutTimeout) {
    for (unsigned configured : {0u, 30u, 600u}) {
        SCOPED_TRACE(configured);
        IdleDeadline d(t0, configured, true);
        EXPECT_FALSE(d.DimDue(t0 + seconds(59)));
        EXPECT_TRUE(d.DimDue(t0 + seconds(60)));
        d.MarkDimmed();
        EXPECT_TRUE(d.Dimmed());
        EXPECT_FALSE(d.DimDue(t0 + seconds(120)));
    }
}

TEST(IdleDeadline, WaitsUntilTheNextDeadlineOnly) {
    // Before dimming: until the dimming deadline, whatever the time-out.
    IdleDeadline withTimeout(t0, 900, true);
    EXPECT_EQ(withTimeout.WaitTime(t0 + seconds(10)), Clock::duration(seconds(50)));
    // After dimming: until the idle deadline.
    withTimeout.MarkDimmed();
    EXPECT_EQ(withTimeout.WaitTime(t0 + seconds(61)), Clock::duration(seconds(839)));
    // A deadline already passed never gives a negative wait.
    EXPECT_EQ(withTimeout.WaitTime(t0 + seconds(1000)), Clock::duration::zero());

    // Without a time-out, a dimmed window waits for ever: no periodic wake-ups while idle.
    IdleDeadline without(t0, 0, true);
    EXPECT_EQ(without.WaitTime(t0), Clock::duration(seconds(60)));
    without.MarkDimmed();
    EXPECT_FALSE(without.WaitTime(t0 + seconds(60)).has_value());
}

TEST(IdleDeadline, ThirtySecondTimeoutFiresAtTheDimmingDeadlineWithoutDimming) {
    // GetKey checks expiry before dimming: at 60 s the time-out wins.
    IdleDeadline d(t0, 30, true);
    EXPECT_TRUE(d.Expired(t0 + seconds(60)));
    EXPECT_TRUE(d.DimDue(t0 + seconds(60)));
}

TEST(IdleDeadline, WaitRoundsUpToWholeMilliseconds) {
    struct {
        Clock::duration wait;
        time_t sec;
        suseconds_t usec;
    } cases[] = {
        {std::chrono::microseconds(1500), 0, 2000},
        {std::chrono::microseconds(1), 0, 1000},
        {Clock::duration::zero(), 0, 0},
        {seconds(60), 60, 0},
        {std::chrono::milliseconds(59999), 59, 999000},
    };
    for (const auto& c : cases) {
        timeval tv = ToTimeval(c.wait);
        EXPECT_EQ(tv.tv_sec, c.sec);
        EXPECT_EQ(tv.tv_usec, c.usec);
    }
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
