// Lazy binding of the libpam calls the console makes.
#include "platform/PamLibrary.h"

#include "platform/HostRoot.h"

#include <dlfcn.h>
#include <string>

namespace Platform::Pam {
namespace {

struct Functions {
    decltype(&pam_start) start = nullptr;
    decltype(&pam_start_confdir) startConfdir = nullptr;
    decltype(&pam_end) end = nullptr;
    decltype(&pam_authenticate) authenticate = nullptr;
    decltype(&pam_acct_mgmt) acctMgmt = nullptr;
    decltype(&pam_chauthtok) chauthtok = nullptr;
    decltype(&pam_setcred) setcred = nullptr;
    bool loaded = false;
};

template <class F> void Bind(void* library, const char* name, F& out) {
    out = reinterpret_cast<F>(dlsym(library, name));
}

// Loaded once and kept for the life of the process, like a linked library.
const Functions& Library() {
    static const Functions functions = [] {
        Functions f;
        void* library = dlopen("libpam.so.0", RTLD_NOW | RTLD_LOCAL);
        if (library == nullptr)
            return f;
        Bind(library, "pam_start", f.start);
        Bind(library, "pam_start_confdir", f.startConfdir);
        Bind(library, "pam_end", f.end);
        Bind(library, "pam_authenticate", f.authenticate);
        Bind(library, "pam_acct_mgmt", f.acctMgmt);
        Bind(library, "pam_chauthtok", f.chauthtok);
        Bind(library, "pam_setcred", f.setcred);
        f.loaded = f.start && f.end && f.authenticate && f.acctMgmt && f.chauthtok && f.setcred;
        return f;
    }();
    return functions;
}

} // namespace

bool Available() {
    return Library().loaded;
}

int Start(const char* service, const char* user, const pam_conv* conversation, const char* confdir,
          pam_handle_t** handle) {
    const Functions& f = Library();
    *handle = nullptr;
    if (!f.loaded)
        return PAM_ABORT;
    if (confdir != nullptr) {
        if (f.startConfdir == nullptr)
            return PAM_ABORT;
        return f.startConfdir(service, user, conversation, confdir, handle);
    }
    return f.start(service, user, conversation, handle);
}

int StartOnHost(const char* service, const char* user, const pam_conv* conversation, pam_handle_t** handle) {
    if (!IsSimulatedHost())
        return Start(service, user, conversation, nullptr, handle);
    const std::string confdir = HostPath("/etc/pam.d");
    return Start(service, user, conversation, confdir.c_str(), handle);
}

int End(pam_handle_t* handle, int status) {
    return Library().loaded ? Library().end(handle, status) : PAM_SYSTEM_ERR;
}
int Authenticate(pam_handle_t* handle, int flags) {
    return Library().loaded ? Library().authenticate(handle, flags) : PAM_SYSTEM_ERR;
}
int AcctMgmt(pam_handle_t* handle, int flags) {
    return Library().loaded ? Library().acctMgmt(handle, flags) : PAM_SYSTEM_ERR;
}
int Chauthtok(pam_handle_t* handle, int flags) {
    return Library().loaded ? Library().chauthtok(handle, flags) : PAM_SYSTEM_ERR;
}
int Setcred(pam_handle_t* handle, int flags) {
    return Library().loaded ? Library().setcred(handle, flags) : PAM_SYSTEM_ERR;
}

} // namespace Platform::Pam
