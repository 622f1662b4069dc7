// Installing backends: the host-control classes reach a test's backend while it is installed, the areas
// it leaves out keep theirs, and the host's own backends come back afterwards.
#include "platform/Backends.h"
#include "platform/DnsConfig.h"
#include "platform/HostCtlException.h"
#include "platform/HostRoot.h"
#include "platform/SystemInfo.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

class RecordingSystem : public Platform::SystemBackend {
public:
    Platform::SystemVersion Version() override { return {}; }
    std::array<uint8_t, 4> BootOption() override { return {}; }
    std::string WelcomeMessage() override { return ""; }
    void RaiseAlert(const std::string&) override {}
    Platform::KeyboardState Keyboard() override { return {{"German", "French"}, "German"}; }
    bool KeyboardChoiceOffered() override { return true; }
    void LoadKeymap(const std::string& layout) override { calls.push_back("load " + layout); }
    void StoreKeyboardLayout(const std::string& layout) override {
        if (failStore)
            throw HostCtl::Lib::HostCtlException("store refused");
        calls.push_back("store " + layout);
    }

    std::vector<std::string> calls;
    bool failStore = false;
};

TEST(Backends, InstalledForTheirScopeOnly) {
    Platform::UseRealHost();
    const Platform::Backends builtIn = Platform::ActiveBackends();
    RecordingSystem recording;
    {
        Platform::ScopedBackends scope({.system = &recording});
        TesCtl::System::SystemInfoImpl info;
        EXPECT_EQ(info.GetKeyboardLayout(), "German");
        info.LoadKeyboardMappings("French");
        info.SetKeyboardLayout("French");
        EXPECT_EQ(recording.calls, (std::vector<std::string>{"load French", "store French"}));
        recording.failStore = true;
        EXPECT_THROW(info.SetKeyboardLayout("German"), HostCtl::Lib::HostCtlException);
        EXPECT_EQ(Platform::ActiveBackends().dns, builtIn.dns) << "areas left out keep their backend";
    }
    EXPECT_EQ(Platform::ActiveBackends().system, builtIn.system);
    // Without an installed set, the backends follow the host selected.
    Platform::UseSimulatedHost("/nonexistent");
    EXPECT_EQ(Platform::ActiveBackends().system, Platform::BuiltInBackends(true).system);
    EXPECT_NE(Platform::BuiltInBackends(true).network, Platform::BuiltInBackends(false).network);
    Platform::UseRealHost();
}

} // namespace
