// The console's network data access against small simulated hosts: management lookup, distributed-switch
// refusal, uplink order kept in the teaming policy, VLAN, NIC rows with unreadable parts, missing state.
#include "NetworkHost.h"

#include "network/NetworkAccess.h"
#include "network/SwitchListing.h"
#include "platform/HostCtlException.h"

#include <functional>

using HostCtl::Lib::HostCtlException;
using namespace Tarn;

using NetworkAccessTest = NetworkHostTest;

TEST_F(NetworkAccessTest, NoManagementInterface) {
    for (const char* management : {"", "tes9"}) {
        SCOPED_TRACE(management);
        auto host = BaseHost();
        host["management"] = management;
        host_.WriteState(host);
        EXPECT_EQ(FindManagementInterface(), nullptr);
        EXPECT_FALSE(IsManagementOnDistributedSwitch());
        EXPECT_TRUE(host_.Logged("Could not locate the management interface"));
    }
}

TEST_F(NetworkAccessTest, DistributedSwitchIsRefusedByEveryUplinkAndVlanFunction) {
    auto host = BaseHost();
    host["tesnics"][0]["connection"] = {{"type", 2}, {"switch", "kDS-1"}, {"port", "10"}};
    host_.WriteState(host);
    EXPECT_TRUE(IsManagementOnDistributedSwitch());
    auto management = FindManagementInterface();
    ASSERT_NE(management, nullptr);

    std::vector<std::string> uplinks;
    int32_t active = 0;
    uint16_t vlan = 0;
    const std::pair<std::function<bool()>, const char*> cases[] = {
        {[&] { return GetManagementUplinks(*management, uplinks); },
         "Getting uplinks failed: Unsupported kSwitch type"},
        {[&] { return GetMaxActiveUplinks(*management, active); },
         "Getting max number of active uplinks failed: Unsupported kSwitch type"},
        {[&] { return GetManagementVlanId(*management, vlan); },
         "Getting VlanID failed: Unsupported kSwitch type"},
        {[&] { return SetManagementVlanId(*management, 7); },
         "Setting VlanID failed: Unsupported kSwitch type"},
        {[&] { return AddManagementUplink(*management, "nicx1"); },
         "Adding uplink nicx1 failed: Unsupported kSwitch type"},
        {[&] { return RemoveManagementUplink(*management, "nicx2"); },
         "VS: remove uplink from teaming policy failed: Unsupported kSwitch type"},
    };
    for (const auto& [call, message] : cases) {
        EXPECT_FALSE(call()) << message;
        EXPECT_TRUE(host_.Logged(message)) << message;
    }
    EXPECT_EQ(host_.State(), host) << "nothing on the host changed";
}

TEST_F(NetworkAccessTest, UplinkAddAndRemoveKeepTeamingOrder) {
    host_.WriteState(BaseHost());
    auto management = FindManagementInterface();
    ASSERT_NE(management, nullptr);
    EXPECT_EQ(management->GetName(), "tes0");
    EXPECT_FALSE(IsManagementOnDistributedSwitch());
    auto kswitch = [&] { return host_.State()["standardSwitches"][0]; };
    auto expectUplinks = [&](const Json& order) {
        EXPECT_EQ(kswitch()["uplinks"], order);
        EXPECT_EQ(kswitch()["portGroups"][0]["teaming"]["uplinkOrder"], order);
        std::vector<std::string> uplinks;
        int32_t active = 0;
        ASSERT_TRUE(GetManagementUplinks(*management, uplinks));
        ASSERT_TRUE(GetMaxActiveUplinks(*management, active));
        EXPECT_EQ(Json(uplinks), order);
        EXPECT_EQ(active, static_cast<int32_t>(order.size()));
    };
    expectUplinks({"nicx0"});
    ASSERT_TRUE(AddManagementUplink(*management, "nicx3"));
    ASSERT_TRUE(AddManagementUplink(*management, "nicx1"));
    expectUplinks({"nicx0", "nicx3", "nicx1"});
    ASSERT_TRUE(RemoveManagementUplink(*management, "nicx3"));
    expectUplinks({"nicx0", "nicx1"});
    EXPECT_TRUE(host_.LogMessages().empty());

    // nicx2 belongs to the distributed switch; nicx3 is no longer an uplink of kSwitch0.
    EXPECT_FALSE(AddManagementUplink(*management, "nicx2"));
    EXPECT_TRUE(host_.Logged("Adding uplink nicx2 failed: nicx2 is already an uplink of kDS-1"));
    EXPECT_FALSE(RemoveManagementUplink(*management, "nicx3"));
    EXPECT_TRUE(host_.Logged("Removing uplink nicx3 failed: nicx3 is not an uplink of kSwitch0"));
    expectUplinks({"nicx0", "nicx1"});
}

