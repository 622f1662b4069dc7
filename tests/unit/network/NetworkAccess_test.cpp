// The console's network data access against small simulated hosts: management lookup, distributed-switch
// refusal, uplink order kept in the teaming policy, VLAN, NIC rows with unreadable parts, missing state.
#include "SimHostFixture.h"

#include "network/NetworkAccess.h"
#include "platform/HostCtlException.h"

#include <functional>

using HostCtl::Lib::HostCtlException;
using namespace Tarn;

class NetworkAccessTest : public SimHostFixture {};

TEST_F(NetworkAccessTest, NoManagementInterface) {
    for (const char* management : {"", "tes9"}) {
        auto host = BaseHost();
        host["management"] = management;
        WriteHost(host);
        EXPECT_EQ(FindManagementInterface(), nullptr) << management;
        EXPECT_FALSE(IsManagementOnDistributedSwitch()) << management;
        EXPECT_TRUE(Logged("Could not locate the management interface")) << management;
    }
}

TEST_F(NetworkAccessTest, ManagementOnStandardSwitch) {
    WriteHost(BaseHost());
    auto management = FindManagementInterface();
    ASSERT_NE(management, nullptr);
    EXPECT_EQ(management->GetName(), "tes0");
    EXPECT_FALSE(IsManagementOnDistributedSwitch());
    std::vector<std::string> uplinks;
    ASSERT_TRUE(GetManagementUplinks(*management, uplinks));
    EXPECT_EQ(uplinks, std::vector<std::string>{"nicx0"});
    int32_t active = 0;
    ASSERT_TRUE(GetMaxActiveUplinks(*management, active));
    EXPECT_EQ(active, 1);
    EXPECT_EQ(Syslog(), "");
}

