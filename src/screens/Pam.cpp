// PAM service "tarn": the login check and the password change, each with its own conversation.
#include "screens/Pam.h"

#include "platform/PamLibrary.h"

#include <security/pam_appl.h>

#include <cstdlib>
#include <cstring>
#include <string.h>

namespace Tarn {
namespace {

constexpr const char* kService = "tarn";

// Owns one PAM transaction: pam_end with the last status on every way out.
class PamTransaction {
public:
    PamTransaction(const std::string& user, const pam_conv& conversation) {
        status_ = Platform::Pam::StartOnHost(kService, user.c_str(), &conversation, &handle_);
        if (status_ != PAM_SUCCESS && handle_ != nullptr) {
            Platform::Pam::End(handle_, status_);
            handle_ = nullptr;
        }
    }
    ~PamTransaction() {
        if (handle_ != nullptr)
            Platform::Pam::End(handle_, status_);
    }
    PamTransaction(const PamTransaction&) = delete;
    PamTransaction& operator=(const PamTransaction&) = delete;

    bool Started() const { return handle_ != nullptr; }
    pam_handle_t* Handle() const { return handle_; }
    int Status() const { return status_; }
    // Records the status of a call as the transaction's last one.
    int Record(int status) { return status_ = status; }

private:
    pam_handle_t* handle_ = nullptr;
    int status_ = PAM_SYSTEM_ERR;
};

// libpam frees (and wipes) what we hand back, so every reply is malloc'ed.
char* CopyReply(const std::string& text) {
    return strdup(text.c_str());
}

void FreeReplies(pam_response* replies, int count) {
    for (int i = 0; i < count; ++i) {
        if (replies[i].resp != nullptr) {
            explicit_bzero(replies[i].resp, std::strlen(replies[i].resp));
            std::free(replies[i].resp);
        }
    }
    std::free(replies);
}

// Login: one message at a time; a hidden prompt gets the password, any other prompt an empty answer.
int LoginConversation(int count, const pam_message** messages, pam_response** replies, void* data) {
    if (count != 1 || messages == nullptr || replies == nullptr)
        return PAM_CONV_ERR;
    const std::string& password = *static_cast<const std::string*>(data);
    auto* reply = static_cast<pam_response*>(std::calloc(1, sizeof(pam_response)));
    if (reply == nullptr)
        return PAM_BUF_ERR;
    const int style = messages[0]->msg_style;
    if (style == PAM_PROMPT_ECHO_OFF)
        reply->resp = CopyReply(password);
    else if (style == PAM_PROMPT_ECHO_ON)
        reply->resp = CopyReply("");
    if ((style == PAM_PROMPT_ECHO_OFF || style == PAM_PROMPT_ECHO_ON) && reply->resp == nullptr) {
        FreeReplies(reply, 1);
        return PAM_BUF_ERR;
    }
    *replies = reply;
    return PAM_SUCCESS;
}

// Password change: the first hidden prompt is answered with the old password, later ones (new, retype)
// with the new password.
struct ChangeAnswers {
    const std::string& oldPassword;
    const std::string& newPassword;
    int hiddenPrompts = 0;
};

int ChangeConversation(int count, const pam_message** messages, pam_response** replies, void* data) {
    if (count <= 0 || messages == nullptr || replies == nullptr)
        return PAM_CONV_ERR;
    auto* answers = static_cast<ChangeAnswers*>(data);
    auto* out = static_cast<pam_response*>(std::calloc(static_cast<size_t>(count), sizeof(pam_response)));
    if (out == nullptr)
        return PAM_BUF_ERR;
    for (int i = 0; i < count; ++i) {
        const int style = messages[i]->msg_style;
        if (style == PAM_PROMPT_ECHO_OFF) {
            const std::string& answer =
                answers->hiddenPrompts++ == 0 ? answers->oldPassword : answers->newPassword;
            out[i].resp = CopyReply(answer);
        } else {
            out[i].resp = CopyReply("");
        }
        if (out[i].resp == nullptr) {
            FreeReplies(out, count);
            return PAM_BUF_ERR;
        }
    }
    *replies = out;
    return PAM_SUCCESS;
}

} // namespace

int Authenticate(const std::string& user, const std::string& password) {
    const pam_conv conversation{LoginConversation, const_cast<std::string*>(&password)};
    PamTransaction pam(user, conversation);
    if (!pam.Started())
        return pam.Status();
    if (pam.Record(Platform::Pam::Authenticate(pam.Handle(), PAM_SILENT)) == PAM_SUCCESS)
        pam.Record(Platform::Pam::AcctMgmt(pam.Handle(), PAM_SILENT));
    return pam.Status();
}

bool ChangePasswordThroughPam(const std::string& user, const std::string& oldPassword,
                              const std::string& newPassword) {
    ChangeAnswers answers{oldPassword, newPassword};
    const pam_conv conversation{ChangeConversation, &answers};
    PamTransaction pam(user, conversation);
    if (!pam.Started())
        return false;
    int status = pam.Record(Platform::Pam::Authenticate(pam.Handle(), PAM_SILENT));
    if (status != PAM_SUCCESS && status != PAM_NEW_AUTHTOK_REQD)
        return false;
    status = pam.Record(Platform::Pam::AcctMgmt(pam.Handle(), PAM_SILENT));
    if (status != PAM_SUCCESS && status != PAM_NEW_AUTHTOK_REQD)
        return false;
    if (pam.Record(Platform::Pam::Chauthtok(pam.Handle(), PAM_SILENT)) != PAM_SUCCESS)
        return false;
    return pam.Record(Platform::Pam::Setcred(pam.Handle(), PAM_REFRESH_CRED)) == PAM_SUCCESS;
}

} // namespace Tarn
