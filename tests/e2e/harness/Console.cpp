// Wiring of the console's launch: its path, its host and its environment.
#include "harness/Console.h"

#include "harness/Paths.h"

#include <cstdlib>

namespace e2e {

LaunchOptions Console::Launch(const TestHost& host, const ConsoleOptions& o) {
    LaunchOptions l;
    l.program = BuildDir() + "/tarn";
    l.args = o.args;
    l.term = o.term;
    l.rows = o.rows;
    l.cols = o.cols;
    l.env = o.env;
    if (!l.env.contains("TARN_HOST")) // a test may name a host of its own, or none
        l.env["TARN_HOST"] = host.TarnHostValue();
    // The test guard and the namespace sandbox pass on to the console, so that it refuses the real host
    // wherever the test itself would.
    for (const char* name : {"TARN_TEST_GUARD", "TARN_NETNS_SANDBOX"})
        if (const char* value = std::getenv(name); value && !l.env.contains(name))
            l.env[name] = value;
    return l;
}

Console::Console(const ConsoleOptions& o)
    : owned_(std::make_unique<TestHost>(o.scenario)), host_(owned_.get()),
      term_(std::make_unique<Terminal>(Launch(*host_, o))) {}

Console::Console(TestHost& host, const ConsoleOptions& o)
    : host_(&host), term_(std::make_unique<Terminal>(Launch(host, o))) {}

} // namespace e2e