TEST_F(NetworkAccessTest, DistributedSwitchIsRefusedByEveryUplinkAndVlanFunction) {
    auto host = BaseHost();
    host["tesnics"][0]["connection"] = {{"type", 2}, {"switch", "kDS-1"}, {"port", "10"}};
    WriteHost(host);
    EXPECT_TRUE(IsManagementOnDistributedSwitch());
    auto management = FindManagementInterface();
    ASSERT_NE(management, nullptr);

    std::vector<std::string> uplinks;
    int32_t active = 0;
    uint16_t vlan = 0;
    struct Case {
        std::function<bool()> call;
        const char* message;
    };
    const Case cases[] = {
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
    for (const auto& c : cases) {
        EXPECT_FALSE(c.call()) << c.message;
        EXPECT_TRUE(Logged(c.message)) << c.message << "\nlog:\n" << Syslog();
    }
    // Nothing on the host changed.
    EXPECT_EQ(ReadHost()["distributedSwitches"], host["distributedSwitches"]);
    EXPECT_EQ(ReadHost()["standardSwitches"], host["standardSwitches"]);
}

TEST_F(NetworkAccessTest, UplinkAddAndRemoveKeepTeamingOrder) {
    WriteHost(BaseHost());
    auto management = FindManagementInterface();
    ASSERT_NE(management, nullptr);
    auto teaming = [&] { return ReadHost()["standardSwitches"][0]["portGroups"][0]["teaming"]; };

    ASSERT_TRUE(AddManagementUplink(*management, "nicx3"));
    ASSERT_TRUE(AddManagementUplink(*management, "nicx1"));
    EXPECT_EQ(ReadHost()["standardSwitches"][0]["uplinks"], Json({"nicx0", "nicx3", "nicx1"}));
    EXPECT_EQ(teaming()["uplinkOrder"], Json({"nicx0", "nicx3", "nicx1"}));
    EXPECT_EQ(teaming()["maxActive"], 3);

    ASSERT_TRUE(RemoveManagementUplink(*management, "nicx3"));
    EXPECT_EQ(ReadHost()["standardSwitches"][0]["uplinks"], Json({"nicx0", "nicx1"}));
    EXPECT_EQ(teaming()["uplinkOrder"], Json({"nicx0", "nicx1"}));
    EXPECT_EQ(teaming()["maxActive"], 2);

    std::vector<std::string> uplinks;
    ASSERT_TRUE(GetManagementUplinks(*management, uplinks));
    EXPECT_EQ(uplinks, (std::vector<std::string>{"nicx0", "nicx1"}));
    EXPECT_EQ(Syslog(), "");
}

TEST_F(NetworkAccessTest, UplinkFailuresAreLoggedAndLeaveTeamingAlone) {
    WriteHost(BaseHost());
    auto management = FindManagementInterface();
    ASSERT_NE(management, nullptr);
    auto before = ReadHost()["standardSwitches"];

    // nicx2 belongs to the distributed switch; nicx1 is not an uplink of kSwitch0.
    EXPECT_FALSE(AddManagementUplink(*management, "nicx2"));
    EXPECT_TRUE(Logged("Adding uplink nicx2 failed: nicx2 is already an uplink of kDS-1"));
    EXPECT_FALSE(RemoveManagementUplink(*management, "nicx1"));
    EXPECT_TRUE(Logged("Removing uplink nicx1 failed: nicx1 is not an uplink of kSwitch0"));
    EXPECT_EQ(ReadHost()["standardSwitches"], before);
}

TEST_F(NetworkAccessTest, VlanRoundTripAndRefusal) {
    WriteHost(BaseHost());
    auto management = FindManagementInterface();
    ASSERT_NE(management, nullptr);
    uint16_t vlan = 99;
    ASSERT_TRUE(GetManagementVlanId(*management, vlan));
    EXPECT_EQ(vlan, 0);
    ASSERT_TRUE(SetManagementVlanId(*management, 4095));
    ASSERT_TRUE(GetManagementVlanId(*management, vlan));
    EXPECT_EQ(vlan, 4095);
    EXPECT_FALSE(SetManagementVlanId(*management, 4096));
    EXPECT_TRUE(Logged("Setting VlanID failed: Invalid VLAN ID: 4096"));
    EXPECT_EQ(ReadHost()["standardSwitches"][0]["portGroups"][0]["vlan"], 4095);
}

TEST_F(NetworkAccessTest, PhysicalNicRows) {
    auto host = BaseHost();
    host["pnics"][1]["pciReadable"] = false;
    WriteHost(host);
    EXPECT_EQ(GetPhysicalNicNames(), (std::vector<std::string>{"nicx0", "nicx1", "nicx2", "nicx3"}));

    struct Case {
        const char* name;
        const char* label;
        const char* mac;
        const char* link;
        bool connected;
    };
    const Case cases[] = {
        {"nicx0", "Acme 10G Adapter", "00:50:56:aa:00:00", "Connected", true},
        {"nicx1", "", "00:50:56:aa:00:01", "Connected", true}, // PCI device unreadable
        {"nicx3", "Acme 10G Adapter", "00:50:56:aa:00:03", "Disconnected", false},
        {"nicx7", "", "", "", false}, // no such NIC: only the name
    };
    for (const auto& c : cases) {
        auto info = GetPhysicalNicInfo(c.name);
        EXPECT_EQ(info.name, c.name);
        EXPECT_EQ(info.hardwareLabel, c.label) << c.name;
        EXPECT_EQ(info.macAddress, c.mac) << c.name;
        EXPECT_EQ(info.linkState, c.link) << c.name;
        EXPECT_EQ(info.connected, c.connected) << c.name;
    }
    EXPECT_TRUE(Logged("Getting PCI device failed: Unable to read PCI device 0000:03:00.1 of nicx1"));
    EXPECT_EQ(PhysicalNicName(0), "nicx0");
    EXPECT_EQ(PhysicalNicName(12), "nicx12");
}

TEST_F(NetworkAccessTest, SwitchNameOfConnectionPoint) {
    WriteHost(BaseHost());
    struct Case {
        std::shared_ptr<HostCtl::Network::ConnectionPoint> point;
        const char* name;
        const char* log;
    };
    const Case cases[] = {
        {std::make_shared<HostCtl::Network::PortGroup>("Management Network"), "kSwitch0", nullptr},
        {std::make_shared<HostCtl::Network::DVPort>("kDS-1", "10"), "kDS-1", nullptr},
        {std::make_shared<HostCtl::Network::PortGroup>("Nowhere"), "",
         "Getting switch name failed: No standard switch holds port group Nowhere"},
        {std::make_shared<HostCtl::Network::ConnectionPoint>(3), "",
         "Getting switch name failed: Opaque network connectee type not supported"},
        {std::make_shared<HostCtl::Network::ConnectionPoint>(9), "",
         "Getting switch name failed: Unsupported connectee type"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(GetConnectionSwitchName(*c.point), c.name);
        if (c.log) {
            EXPECT_TRUE(Logged(c.log)) << c.log;
        }
    }
}

TEST_F(NetworkAccessTest, MissingOrBrokenStateIsAHostCtlFailure) {
    // No host.json at all, then one that is not a host document.
    for (const char* content : {static_cast<const char*>(nullptr), "[1, 2]", "{\"pnics\": 5}"}) {
        if (content)
            std::ofstream(dir_ + "/etc/simhost/host.json") << content;
        EXPECT_THROW(FindManagementInterface(), HostCtlException);
        EXPECT_FALSE(IsManagementOnDistributedSwitch());
        EXPECT_TRUE(GetPhysicalNicNames().empty());
    }
    EXPECT_NE(Syslog().find("]: Could not determine if a DVS was in use: "), std::string::npos);
    EXPECT_NE(Syslog().find("]: Getting physical nics failed: "), std::string::npos);
    try {
        FindManagementInterface();
        FAIL() << "no exception";
    } catch (const HostCtlException& e) {
        EXPECT_EQ(DescribeHostCtlError(e), e.what());
        EXPECT_FALSE(DescribeHostCtlError(e).empty());
    }
}
