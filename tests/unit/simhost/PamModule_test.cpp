// The simulated host's PAM module through libpam: logins of every outcome and password changes.
#include "support/TestHost.h"

#include "simhost/model/Store.h"

#include <security/pam_appl.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <fstream>

namespace {

// Answers hidden-echo prompts from a script, in order; records every error message it is shown.
struct Conversation {
    std::vector<std::string> answers;
    size_t next = 0;
    int hiddenPrompts = 0;
    std::vector<std::string> errors;

    static int Reply(int count, const pam_message** messages, pam_response** replies, void* data) {
        auto* self = static_cast<Conversation*>(data);
        auto* out = static_cast<pam_response*>(std::calloc(static_cast<size_t>(count), sizeof(pam_response)));
        if (out == nullptr)
            return PAM_BUF_ERR;
        for (int i = 0; i < count; ++i) {
            if (messages[i]->msg_style == PAM_PROMPT_ECHO_OFF) {
                ++self->hiddenPrompts;
                std::string answer = self->next < self->answers.size() ? self->answers[self->next++] : "";
                out[i].resp = strdup(answer.c_str());
            } else if (messages[i]->msg_style == PAM_ERROR_MSG) {
                self->errors.emplace_back(messages[i]->msg);
            }
        }
        *replies = out;
        return PAM_SUCCESS;
    }
};

class PamHost : public ::testing::Test {
protected:
    void SetUp() override {
        std::filesystem::create_directories(dir_ + "/etc/pam.d");
        std::string module = BuildDir() + "/pam_simhost.so root=" + dir_ + "\n";
        std::ofstream(dir_ + "/etc/pam.d/tarn")
            << "auth required " << module << "account required " << module << "password required " << module
            << "session required " << module;
        std::ofstream(dir_ + "/etc/pam.d/other")
            << "auth required pam_deny.so\naccount required pam_deny.so\n"
               "password required pam_deny.so\nsession required pam_deny.so\n";
        std::filesystem::create_directories(dir_ + "/etc/simhost");
        SimHost::Save(dir_, SimHost::Json::parse(R"({"users": [
            {"name": "root", "password": "Secret#1", "expired": false, "permitted": true},
            {"name": "late", "password": "Old-pass1", "expired": true, "permitted": true},
            {"name": "guest", "password": "Guest-pw1", "expired": false, "permitted": false},
            {"name": "blank", "password": "", "expired": false, "permitted": true}]})"));
    }

    // The console's steps on one handle: with `authenticate`, authentication and the account check
    // (silent), then with `changeFlags` >= 0 a password change, which an expired password does not stop.
    // Returns the last status.
    int Pam(const char* user, std::vector<std::string> answers, bool authenticate, int changeFlags = -1) {
        seen_ = Conversation{};
        seen_.answers = std::move(answers);
        pam_conv conv{Conversation::Reply, &seen_};
        pam_handle_t* h = nullptr;
        int rc = pam_start_confdir("tarn", user, &conv, (dir_ + "/etc/pam.d").c_str(), &h);
        if (rc != PAM_SUCCESS)
            return rc;
        if (authenticate) {
            rc = pam_authenticate(h, PAM_SILENT);
            if (rc == PAM_SUCCESS)
                rc = pam_acct_mgmt(h, PAM_SILENT);
            if (rc == PAM_NEW_AUTHTOK_REQD && changeFlags >= 0)
                rc = PAM_SUCCESS;
        }
        if (rc == PAM_SUCCESS && changeFlags >= 0)
            rc = pam_chauthtok(h, changeFlags);
        pam_end(h, rc);
        return rc;
    }
    int Login(const char* user, const std::string& password) { return Pam(user, {password}, true); }

    SimHost::Json User(const std::string& name) {
        SimHost::Json state = SimHost::Load(dir_);
        for (const auto& u : state["users"])
            if (u["name"] == name)
                return u;
        return {};
    }

    TestHost tmp_{TestHost::Layout::Empty};
    std::string dir_ = tmp_.Root();
    Conversation seen_;
};

TEST_F(PamHost, LoginOutcomes) {
    struct Case {
        const char* user;
        const char* password;
        int status;
    } cases[] = {// each outcome through the console's own calls is PamTest's (OnHost_test); here the edges
                 {"root", "secret#1", PAM_AUTH_ERR},
                 {"root", "", PAM_AUTH_ERR},
                 {"late", "wrong", PAM_AUTH_ERR}, // an expired password is only reported when it is right
                 {"blank", "", PAM_SUCCESS},
                 {"blank", "x", PAM_AUTH_ERR}};
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.user) + '/' + c.password);
        EXPECT_EQ(Login(c.user, c.password), c.status);
        EXPECT_EQ(seen_.hiddenPrompts, 1);
    }
    std::filesystem::remove(SimHost::StatePath(dir_));
    EXPECT_EQ(Login("root", "Secret#1"), PAM_AUTHINFO_UNAVAIL) << "an error, not a crash";
}

TEST_F(PamHost, AcceptedChanges) {
    // The console's order: authentication, new, retype; the old password is not asked twice.
    EXPECT_EQ(Pam("late", {"Old-pass1", "New-pass2", "New-pass2"}, true, PAM_SILENT), PAM_SUCCESS);
    EXPECT_EQ(seen_.hiddenPrompts, 3);
    EXPECT_EQ(User("late")["expired"], false);
    EXPECT_EQ(Login("late", "New-pass2"), PAM_SUCCESS);
    EXPECT_EQ(Login("late", "Old-pass1"), PAM_AUTH_ERR);

    // A bare change asks for the old one. Seven characters from three kinds, and all four kinds, pass.
    for (const char* password : {"Abcdef1", "abcdef-1", "ABC-DEF-1", "aB3$efgh"}) {
        std::string current = User("root")["password"];
        EXPECT_EQ(Pam("root", {current, password, password}, false, 0), PAM_SUCCESS) << password;
        EXPECT_EQ(seen_.hiddenPrompts, 3);
        EXPECT_EQ(User("root")["password"], password);
    }
}

TEST_F(PamHost, RejectedChangesKeepThePassword) {
    struct Case {
        const char* name;
        std::vector<std::string> answers;
        bool ruleMessage;
    } cases[] = {{"wrong old password", {"Secret#2", "Good-pass1", "Good-pass1"}, false},
                 {"retype differs", {"Secret#1", "Good-pass1", "Good-pass2"}, false},
                 {"too short", {"Secret#1", "Ab1-x", "Ab1-x"}, true},
                 {"two kinds only", {"Secret#1", "abcdefgh12", "abcdefgh12"}, true},
                 {"lower and other only", {"Secret#1", "abc-def-ghi", "abc-def-ghi"}, true},
                 {"empty", {"Secret#1", "", ""}, true}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_NE(Pam("root", c.answers, false, 0), PAM_SUCCESS);
        EXPECT_EQ(User("root")["password"], "Secret#1");
        EXPECT_EQ(!seen_.errors.empty() && seen_.errors[0].find("at least 7 characters") != std::string::npos,
                  c.ruleMessage);
    }
    // The rule's failure status, and silence when asked for it.
    EXPECT_EQ(Pam("root", {"Secret#1", "short", "short"}, false, PAM_SILENT), PAM_AUTHTOK_ERR);
    EXPECT_TRUE(seen_.errors.empty());
}

} // namespace
