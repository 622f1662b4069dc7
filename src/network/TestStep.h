// One step of the management network test on a worker thread of its own. The thread is detached: the
// dialog polls Finished() between key reads and may be left with Esc while the step still runs; the step's
// state is shared, so whichever of the two ends last frees it.
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <string>

namespace Tarn {

class TestStep {
public:
    // Starts `work` (true: success) on a detached thread. `work` gets only what it captured by value.
    static std::shared_ptr<TestStep> Start(std::function<bool()> work);
    // Three echo requests to `address` through `interfaceName` with the host's /bin/tesping.
    static std::shared_ptr<TestStep> StartPing(const std::string& address, const std::string& interfaceName);
    // The name through the name servers only (the hosts file set aside meanwhile, and always put back).
    static std::shared_ptr<TestStep> StartResolve(const std::string& hostname);

    bool Finished() const { return state_.load(std::memory_order_acquire) != kRunning; }
    // Valid once Finished().
    bool Succeeded() const { return state_.load(std::memory_order_acquire) == kSucceeded; }

private:
    static constexpr int kRunning = 0, kSucceeded = 1, kFailed = 2;
    std::atomic<int> state_{kRunning};
};

// The ping's result: tesping's exit status 0; a command that cannot be started counts as a failure.
bool RunPing(const std::string& address, const std::string& interfaceName);

} // namespace Tarn
