// libpam, loaded on first use: the welcome screen never needs it, and linking it would load libpam, libaudit
// and libcap-ng into every start of the console (start-up time and resident memory).
#pragma once

#include <security/pam_appl.h>

namespace Platform::Pam {

// True when libpam could be loaded; every call below returns PAM_SYSTEM_ERR (start: PAM_ABORT) otherwise.
bool Available();

// `confdir` null: the system's PAM configuration.
int Start(const char* service, const char* user, const pam_conv* conversation, const char* confdir,
          pam_handle_t** handle);
// Start with the configuration of the host selected: the host root's /etc/pam.d on the simulated host, so
// that its own module answers; the system's on a real one.
int StartOnHost(const char* service, const char* user, const pam_conv* conversation, pam_handle_t** handle);
int End(pam_handle_t* handle, int status);
int Authenticate(pam_handle_t* handle, int flags);
int AcctMgmt(pam_handle_t* handle, int flags);
int Chauthtok(pam_handle_t* handle, int flags);
int Setcred(pam_handle_t* handle, int flags);

} // namespace Platform::Pam
