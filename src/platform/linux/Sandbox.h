// The guard that keeps tests off the real machine's network. The test runner sets TARN_TEST_GUARD; under
// it, a real-host backend works only inside the namespace sandbox that the test launcher made, which it
// names in TARN_NETNS_SANDBOX (the network namespace, as /proc/self/ns/net reads).
#pragma once

#include <string>

namespace Platform::Linux {

inline constexpr const char* kTestGuardVariable = "TARN_TEST_GUARD";
inline constexpr const char* kSandboxVariable = "TARN_NETNS_SANDBOX";

// Empty when the real host may be used; else why not. `guard` and `sandbox` are the two variables (null
// when unset), `ownNetns` and `initNetns` the network namespaces of this process and of process 1 (empty
// when unreadable).
std::string SandboxRefusal(const char* guard, const char* sandbox, const std::string& ownNetns,
                           const std::string& initNetns);

// The same for this process, from its environment and /proc.
std::string SandboxRefusal();

} // namespace Platform::Linux
