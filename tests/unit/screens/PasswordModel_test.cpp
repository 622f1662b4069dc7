// The password dialog's key rules and submit checks, without a terminal.
#include "core/Keys.h"
#include "screens/PasswordModel.h"

#include <gtest/gtest.h>

namespace Tarn {
namespace {

constexpr int kTab = 9;
using A = PasswordKeyAction;

TEST(PasswordKeys, EnterAndTabPerField) {
    EXPECT_EQ(DecidePasswordKey(Key::Enter, kOldPasswordField), A::CheckOld);
    EXPECT_EQ(DecidePasswordKey(kTab, kOldPasswordField), A::CheckOld);
    EXPECT_EQ(DecidePasswordKey(Key::Enter, kNewPasswordField), A::FocusConfirm);
    EXPECT_EQ(DecidePasswordKey(kTab, kNewPasswordField), A::FocusConfirm);
    EXPECT_EQ(DecidePasswordKey(kTab, kConfirmPasswordField), A::FocusNew);
    EXPECT_EQ(DecidePasswordKey(Key::Enter, kConfirmPasswordField), A::Submit);
    for (int field : {kOldPasswordField, kNewPasswordField, kConfirmPasswordField}) {
        EXPECT_EQ(DecidePasswordKey(Key::Escape, field), A::Cancel);
        EXPECT_EQ(DecidePasswordKey(Key::Up, field), A::Up);
        EXPECT_EQ(DecidePasswordKey(Key::Down, field), A::Down);
        EXPECT_EQ(DecidePasswordKey('a', field), A::Edit);
        EXPECT_EQ(DecidePasswordKey(Key::Backspace, field), A::Edit);
    }
}

TEST(PasswordChecks, RefusalsComeInOrder) {
    // Empty wins over a mismatch, a mismatch over "same as before".
    EXPECT_EQ(CheckNewPassword("old", "", "x"), NewPasswordCheck::Empty);
    EXPECT_EQ(CheckNewPassword("", "", ""), NewPasswordCheck::Empty);
    EXPECT_EQ(CheckNewPassword("Same#123", "Same#123", "Same#124"), NewPasswordCheck::Mismatch);
    EXPECT_EQ(CheckNewPassword("Same#123", "Same#123", "Same#123"), NewPasswordCheck::Same);
    EXPECT_EQ(CheckNewPassword("", "New#1234", "New#1234"), NewPasswordCheck::Change);
    // Only an exact match counts as the same password.
    EXPECT_EQ(CheckNewPassword("new#1234", "New#1234", "New#1234"), NewPasswordCheck::Change);

    EXPECT_EQ(NewPasswordMessage(NewPasswordCheck::Empty), 164u);
    EXPECT_EQ(NewPasswordMessage(NewPasswordCheck::Mismatch), 163u);
    EXPECT_EQ(NewPasswordMessage(NewPasswordCheck::Same), 0u);
    EXPECT_EQ(NewPasswordMessage(NewPasswordCheck::Change), 0u);
}

TEST(PasswordChecks, WipeOverwritesTheBuffer) {
    std::string secret = "a fairly long secret that lives on the heap";
    const char* buffer = secret.data();
    const size_t size = secret.size();
    WipePassword(secret);
    EXPECT_TRUE(secret.empty());
    // clear() keeps the allocation, so the old bytes can be inspected in place.
    for (size_t i = 0; i < size; ++i)
        ASSERT_EQ(buffer[i], '\0') << i;
}

} // namespace
} // namespace Tarn