TEST_F(NetworkAccessTest, VlanRoundTripAndRefusal) {
    host_.WriteState(BaseHost());
    auto management = FindManagementInterface();
    ASSERT_NE(management, nullptr);
    uint16_t vlan = 99;
    ASSERT_TRUE(GetManagementVlanId(*management, vlan));
    EXPECT_EQ(vlan, 0);
    ASSERT_TRUE(SetManagementVlanId(*management, 4095));
    ASSERT_TRUE(GetManagementVlanId(*management, vlan));
    EXPECT_EQ(vlan, 4095);
    EXPECT_FALSE(SetManagementVlanId(*management, 4096));
    EXPECT_TRUE(host_.Logged("Setting VlanID failed: Invalid VLAN ID: 4096"));
    EXPECT_EQ(host_.State()["standardSwitches"][0]["portGroups"][0]["vlan"], 4095);
}

TEST_F(NetworkAccessTest, PhysicalNicRows) {
    auto host = BaseHost();
    host["pnics"][1]["pciReadable"] = false;
    host_.WriteState(host);
    EXPECT_EQ(GetPhysicalNicNames(), (std::vector<std::string>{"nicx0", "nicx1", "nicx2", "nicx3"}));
    // name | label | MAC | link | connected
    const std::pair<const char*, const char*> cases[] = {
        {"nicx0", "nicx0|Acme 10G Adapter|00:50:56:aa:00:00|Connected|1"},
        {"nicx1", "nicx1||00:50:56:aa:00:01|Connected|1"}, // PCI device unreadable
        {"nicx3", "nicx3|Acme 10G Adapter|00:50:56:aa:00:03|Disconnected|0"},
        {"nicx7", "nicx7||||0"}, // no such NIC: only the name
    };
    for (const auto& [name, row] : cases) {
        auto i = GetPhysicalNicInfo(name);
        EXPECT_EQ(i.name + '|' + i.hardwareLabel + '|' + i.macAddress + '|' + i.linkState + '|' +
                      (i.connected ? '1' : '0'),
                  row);
    }
    EXPECT_TRUE(host_.Logged("Getting PCI device failed: Unable to read PCI device 0000:03:00.1 of nicx1"));
    EXPECT_EQ(PhysicalNicName(12), "nicx12");
}

TEST_F(NetworkAccessTest, SwitchNameOfConnectionPoint) {
    host_.WriteState(BaseHost());
    using namespace HostCtl::Network;
    const std::tuple<std::shared_ptr<ConnectionPoint>, const char*, const char*> cases[] = {
        {std::make_shared<PortGroup>("Management Network"), "kSwitch0", nullptr},
        {std::make_shared<DVPort>("kDS-1", "10"), "kDS-1", nullptr},
        {std::make_shared<PortGroup>("Nowhere"), "", "No standard switch holds port group Nowhere"},
        {std::make_shared<ConnectionPoint>(3), "", "Opaque network connectee type not supported"},
        {std::make_shared<ConnectionPoint>(9), "", "Unsupported connectee type"},
    };
    for (const auto& [point, name, log] : cases) {
        EXPECT_EQ(GetConnectionSwitchName(*point), name);
        if (log) {
            EXPECT_TRUE(host_.Logged(std::string("Getting switch name failed: ") + log)) << log;
        }
    }
}

TEST_F(NetworkAccessTest, MissingOrBrokenStateIsAHostCtlFailure) {
    // No host.json at all, then ones that are not host documents.
    for (const char* content : {static_cast<const char*>(nullptr), "[1, 2]", "{\"pnics\": 5}"}) {
        if (content)
            host_.Write("/etc/simhost/host.json", content);
        EXPECT_THROW(FindManagementInterface(), HostCtlException);
        EXPECT_FALSE(IsManagementOnDistributedSwitch());
        EXPECT_TRUE(GetPhysicalNicNames().empty());
        std::vector<SwitchSummary> found;
        EXPECT_FALSE(ScanVirtualSwitches(found));
        EXPECT_FALSE(ScanDkSwitches(found));
        EXPECT_TRUE(GatherStandardSwitchUplinks().empty());
    }
    for (const char* prefix : {"Could not determine if a DVS was in use: ", "Getting physical nics failed: ",
                               "Scanning virtual switches failed: ", "Scanning dkswitches failed: ",
                               "Gathering standard virtual switch list failed: "})
        EXPECT_TRUE(host_.LoggedPrefix(prefix)) << prefix;
    try {
        FindManagementInterface();
        FAIL() << "no exception";
    } catch (const HostCtlException& e) {
        EXPECT_FALSE(DescribeHostCtlError(e).empty());
        EXPECT_EQ(DescribeHostCtlError(e), e.what());
    }
}
