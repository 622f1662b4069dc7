// kelp-cmd wrappers.
#include "hostops/KelpCmd.h"

#include "core/Log.h"
#include "hostops/Accounts.h"
#include "hostops/CommandRunner.h"
#include "platform/HostRoot.h"

#include <cerrno>
#include <cstring>
#include <new>
#include <vector>

namespace Tarn {
namespace {

constexpr int kUserIndex = 2;
constexpr int kCommandIndex = 3;
constexpr int kRetryCapacity = 256;
constexpr int32_t kGetBoolTimeoutSeconds = 120;

} // namespace

int RunKelpCmdWithFallback(const char* path, const char* const argv[], char* stdoutBuf, int32_t* stdoutLen,
                           char* stderrBuf, int32_t* stderrLen, const char* stdinText, int32_t stdinLen) {
    int rc = RunProcess(path, argv, stdoutBuf, stdoutLen, stderrBuf, stderrLen, stdinText, stdinLen, 0);
    if (rc != 255)
        return rc;

    Log(LOG_INFO, "Unable to execute command kelp-cmd %s using user %s. Using user %s", argv[kCommandIndex],
        argv[kUserIndex], kServiceAccount);
    std::vector<const char*> retry;
    for (int i = 0; argv[i] != nullptr; ++i)
        retry.push_back(argv[i]);
    retry.push_back(nullptr);
    retry[kUserIndex] = kServiceAccount;
    if (stdoutLen != nullptr)
        *stdoutLen = kRetryCapacity;
    if (stderrLen != nullptr)
        *stderrLen = kRetryCapacity;
    return RunProcess(path, retry.data(), stdoutBuf, stdoutLen, stderrBuf, stderrLen, stdinText, stdinLen, 0);
}

bool KelpCmdGetBool(const std::string& query) {
    std::string queryCopy;
    try {
        queryCopy = query;
    } catch (const std::bad_alloc&) {
        Log(LOG_ERR, "kelp-cmd invocation failure: %s", std::strerror(ENOMEM));
        return false;
    }
    const char* argv[] = {"kelp-cmd", "-U", kServiceAccount, queryCopy.c_str(), nullptr};
    Log(LOG_INFO, "kelp-cmd invocation: get %s", queryCopy.c_str());

    char out[kCaptureCapacity + 1] = {};
    int32_t outLen = kCaptureCapacity;
    std::string path = Platform::HostPath("/bin/kelp-cmd");
    int rc =
        RunProcess(path.c_str(), argv, out, &outLen, nullptr, nullptr, nullptr, 0, kGetBoolTimeoutSeconds);
    out[outLen > 0 ? outLen : 0] = '\0';
    if (rc != 0)
        Log(LOG_ERR, "kelp-cmd invocation failure: %m");
    // The exit code does not matter: only what the tool printed.
    return std::strncmp(out, "true", 4) == 0;
}

void RefreshManagementService() {
    const char* argv[] = {"kelp-cmd", "-U", LoggedInUser().c_str(), "internalsvc/refresh", nullptr};
    std::string path = Platform::HostPath("/bin/kelp-cmd");
    RunKelpCmdWithFallback(path.c_str(), argv, nullptr, nullptr, nullptr, nullptr, nullptr, 0);
}

void StopAllVirtualMachines(bool graceful) {
    const char* autostop[] = {"kelp-cmd", "-U", LoggedInUser().c_str(), "hostsvc/autostartmanager/autostop",
                              nullptr};
    std::string kelpCmd = Platform::HostPath("/bin/kelp-cmd");
    RunKelpCmdWithFallback(kelpCmd.c_str(), autostop, nullptr, nullptr, nullptr, nullptr, nullptr, 0);

    const char* halt[] = {"haltGuests", graceful ? nullptr : "--terminate", nullptr};
    std::string haltGuests = Platform::HostPath("/bin/haltGuests");
    RunProcess(haltGuests.c_str(), halt, nullptr, nullptr, nullptr, nullptr, nullptr, 0, 0);
}

} // namespace Tarn
