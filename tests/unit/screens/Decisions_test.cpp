// The decision logic of the login and password dialogs, the lockdown change, and the keyboard layout mark,
// without a terminal.
#include "core/Keys.h"
#include "screens/KeyboardLayouts.h"
#include "screens/LockdownChange.h"
#include "screens/LoginModel.h"
#include "screens/PasswordModel.h"

#include <gtest/gtest.h>

#include <security/pam_appl.h>

namespace Tarn {
namespace {

constexpr int kTab = 9;

TEST(LoginKeys, FieldsWithAndWithoutTheKeyboardItem) {
    using A = LoginKeyAction;
    const struct {
        int key, focus, items;
        bool keyboardItem;
        LoginKeyAction action;
    } cases[] = {
        // Items: 0 login, 1 password.
        {kTab, 0, 2, false, A::FocusNext},
        {Key::Enter, 0, 2, false, A::FocusNext},
        {kTab, 1, 2, false, A::FocusFirst},
        {Key::Enter, 1, 2, false, A::Submit},
        {'r', 0, 2, false, A::Edit},
        {Key::Backspace, 1, 2, false, A::Edit},
        // Items: 0 keyboard, 1 login, 2 password. The keyboard item opens the layout choice, takes no typing.
        {Key::Enter, 0, 3, true, A::RunKeyboard},
        {kTab, 0, 3, true, A::FocusNext},
        {'x', 0, 3, true, A::Ignore},
        {Key::Delete, 0, 3, true, A::Ignore},
        {Key::Enter, 1, 3, true, A::FocusNext},
        {'x', 1, 3, true, A::Edit},
        {kTab, 2, 3, true, A::FocusFirst},
        {Key::Enter, 2, 3, true, A::Submit},
    };
    for (const auto& c : cases)
        EXPECT_EQ(DecideLoginKey(c.key, c.focus, c.items, c.keyboardItem), c.action)
            << "key " << c.key << " on item " << c.focus << " of " << c.items;
}

TEST(LoginOutcomes, EachPamStatusHasItsRow) {
    const struct {
        int status;
        LoginOutcome outcome;
        unsigned messageId;
        bool changePassword;
    } cases[] = {
        {PAM_SUCCESS, LoginOutcome::Success, 0, false},
        {PAM_PERM_DENIED, LoginOutcome::NoPermission, 153, false},
        {PAM_NEW_AUTHTOK_REQD, LoginOutcome::PasswordExpired, 154, true},
        // Everything else, start-up failures included, counts as wrong credentials.
        {PAM_AUTH_ERR, LoginOutcome::InvalidLogin, 152, false},
        {PAM_USER_UNKNOWN, LoginOutcome::InvalidLogin, 152, false},
        {PAM_CONV_ERR, LoginOutcome::InvalidLogin, 152, false},
        {PAM_ACCT_EXPIRED, LoginOutcome::InvalidLogin, 152, false},
    };
    for (const auto& c : cases) {
        const LoginResult r = LoginStatusResult(c.status);
        EXPECT_EQ(r.outcome, c.outcome) << c.status;
        EXPECT_EQ(r.messageId, c.messageId) << c.status;
        EXPECT_EQ(r.changePassword, c.changePassword) << c.status;
    }
}

TEST(PasswordKeys, EnterAndTabPerField) {
    using A = PasswordKeyAction;
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

TEST(PasswordChecks, RefusalsComeInOrderAndTheBufferIsWiped) {
    // Empty wins over a mismatch, a mismatch over "same as before"; only an exact match is the same.
    EXPECT_EQ(CheckNewPassword("old", "", "x"), NewPasswordCheck::Empty);
    EXPECT_EQ(CheckNewPassword("Same#123", "Same#123", "Same#124"), NewPasswordCheck::Mismatch);
    EXPECT_EQ(CheckNewPassword("Same#123", "Same#123", "Same#123"), NewPasswordCheck::Same);
    EXPECT_EQ(CheckNewPassword("", "New#1234", "New#1234"), NewPasswordCheck::Change);
    EXPECT_EQ(CheckNewPassword("new#1234", "New#1234", "New#1234"), NewPasswordCheck::Change);
    EXPECT_EQ(NewPasswordMessage(NewPasswordCheck::Empty), 164u);
    EXPECT_EQ(NewPasswordMessage(NewPasswordCheck::Mismatch), 163u);
    EXPECT_EQ(NewPasswordMessage(NewPasswordCheck::Same), 0u);

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
