// The simulated host fails the host-control changes that "simulation.failing" names without changing
// anything, and records them all the same. (The call log's order and arguments are ApplyChanges_test's.)
#include "NetworkHost.h"

#include "platform/DnsConfig.h"
#include "platform/HostCtlException.h"
#include "platform/NetworkInfo.h"
#include "platform/RoutingInfo.h"
#include "platform/TesNicImpl.h"

using HostCtl::Lib::HostCtlException;
using namespace HostCtl::Network;
using namespace TesCtl::Network;

class SimOperationsTest : public NetworkHostTest {
protected:
    void SetUp() override { host_.WriteState(BaseHost()); }
};

TEST_F(SimOperationsTest, ListedOperationsFailWithoutChangingTheHost) {
    host_.ChangeState([](Json& s) {
        s["simulation"]["failing"] = {"hostctl SetTesselDefaultGateway", "hostctl AddNameServer 192.0.2.99",
                                      "hostctl Enable"};
    });
    auto fails = [](const std::function<void()>& call) {
        try {
            call();
        } catch (const HostCtlException& e) {
            return std::string(e.what()) == "simulated failure";
        }
        return false;
    };
    TesNicImpl tes0("tes0");
    DnsConfigImpl dns;
    EXPECT_TRUE(fails([] { RoutingInfoImpl().SetTesselDefaultGateway(Ipv4Address("192.0.2.254"), false); }));
    EXPECT_TRUE(fails([&] { dns.AddNameServer(Ipv4Address("192.0.2.99")); }));
    EXPECT_FALSE(fails([&] { dns.AddNameServer(Ipv4Address("192.0.2.98")); })) << "only the listed argument";
    EXPECT_FALSE(fails([&] { tes0.Disable(); }));
    EXPECT_TRUE(fails([&] { tes0.Enable(); }));
    dns.SaveConfig();

    const Json state = host_.State();
    EXPECT_EQ(state["routes"]["ipv4Gateway"], "192.0.2.1");
    EXPECT_EQ(state["dns"]["servers"], Json::parse(R"(["192.0.2.53", "192.0.2.54", "192.0.2.98"])"));
    EXPECT_FALSE(state["tesnics"][0]["enabled"].get<bool>());
    EXPECT_EQ(host_.ToolCalls().size(), 6u) << "failed calls are recorded too";
}
