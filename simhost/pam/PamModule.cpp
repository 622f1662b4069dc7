// pam_simhost.so: authentication, account check and password change against the simulated host's users.
// Arguments: root=DIR, the simulated host. No exception ever leaves an entry point.
#include "simhost/model/Store.h"
#include "simhost/pam/UserDatabase.h"

#define PAM_SM_AUTH
#define PAM_SM_ACCOUNT
#define PAM_SM_SESSION
#define PAM_SM_PASSWORD
#include <security/pam_ext.h>
#include <security/pam_modules.h>

#include <cstdlib>
#include <cstring>
#include <string>

namespace {

// The password that authenticated the user in this handle. A password change that follows in the same
// handle does not ask for it again, as a password change run by the host's administrator would not.
constexpr const char* kAuthenticatedPassword = "pam_simhost_authenticated_password";

void WipeAndFree(pam_handle_t*, void* data, int) {
    if (data == nullptr)
        return;
    auto* text = static_cast<char*>(data);
    explicit_bzero(text, std::strlen(text));
    std::free(text);
}

const char* RootArgument(int argc, const char** argv) {
    for (int i = 0; i < argc; ++i)
        if (std::strncmp(argv[i], "root=", 5) == 0 && argv[i][5] != '\0')
            return argv[i] + 5;
    return nullptr;
}

// Runs one entry point's body with the host directory and the user, turning every failure into a status.
template <class Body> int Guarded(pam_handle_t* pamh, int argc, const char** argv, Body body) {
    try {
        const char* root = RootArgument(argc, argv);
        if (root == nullptr)
            return PAM_SERVICE_ERR;
        const char* user = nullptr;
        int rc = pam_get_user(pamh, &user, nullptr);
        if (rc != PAM_SUCCESS)
            return rc;
        if (user == nullptr || *user == '\0')
            return PAM_USER_UNKNOWN;
        return body(std::string(root), user);
    } catch (const SimHost::StoreError&) {
        return PAM_AUTHINFO_UNAVAIL;
    } catch (...) {
        return PAM_SERVICE_ERR;
    }
}

int CheckOldPassword(pam_handle_t* pamh, const std::string& root, const char* user) {
    const void* remembered = nullptr;
    if (pam_get_data(pamh, kAuthenticatedPassword, &remembered) == PAM_SUCCESS && remembered != nullptr) {
        pam_set_item(pamh, PAM_OLDAUTHTOK, remembered);
        // The token of the authentication must not pass for the new password.
        pam_set_item(pamh, PAM_AUTHTOK, nullptr);
    }
    const char* old = nullptr;
    int rc = pam_get_authtok(pamh, PAM_OLDAUTHTOK, &old, nullptr);
    if (rc != PAM_SUCCESS)
        return rc;
    return SimHostPam::PasswordMatches(root, user, old) ? PAM_SUCCESS : PAM_AUTH_ERR;
}

int UpdatePassword(pam_handle_t* pamh, int flags, const std::string& root, const char* user) {
    const void* old = nullptr;
    if (pam_get_item(pamh, PAM_OLDAUTHTOK, &old) != PAM_SUCCESS || old == nullptr ||
        !SimHostPam::PasswordMatches(root, user, static_cast<const char*>(old)))
        return PAM_AUTH_ERR;
    const char* fresh = nullptr;
    int rc = pam_get_authtok(pamh, PAM_AUTHTOK, &fresh, nullptr); // asks for the new one and its retype
    if (rc != PAM_SUCCESS)
        return rc;
    if (const char* why = SimHostPam::PasswordRuleViolation(fresh)) {
        if ((flags & PAM_SILENT) == 0)
            pam_error(pamh, "%s", why);
        pam_set_item(pamh, PAM_AUTHTOK, nullptr);
        return PAM_AUTHTOK_ERR;
    }
    return SimHostPam::SetPassword(root, user, fresh) ? PAM_SUCCESS : PAM_USER_UNKNOWN;
}

} // namespace

extern "C" {

PAM_EXTERN __attribute__((visibility("default"))) int pam_sm_authenticate(pam_handle_t* pamh, int, int argc,
                                                                          const char** argv) {
    return Guarded(pamh, argc, argv, [&](const std::string& root, const char* user) {
        const char* password = nullptr;
        int rc = pam_get_authtok(pamh, PAM_AUTHTOK, &password, nullptr);
        if (rc != PAM_SUCCESS)
            return rc;
        if (!SimHostPam::PasswordMatches(root, user, password))
            return PAM_AUTH_ERR;
        char* copy = strdup(password);
        if (copy == nullptr || pam_set_data(pamh, kAuthenticatedPassword, copy, WipeAndFree) != PAM_SUCCESS) {
            WipeAndFree(pamh, copy, 0);
            return PAM_BUF_ERR;
        }
        return PAM_SUCCESS;
    });
}

PAM_EXTERN __attribute__((visibility("default"))) int pam_sm_setcred(pam_handle_t*, int, int, const char**) {
    return PAM_SUCCESS;
}

PAM_EXTERN __attribute__((visibility("default"))) int pam_sm_acct_mgmt(pam_handle_t* pamh, int, int argc,
                                                                       const char** argv) {
    return Guarded(pamh, argc, argv, [&](const std::string& root, const char* user) {
        SimHostPam::UserStatus status = SimHostPam::LookUpUser(root, user);
        if (!status.found)
            return PAM_USER_UNKNOWN;
        if (!status.permitted)
            return PAM_PERM_DENIED;
        return status.expired ? PAM_NEW_AUTHTOK_REQD : PAM_SUCCESS;
    });
}

PAM_EXTERN __attribute__((visibility("default"))) int pam_sm_open_session(pam_handle_t*, int, int,
                                                                          const char**) {
    return PAM_SUCCESS;
}

PAM_EXTERN __attribute__((visibility("default"))) int pam_sm_close_session(pam_handle_t*, int, int,
                                                                           const char**) {
    return PAM_SUCCESS;
}

PAM_EXTERN __attribute__((visibility("default"))) int pam_sm_chauthtok(pam_handle_t* pamh, int flags,
                                                                       int argc, const char** argv) {
    return Guarded(pamh, argc, argv, [&](const std::string& root, const char* user) {
        if ((flags & PAM_PRELIM_CHECK) != 0)
            return CheckOldPassword(pamh, root, user);
        if ((flags & PAM_UPDATE_AUTHTOK) != 0)
            return UpdatePassword(pamh, flags, root, user);
        return PAM_SERVICE_ERR;
    });
}

} // extern "C"
