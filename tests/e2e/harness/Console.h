// The console under test: a fresh simulated host plus ./tarn started against it in a pseudo-terminal.
#pragma once

#include "harness/Terminal.h"
#include "support/TestHost.h"

#include <memory>

namespace e2e {

struct ConsoleOptions {
    std::string scenario = "default";
    std::optional<std::string> term = "xterm-256color"; // nullopt: TERM unset
    int rows = 25, cols = 80;
    std::vector<std::string> args{};
    std::map<std::string, std::optional<std::string>> env{}; // extra variables, e.g. SSH_CLIENT
};

class Console {
public:
    explicit Console(const ConsoleOptions& options = {});
    // Starts the console against an existing host (for a second instance, or a prepared pid file).
    Console(TestHost& host, const ConsoleOptions& options);

    TestHost& Host() { return *host_; }
    Terminal* operator->() { return term_.get(); }

private:
    static LaunchOptions Launch(const TestHost& host, const ConsoleOptions& options);

    std::unique_ptr<TestHost> owned_;
    TestHost* host_;
    std::unique_ptr<Terminal> term_;
};

} // namespace e2e
