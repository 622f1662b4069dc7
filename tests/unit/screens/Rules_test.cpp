// Rules behind the password, lockdown and keyboard dialogs, without a terminal: the order of password
// refusals and the wiping of the buffer, which lockdown command a box runs, which layout is marked.
#include "hostops/LockdownChange.h"
#include "screens/KeyboardLayouts.h"
#include "screens/PasswordModel.h"

#include <gtest/gtest.h>

namespace Tarn {
namespace {

TEST(PasswordChecks, RefusalsComeInOrderAndTheBufferIsWiped) {
    // Empty wins over a mismatch, a mismatch over "same as before"; only an exact match is the same.
    EXPECT_EQ(CheckNewPassword("old", "", "x"), NewPasswordCheck::Empty);
    EXPECT_EQ(CheckNewPassword("Same#123", "Same#123", "Same#124"), NewPasswordCheck::Mismatch);
    EXPECT_EQ(CheckNewPassword("Same#123", "Same#123", "Same#123"), NewPasswordCheck::Same);
    EXPECT_EQ(CheckNewPassword("", "New#1234", "New#1234"), NewPasswordCheck::Change);
    EXPECT_EQ(CheckNewPassword("new#1234", "New#1234", "New#1234"), NewPasswordCheck::Change);

    std::string secret = "a fairly long secret that lives on the heap";
    const char* buffer = secret.data();
    const size_t size = secret.size();
    WipePassword(secret);
    EXPECT_TRUE(secret.empty());
    for (size_t i = 0; i < size; ++i) // clear() keeps the allocation: the old bytes are inspected in place
        ASSERT_EQ(buffer[i], '\0') << i;
}

TEST(LockdownChange, OnlyABoxThatDiffersFromTheHostRunsACommand) {
    EXPECT_EQ(DecideLockdownChange(false, false), LockdownChange::None);
    EXPECT_EQ(DecideLockdownChange(true, true), LockdownChange::None);
    EXPECT_EQ(DecideLockdownChange(true, false), LockdownChange::Enter);
    EXPECT_EQ(DecideLockdownChange(false, true), LockdownChange::Exit);
    // The failure text prefers the tool's complaint, on one line.
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
