// The simulated host's PAM module through libpam: logins of every outcome and password changes.
#include "SimHostTesting.h"

#include "simhost/model/Store.h"

#include <security/pam_appl.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <fstream>

namespace {

// Answers hidden-echo prompts from a script, in order; records every message it is shown.
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
            const pam_message* m = messages[i];
            if (m->msg_style == PAM_PROMPT_ECHO_OFF) {
                ++self->hiddenPrompts;
                std::string answer = self->next < self->answers.size() ? self->answers[self->next++] : "";
                out[i].resp = strdup(answer.c_str());
            } else if (m->msg_style == PAM_ERROR_MSG) {
                self->errors.emplace_back(m->msg);
            }
        }
        *replies = out;
        return PAM_SUCCESS;
    }
};

class PamHost : public ::testing::Test {
protected:
    void SetUp() override {
        dir_ = tmp_.Path();
        std::filesystem::create_directories(dir_ + "/etc/pam.d");
        std::string module = SimHostTesting::BuildDir() + "/pam_simhost.so root=" + dir_ + "\n";
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

    // The console's login: authenticate, then the account check, silent; the last status.
    int Login(const char* user, const std::string& password, Conversation* seen = nullptr) {
        Conversation conversation;
        conversation.answers = {password};
        pam_conv conv{Conversation::Reply, &conversation};
        pam_handle_t* h = nullptr;
        int rc = pam_start_confdir("tarn", user, &conv, (dir_ + "/etc/pam.d").c_str(), &h);
        if (rc != PAM_SUCCESS)
            return rc;
        rc = pam_authenticate(h, PAM_SILENT);
        if (rc == PAM_SUCCESS)
            rc = pam_acct_mgmt(h, PAM_SILENT);
        pam_end(h, rc);
        if (seen != nullptr)
            *seen = conversation;
        return rc;
    }

    // A password change; with `authenticateFirst` in the console's order (authenticate, account check,
    // change in one handle), else a bare change.
    int Change(const char* user, std::vector<std::string> answers, bool authenticateFirst, int flags,
               Conversation* seen = nullptr) {
        Conversation conversation;
        conversation.answers = std::move(answers);
        pam_conv conv{Conversation::Reply, &conversation};
        pam_handle_t* h = nullptr;
        int rc = pam_start_confdir("tarn", user, &conv, (dir_ + "/etc/pam.d").c_str(), &h);
        if (rc != PAM_SUCCESS)
            return rc;
        if (authenticateFirst) {
            rc = pam_authenticate(h, PAM_SILENT);
            if (rc == PAM_SUCCESS)
                rc = pam_acct_mgmt(h, PAM_SILENT);
            if (rc == PAM_NEW_AUTHTOK_REQD)
                rc = PAM_SUCCESS;
        }
        if (rc == PAM_SUCCESS)
            rc = pam_chauthtok(h, flags);
        pam_end(h, rc);
        if (seen != nullptr)
            *seen = conversation;
        return rc;
    }

    SimHost::Json User(const std::string& name) {
        SimHost::Json state = SimHost::Load(dir_);
        for (const auto& u : state["users"])
            if (u["name"] == name)
                return u;
        return {};
    }

    SimHostTesting::TempDir tmp_;
    std::string dir_;
};

TEST_F(PamHost, LoginOutcomes) {
    struct Case {
        const char* user;
        const char* password;
        int status;
    } cases[] = {
        {"root", "Secret#1", PAM_SUCCESS},
        {"root", "secret#1", PAM_AUTH_ERR},
        {"root", "", PAM_AUTH_ERR},
        {"nobody", "Secret#1", PAM_AUTH_ERR},
        {"late", "Old-pass1", PAM_NEW_AUTHTOK_REQD},
        {"late", "wrong", PAM_AUTH_ERR},
        {"guest", "Guest-pw1", PAM_PERM_DENIED},
        {"blank", "", PAM_SUCCESS},
        {"blank", "x", PAM_AUTH_ERR},
    };
    for (const Case& c : cases) {
        Conversation seen;
        EXPECT_EQ(Login(c.user, c.password, &seen), c.status) << c.user << '/' << c.password;
        EXPECT_EQ(seen.hiddenPrompts, 1) << c.user;
    }
}

TEST_F(PamHost, MissingStateIsAnErrorNotACrash) {
    std::filesystem::remove(SimHost::StatePath(dir_));
    EXPECT_EQ(Login("root", "Secret#1"), PAM_AUTHINFO_UNAVAIL);
}

TEST_F(PamHost, ConsoleOrderChangeClearsExpiry) {
    Conversation seen;
    EXPECT_EQ(Change("late", {"Old-pass1", "New-pass2", "New-pass2"}, true, PAM_SILENT, &seen), PAM_SUCCESS);
    EXPECT_EQ(seen.hiddenPrompts, 3); // authentication, new, retype: the old one is not asked twice
    EXPECT_EQ(User("late")["password"], "New-pass2");
    EXPECT_EQ(User("late")["expired"], false);
    EXPECT_EQ(Login("late", "New-pass2"), PAM_SUCCESS);
    EXPECT_EQ(Login("late", "Old-pass1"), PAM_AUTH_ERR);
}

TEST_F(PamHost, BareChangeAsksForOldPassword) {
    Conversation seen;
    EXPECT_EQ(Change("root", {"Secret#1", "Another9x", "Another9x"}, false, 0, &seen), PAM_SUCCESS);
    EXPECT_EQ(seen.hiddenPrompts, 3);
    EXPECT_EQ(User("root")["password"], "Another9x");
}

TEST_F(PamHost, RejectedChangesKeepThePassword) {
    struct Case {
        const char* name;
        std::vector<std::string> answers;
        bool ruleMessage;
    } cases[] = {
        {"wrong old password", {"Secret#2", "Good-pass1", "Good-pass1"}, false},
        {"retype differs", {"Secret#1", "Good-pass1", "Good-pass2"}, false},
        {"too short", {"Secret#1", "Ab1-x", "Ab1-x"}, true},
        {"two kinds only", {"Secret#1", "abcdefgh12", "abcdefgh12"}, true},
        {"lower and other only", {"Secret#1", "abc-def-ghi", "abc-def-ghi"}, true},
        {"empty", {"Secret#1", "", ""}, true},
    };
    for (const Case& c : cases) {
        Conversation seen;
        EXPECT_NE(Change("root", c.answers, false, 0, &seen), PAM_SUCCESS) << c.name;
        EXPECT_EQ(User("root")["password"], "Secret#1") << c.name;
        EXPECT_EQ(!seen.errors.empty() && seen.errors[0].find("at least 7 characters") != std::string::npos,
                  c.ruleMessage)
            << c.name;
    }
    // The rule's failure status, and silence when asked for it.
    Conversation seen;
    EXPECT_EQ(Change("root", {"Secret#1", "short", "short"}, false, PAM_SILENT, &seen), PAM_AUTHTOK_ERR);
    EXPECT_TRUE(seen.errors.empty());
}

TEST_F(PamHost, AcceptedPasswordsMeetTheRule) {
    // Seven characters from three kinds, and all four kinds.
    for (const char* password : {"Abcdef1", "abcdef-1", "ABC-DEF-1", "aB3$efgh"}) {
        std::string current = User("root")["password"];
        EXPECT_EQ(Change("root", {current, password, password}, false, PAM_SILENT), PAM_SUCCESS) << password;
        EXPECT_EQ(User("root")["password"], password);
    }
}

} // namespace
