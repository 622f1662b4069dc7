// The lockdown decision and failure text, and which keyboard layout is marked and applied.
#include "screens/KeyboardLayouts.h"
#include "screens/LockdownChange.h"

#include <gtest/gtest.h>

namespace Tarn {
namespace {

TEST(LockdownChange, OnlyABoxThatDiffersFromTheHostRunsACommand) {
    struct Case {
        bool checked, enabled;
        LockdownChange change;
    };
    for (Case c : {Case{false, false, LockdownChange::None}, Case{true, true, LockdownChange::None},
                   Case{true, false, LockdownChange::Enter}, Case{false, true, LockdownChange::Exit}}) {
        EXPECT_EQ(DecideLockdownChange(c.checked, c.enabled), c.change) << c.checked << c.enabled;
    }
    EXPECT_STREQ(CommandFor(LockdownChange::Enter).command, "kelpsvc/auth/lockdown_mode_enter");
    EXPECT_TRUE(CommandFor(LockdownChange::Enter).enabledAfter);
    EXPECT_STREQ(CommandFor(LockdownChange::Exit).command, "kelpsvc/auth/lockdown_mode_exit");
    EXPECT_FALSE(CommandFor(LockdownChange::Exit).enabledAfter);
}

TEST(LockdownChange, FailureTextPrefersTheToolsComplaintOnOneLine) {
    EXPECT_EQ(LockdownFailureText("ignored\n", "kelp-cmd: not possible\n"), "kelp-cmd: not possible");
    EXPECT_EQ(LockdownFailureText("first\nsecond\n", ""), "first second");
    EXPECT_EQ(LockdownFailureText("answer", " \n\t"), "answer");
    EXPECT_EQ(LockdownFailureText("", ""), "");
}

TEST(KeyboardLayouts, MarksTheConfiguredLayoutByExactBytes) {
    const std::vector<std::string> layouts = {"Default", "German", "US Default", "US Default",
                                              "Swiss German"};
    EXPECT_EQ(MarkedLayoutIndex(layouts, "US Default"), 2); // the first of two equal names
    EXPECT_EQ(MarkedLayoutIndex(layouts, "Swiss German"), 4);
    // Near misses are not the configured layout: nothing is marked.
    for (const char* near : {"us default", "US Default ", " German", "German\n", "", "Germa"})
        EXPECT_EQ(MarkedLayoutIndex(layouts, near), -1) << '"' << near << '"';
    EXPECT_EQ(MarkedLayoutIndex({}, "Default"), -1);
}

TEST(KeyboardLayouts, AppliesOnlyAMarkedLayout) {
    const std::vector<std::string> layouts = {"Default", "German"};
    EXPECT_EQ(LayoutToApply(layouts, 1), "German");
    EXPECT_EQ(LayoutToApply(layouts, 0), "Default");
    EXPECT_FALSE(LayoutToApply(layouts, -1));
    EXPECT_FALSE(LayoutToApply(layouts, 2));
    EXPECT_FALSE(LayoutToApply({}, 0));
}

} // namespace
} // namespace Tarn
