// A TestHost selected as the console's host root for its lifetime: every host path and program the code
// under test uses goes into it.
#pragma once

#include "platform/HostRoot.h"
#include "support/TestHost.h"

class ActiveTestHost : public TestHost {
public:
    explicit ActiveTestHost(const std::string& scenario = "default") : TestHost(scenario) { Select(); }
    explicit ActiveTestHost(Layout layout) : TestHost(layout) { Select(); }
    ~ActiveTestHost() { Platform::UseRealHost(); }

private:
    void Select() const { Platform::UseSimulatedHost(Root()); }
};
