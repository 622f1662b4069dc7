// Checking the test guard against the namespace this process runs in.
#include "platform/linux/Sandbox.h"

#include <cstdlib>
#include <unistd.h>

namespace Platform::Linux {
namespace {

std::string NamespaceOf(const char* path) {
    char buffer[64];
    ssize_t n = readlink(path, buffer, sizeof buffer - 1);
    return n > 0 ? std::string(buffer, static_cast<size_t>(n)) : std::string();
}

} // namespace

std::string SandboxRefusal(const char* guard, const char* sandbox, const std::string& ownNetns,
                           const std::string& initNetns) {
    if (guard == nullptr || guard[0] == '\0')
        return {};
    const std::string prefix = "refused under the test guard: ";
    if (sandbox == nullptr || sandbox[0] == '\0')
        return prefix + "not started by the namespace launcher";
    if (ownNetns.empty() || ownNetns != sandbox)
        return prefix + "not in the sandbox's network namespace";
    // Where process 1 is visible, the sandbox must not be its namespace, which is the machine's own.
    if (!initNetns.empty() && initNetns == ownNetns)
        return prefix + "the sandbox is the machine's own network namespace";
    return {};
}

std::string SandboxRefusal() {
    return SandboxRefusal(std::getenv(kTestGuardVariable), std::getenv(kSandboxVariable),
                          NamespaceOf("/proc/self/ns/net"), NamespaceOf("/proc/1/ns/net"));
}

} // namespace Platform::Linux
