// The login dialog's key rules and outcome rows, without a terminal.
#include "core/Keys.h"
#include "screens/LoginModel.h"

#include <gtest/gtest.h>

#include <security/pam_appl.h>

namespace Tarn {
namespace {

constexpr int kTab = 9;
using A = LoginKeyAction;

TEST(LoginKeys, TabAndEnterWalkTheFieldsWithoutKeyboardItem) {
    // Items: 0 login, 1 password.
    EXPECT_EQ(DecideLoginKey(kTab, 0, 2, false), A::FocusNext);
    EXPECT_EQ(DecideLoginKey(Key::Enter, 0, 2, false), A::FocusNext);
    EXPECT_EQ(DecideLoginKey(kTab, 1, 2, false), A::FocusFirst);
    EXPECT_EQ(DecideLoginKey(Key::Enter, 1, 2, false), A::Submit);
    // The login field is an ordinary field here and takes typing.
    EXPECT_EQ(DecideLoginKey('r', 0, 2, false), A::Edit);
    EXPECT_EQ(DecideLoginKey(Key::Backspace, 1, 2, false), A::Edit);
}

TEST(LoginKeys, KeyboardItemOpensTheLayoutChoiceAndTakesNoTyping) {
    // Items: 0 keyboard, 1 login, 2 password.
    EXPECT_EQ(DecideLoginKey(Key::Enter, 0, 3, true), A::RunKeyboard);
    EXPECT_EQ(DecideLoginKey(kTab, 0, 3, true), A::FocusNext);
    EXPECT_EQ(DecideLoginKey('x', 0, 3, true), A::Ignore);
    EXPECT_EQ(DecideLoginKey(Key::Delete, 0, 3, true), A::Ignore);
    EXPECT_EQ(DecideLoginKey(Key::Enter, 1, 3, true), A::FocusNext);
    EXPECT_EQ(DecideLoginKey('x', 1, 3, true), A::Edit);
    // Tab on the password wraps to the keyboard item, Enter there submits.
    EXPECT_EQ(DecideLoginKey(kTab, 2, 3, true), A::FocusFirst);
    EXPECT_EQ(DecideLoginKey(Key::Enter, 2, 3, true), A::Submit);
}

TEST(LoginOutcomes, EachPamStatusHasItsRow) {
    LoginResult ok = LoginStatusResult(PAM_SUCCESS);
    EXPECT_EQ(ok.outcome, LoginOutcome::Success);
    EXPECT_FALSE(ok.changePassword);

    LoginResult denied = LoginStatusResult(PAM_PERM_DENIED);
    EXPECT_EQ(denied.outcome, LoginOutcome::NoPermission);
    EXPECT_EQ(denied.messageId, 153u);
    EXPECT_FALSE(denied.changePassword);

    LoginResult expired = LoginStatusResult(PAM_NEW_AUTHTOK_REQD);
    EXPECT_EQ(expired.outcome, LoginOutcome::PasswordExpired);
    EXPECT_EQ(expired.messageId, 154u);
    EXPECT_TRUE(expired.changePassword);

    // Everything else, start-up failures included, counts as wrong credentials.
    for (int status : {PAM_AUTH_ERR, PAM_USER_UNKNOWN, PAM_CONV_ERR, PAM_ABORT, PAM_ACCT_EXPIRED}) {
        LoginResult other = LoginStatusResult(status);
        EXPECT_EQ(other.outcome, LoginOutcome::InvalidLogin) << status;
        EXPECT_EQ(other.messageId, 152u) << status;
        EXPECT_FALSE(other.changePassword) << status;
    }
}

} // namespace
} // namespace Tarn
