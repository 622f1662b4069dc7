// The lockdown decision and failure text, and which keyboard layout is marked and applied.
#include "screens/KeyboardLayouts.h"
#include "screens/LockdownChange.h"

#include <gtest/gtest.h>

namespace Tarn {
namespace {

TEST(LockdownChange, OnlyABoxThatDiffersFromTheHostRunsACommand) {
    EXPECT_EQ(DecideLockdownChange(false, false), LockdownChange::None);
    EXPECT_EQ(DecideLockdownChange(true, true), LockdownChange::None);
    EXPECT_EQ(DecideLockdownChange(true, false), LockdownChange::Enter);
    EXPECT_EQ(DecideLockdownChange(false, true), LockdownChange::Exit);
}

TEST(LockdownChange, FailureTextPrefersTheToolsComplaintOnOneLine) {
    EXPECT_EQ(LockdownFailureText("ignored\n", "kelp-cmd: not possible\n"), "kelp-cmd: not possible");
    EXPECT_EQ(LockdownFailureText("first\nsecond\n", " \n\t"), "first second");
    EXPECT_EQ(LockdownFailureText("", ""), "");
}

TEST(KeyboardLayouts, MarksOnlyTheExactConfiguredNameAndAppliesOnlyAMark) {
    const std::vector<std::string> layouts = {"Default", "German", "US Default", "US Default"};
    EXPECT_EQ(MarkedLayoutIndex(layouts, "US Default"), 2); // the first of two equal names
    for (const char* near : {"us default", "US Default ", " German", "German\n", "", "Germa"})
        EXPECT_EQ(MarkedLayoutIndex(layouts, near), -1) << '"' << near << '"';
    EXPECT_EQ(LayoutToApply(layouts, 1), "German");
    EXPECT_FALSE(LayoutToApply(layouts, -1));
    EXPECT_FALSE(LayoutToApply(layouts, 4));
}

} // namespace
} // namespace Tarn
