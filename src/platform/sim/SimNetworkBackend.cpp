// Changes of the simulated host's network, resolver and routes, each one host.json transaction. The
// simulated network's DHCP server (network.dhcp) answers whenever an interface (re)acquires a lease.
#include "platform/sim/SimNetworkBackend.h"

#include "platform/HostCtlException.h"
#include "platform/Network.h"
#include "platform/sim/SimNetworkJson.h"
#include "platform/sim/SimState.h"
#include "simhost/model/JsonNumber.h"

#include <algorithm>

namespace Platform::Sim {
namespace {

// The management interface's MAC address on a host without physical NICs (locally administered).
constexpr const char* kNoNicMac = "02:50:56:00:00:01";

using HostCtl::Lib::HostCtlException;

Json* FindNamed(Json& array, const std::string& name) {
    for (auto& entry : array)
        if (entry.value("name", std::string()) == name)
            return &entry;
    return nullptr;
}

Json& Named(Json& state, const char* pointer, const std::string& name, const char* what) {
    Json* entry = FindNamed(state.at(Json::json_pointer(pointer)), name);
    if (!entry)
        throw HostCtlException(std::string(what) + " " + name + " not found");
    return *entry;
}

Json& TesNic(Json& state, const std::string& name) {
    return Named(state, "/tesnics", name, "tesnic");
}
Json& Switch(Json& state, const std::string& name) {
    return Named(state, "/standardSwitches", name, "standard switch");
}

Json& PortGroup(Json& kswitch, const std::string& name) {
    Json* pg = FindNamed(kswitch["portGroups"], name);
    if (!pg)
        throw HostCtlException("port group " + name + " not found on " +
                               kswitch.value("name", std::string()));
    return *pg;
}

bool Contains(const Json& array, const std::string& value) {
    return std::find(array.begin(), array.end(), Json(value)) != array.end();
}

void Erase(Json& array, const std::string& value) {
    array.erase(std::remove(array.begin(), array.end(), Json(value)), array.end());
}

// Name of the switch (standard or distributed) that uses `pnic` as an uplink; empty when none.
std::string UplinkOwner(const Json& state, const std::string& pnic) {
    for (const char* list : {"/standardSwitches", "/distributedSwitches"})
        for (const auto& s : state.at(Json::json_pointer(list)))
            if (Contains(s.value("uplinks", Json::array()), pnic))
                return s.value("name", std::string());
    return {};
}

// Asks the simulated network's DHCP server for a lease on behalf of `tesnic` and puts the answer into its
// running configuration; without a server the interface keeps no address (0.0.0.0), as a real one would.
void AcquireLease(Json& state, Json& tesnic) {
    Json& running = tesnic["running"];
    const Json& dhcp = state["network"]["dhcp"];
    if (dhcp.value("available", false) && dhcp.contains("lease")) {
        const Json& lease = dhcp.at("lease");
        running["address"] = lease.value("address", "0.0.0.0");
        running["netmask"] = lease.value("netmask", "0.0.0.0");
        running["gateway"] = lease.value("gateway", "0.0.0.0");
        tesnic["dhcpServer"] = lease.value("server", "0.0.0.0");
        tesnic["dhcpBound"] = true;
    } else {
        running["address"] = "0.0.0.0";
        running["netmask"] = "0.0.0.0";
        running["gateway"] = "0.0.0.0";
        tesnic["dhcpServer"] = "0.0.0.0";
        tesnic["dhcpBound"] = false;
    }
}

// One recorded operation on a kernel interface: its name, the interface, then `arguments`.
void ChangeTesNic(const char* operation, const std::string& name, std::vector<std::string> arguments,
                  const std::function<void(Json&, Json&)>& change) {
    arguments.insert(arguments.begin(), {operation, name});
    Operate(arguments, [&](Json& state) { change(state, TesNic(state, name)); });
}

std::string Text(bool value) {
    return value ? "true" : "false";
}

std::string Joined(const std::vector<std::string>& words) {
    std::string text;
    for (const auto& w : words)
        text += (text.empty() ? "" : ",") + w;
    return text;
}

// The words by which an IP configuration shows in the call log: IPv4 mode and addresses, IPv6 mode.
std::vector<std::string> Describe(const HostCtl::Network::IpConfig& c) {
    std::string ipv4 = c.GetUseDhcp()       ? "dhcp"
                       : c.GetIpv4UseNone() ? "none"
                                            : c.GetIpv4Address().GetStringAddress() + "/" +
                                                  c.GetIpv4Netmask().GetStringAddress();
    std::string ipv6 = !c.GetIpv6Enabled()  ? "ipv6-off"
                       : c.GetUseIpv6Dhcp() ? (c.GetUseIpv6RouterAdvertised() ? "dhcpv6+ra" : "dhcpv6")
                       : c.GetUseIpv6RouterAdvertised() ? "ra"
                                                        : "ipv6-static";
    return {ipv4, ipv6, c.GetDhcpDns() ? "dns-dhcp" : "dns-manual"};
}

} // namespace

NetworkSnapshot SimNetworkBackend::Read() {
    return NetworkFromJson(*Load());
}

void SimNetworkBackend::SetTesNicIpConfig(const std::string& name, const HostCtl::Network::IpConfig& config) {
    ChangeTesNic("SetIpConfig", name, Describe(config), [&](Json& state, Json& tesnic) {
        // A host persists interface configuration: the stored one is what was set; the running one is the
        // same, except that DHCP replaces the IPv4 addresses with what the server hands out.
        tesnic["stored"] = IpConfigToJson(config);
        tesnic["running"] = IpConfigToJson(config);
        if (config.GetUseDhcp())
            AcquireLease(state, tesnic);
        else
            tesnic["dhcpServer"] = "0.0.0.0";
    });
}

void SimNetworkBackend::SetTesNicMac(const std::string& name, const HostCtl::Network::MacAddress& mac) {
    ChangeTesNic("SetMacAddress", name, {mac.GetStringAddress()},
                 [&](Json&, Json& tesnic) { tesnic["mac"] = mac.GetStringAddress(); });
}

void SimNetworkBackend::SetTesNicEnabled(const std::string& name, bool enabled) {
    ChangeTesNic(enabled ? "Enable" : "Disable", name, {}, [&](Json& state, Json& tesnic) {
        tesnic["enabled"] = enabled;
        // Bringing an interface up with DHCP asks for a lease again.
        if (enabled && tesnic["running"].value("dhcp", false))
            AcquireLease(state, tesnic);
    });
}

void SimNetworkBackend::SetTesNicDhcpBound(const std::string& name, bool bound) {
    ChangeTesNic("SetDhcpBound", name, {Text(bound)},
                 [&](Json&, Json& tesnic) { tesnic["dhcpBound"] = bound; });
}

void SimNetworkBackend::SetTesNicConnection(const std::string& name, const ConnectionRecord& connection) {
    std::string target =
        connection.type == 1 ? connection.portGroup : connection.switchName + ":" + connection.port;
    ChangeTesNic("SetConnectionPoint", name, {target}, [&](Json& state, Json& tesnic) {
        if (connection.type == 1) {
            bool found = false;
            for (auto& s : state.at("standardSwitches"))
                found = found || FindNamed(s["portGroups"], connection.portGroup) != nullptr;
            if (!found)
                throw HostCtlException("port group " + connection.portGroup + " not found");
        }
        tesnic["connection"] = ConnectionToJson(connection);
    });
}

void SimNetworkBackend::RenewDhcpLease(const std::string& name) {
    ChangeTesNic("RenewDhcpLease", name, {}, [&](Json& state, Json& tesnic) {
        if (!tesnic["running"].value("dhcp", false))
            throw HostCtlException("DHCP is not in use on " + name);
        AcquireLease(state, tesnic);
    });
}

void SimNetworkBackend::RenewDhcpv6Lease(const std::string& name) {
    // The simulated network has no DHCPv6 server model: a renewal keeps the addresses the interface holds.
    ChangeTesNic("RenewDhcpv6Lease", name, {}, [&](Json&, Json& tesnic) {
        if (!tesnic["running"].value("dhcpv6", false))
            throw HostCtlException("DHCPv6 is not in use on " + name);
    });
}

void SimNetworkBackend::AddStandardSwitch(const std::string& name, int ports) {
    Operate({"AddVirtualSwitch", name, std::to_string(ports)}, [&](Json& state) {
        if (FindNamed(state.at("standardSwitches"), name) || FindNamed(state.at("distributedSwitches"), name))
            throw HostCtlException("A switch named " + name + " already exists");
        if (ports <= 0)
            throw HostCtlException("Invalid number of ports: " + std::to_string(ports));
        state["standardSwitches"].push_back(
            {{"name", name}, {"ports", ports}, {"uplinks", Json::array()}, {"portGroups", Json::array()}});
    });
}

void SimNetworkBackend::AddPortGroup(const std::string& kswitch, const std::string& portGroup) {
    Operate({"AddPortGroup", kswitch, portGroup}, [&](Json& state) {
        for (auto& s : state.at("standardSwitches"))
            if (FindNamed(s["portGroups"], portGroup))
                throw HostCtlException("A port group named " + portGroup + " already exists");
        Json& s = Switch(state, kswitch);
        // A new port group teams over all uplinks of its switch.
        const Json& uplinks = s["uplinks"];
        s["portGroups"].push_back(
            {{"name", portGroup},
             {"vlan", 0},
             {"teaming", {{"uplinkOrder", uplinks}, {"maxActive", static_cast<int>(uplinks.size())}}}});
    });
}

void SimNetworkBackend::AddUplink(const std::string& kswitch, const std::string& pnic) {
    Operate({"AddUplink", kswitch, pnic}, [&](Json& state) {
        if (!FindNamed(state.at("pnics"), pnic))
            throw HostCtlException("physical NIC " + pnic + " not found");
        Json& s = Switch(state, kswitch);
        if (std::string owner = UplinkOwner(state, pnic); !owner.empty())
            throw HostCtlException(pnic + " is already an uplink of " + owner);
        s["uplinks"].push_back(pnic);
    });
}

void SimNetworkBackend::RemoveUplink(const std::string& kswitch, const std::string& pnic) {
    Operate({"RemoveUplink", kswitch, pnic}, [&](Json& state) {
        Json& s = Switch(state, kswitch);
        if (!Contains(s["uplinks"], pnic))
            throw HostCtlException(pnic + " is not an uplink of " + kswitch);
        Erase(s["uplinks"], pnic);
        // No port group may keep teaming over an uplink its switch no longer has.
        for (auto& pg : s["portGroups"]) {
            if (!pg.contains("teaming"))
                continue;
            Json& teaming = pg["teaming"];
            Erase(teaming["uplinkOrder"], pnic);
            int size = static_cast<int>(teaming["uplinkOrder"].size());
            teaming["maxActive"] = std::min(SimHost::WholeNumber(teaming, "maxActive", 0), size);
        }
    });
}

void SimNetworkBackend::SetTeamingPolicy(const std::string& kswitch, const std::string& portGroup,
                                         const HostCtl::Network::NicTeamingPolicy& policy) {
    Operate({"SetTeamingPolicy", kswitch, portGroup, Joined(policy.GetUplinkOrder()),
             std::to_string(policy.GetMaxActiveUplinks())},
            [&](Json& state) {
                Json& s = Switch(state, kswitch);
                Json& pg = PortGroup(s, portGroup);
                const auto& order = policy.GetUplinkOrder();
                for (const auto& uplink : order)
                    if (!Contains(s["uplinks"], uplink))
                        throw HostCtlException("uplink " + uplink + " is not on " + kswitch);
                if (policy.GetMaxActiveUplinks() < 0 ||
                    policy.GetMaxActiveUplinks() > static_cast<int>(order.size()))
                    throw HostCtlException("Invalid number of active uplinks: " +
                                           std::to_string(policy.GetMaxActiveUplinks()));
                pg["teaming"] = TeamingToJson(policy);
            });
}

void SimNetworkBackend::SetVlanId(const std::string& kswitch, const std::string& portGroup, uint16_t vlan) {
    Operate({"SetVlanId", kswitch, portGroup, std::to_string(vlan)}, [&](Json& state) {
        if (vlan > 4095)
            throw HostCtlException("Invalid VLAN ID: " + std::to_string(vlan));
        PortGroup(Switch(state, kswitch), portGroup)["vlan"] = vlan;
    });
}

void SimNetworkBackend::RemoveDistributedUplink(const std::string& dswitch, const std::string& pnic) {
    Operate({"RemoveDkSwitchUplink", dswitch, pnic}, [&](Json& state) {
        Json& d = Named(state, "/distributedSwitches", dswitch, "distributed switch");
        if (!Contains(d["uplinks"], pnic))
            throw HostCtlException(pnic + " is not an uplink of " + dswitch);
        Erase(d["uplinks"], pnic);
    });
}

void SimNetworkBackend::AddDistributedPort(const std::string& dswitch, const DistributedPortRecord& port) {
    Change([&](Json& state) {
        Json& d = Named(state, "/distributedSwitches", dswitch, "distributed switch");
        for (const auto& existing : d["ports"])
            if (existing.value("key", std::string()) == port.key)
                throw HostCtlException("port " + port.key + " already exists on " + dswitch);
        for (const auto& uplink : port.uplinks)
            if (!Contains(d["uplinks"], uplink))
                throw HostCtlException(uplink + " is not an uplink of " + dswitch);
        if (port.vlan > 4094)
            throw HostCtlException("Invalid VLAN ID: " + std::to_string(port.vlan));
        d["ports"].push_back({{"key", port.key},
                              {"portGroup", port.portGroup},
                              {"vlan", port.vlan},
                              {"uplinks", port.uplinks},
                              {"hostLocal", port.hostLocal}});
    });
}

void SimNetworkBackend::SetIpv6Enabled(bool enabled) {
    Operate({"SetTesIpv6Enabled", Text(enabled)},
            [&](Json& state) { state["ipv6"]["pendingEnabled"] = enabled; });
}

void SimNetworkBackend::ClearNetworkConfig() {
    Operate({"ClearNetworkConfig"}, [](Json& state) {
        state["standardSwitches"] = Json::array();
        state["distributedSwitches"] = Json::array();
        state["tesnics"] = Json::array();
        state["management"] = "";
        state["routes"] = {{"ipv4Gateway", ""}, {"ipv6Gateway", ""}};
    });
}

void SimNetworkBackend::AutoConfigNetwork() {
    Operate({"AutoConfigNetwork"}, [](Json& state) {
        // The first NIC with a link carries the default network, else simply the first one; a host without
        // NICs still gets its switch and management interface, without an uplink.
        const Json& pnics = state.at("pnics");
        const Json* uplink = pnics.empty() ? nullptr : &pnics.front();
        for (const auto& p : pnics)
            if (p.value("link", false)) {
                uplink = &p;
                break;
            }
        const Json uplinks = uplink ? Json::array({uplink->at("name")}) : Json::array();
        const std::string portGroup = "Management Network";
        if (!FindNamed(state["standardSwitches"], "kSwitch0")) {
            for (const auto& nic : uplinks)
                if (std::string owner = UplinkOwner(state, nic); !owner.empty())
                    throw HostCtlException(nic.get<std::string>() + " is already an uplink of " + owner);
            state["standardSwitches"].push_back(
                {{"name", "kSwitch0"},
                 {"ports", HostCtl::Network::Portset::DEF_NUM_PORTS},
                 {"uplinks", uplinks},
                 {"portGroups",
                  {{{"name", portGroup},
                    {"vlan", 0},
                    {"teaming", {{"uplinkOrder", uplinks}, {"maxActive", uplinks.size()}}}}}}});
        }
        if (!FindNamed(state["tesnics"], "tes0")) {
            HostCtl::Network::IpConfig config;
            config.SetUseDhcp(true);
            config.SetDhcpDns(true);
            if (state["ipv6"].value("enabled", false)) {
                config.EnableIpv6();
                config.SetUseIpv6RouterAdvertised(true);
            }
            state["tesnics"].push_back({{"name", "tes0"},
                                        {"connection", {{"type", 1}, {"portGroup", portGroup}}},
                                        {"mac", uplink ? uplink->at("mac") : Json(kNoNicMac)},
                                        {"enabled", true},
                                        {"dhcpBound", false},
                                        {"dhcpServer", "0.0.0.0"},
                                        {"stored", IpConfigToJson(config)},
                                        {"running", IpConfigToJson(config)}});
            AcquireLease(state, state["tesnics"].back());
        }
        state["management"] = "tes0";
    });
}

void SimNetworkBackend::DisableNetDumper() {
    Operate({"DisableNetDumper"}, [](Json& state) { state["netDumper"]["enabled"] = false; });
}

// ---- DNS

DnsRecord SimDnsBackend::Read() {
    return DnsFromJson(*Load());
}

void SimDnsBackend::Write(const DnsRecord& dns) {
    Operate({"SaveDnsConfig"}, [&](Json& state) {
        Json servers = Json::array();
        for (const auto& s : dns.servers)
            servers.push_back(s.GetStringAddress());
        Json ipv6Servers = Json::array();
        for (const auto& s : dns.ipv6Servers)
            ipv6Servers.push_back(s.GetScopedStringAddress());
        Json& out = state["dns"];
        out["hostname"] = dns.hostname;
        out["domain"] = dns.domain;
        out["servers"] = servers;
        out["ipv6Servers"] = ipv6Servers;
        out["search"] = dns.search;
        out["dhcp"] = dns.dhcp;
    });
}

void SimDnsBackend::Prepare(const std::vector<std::string>& operation) {
    Announce(operation);
}

// ---- Routes

RouteRecord SimRoutingBackend::Read() {
    return RoutesFromJson(*Load());
}

void SimRoutingBackend::SetIpv4Gateway(const HostCtl::Network::Ipv4Address& gateway) {
    Operate({"SetTesselDefaultGateway", gateway.GetStringAddress()}, [&](Json& state) {
        state["routes"]["ipv4Gateway"] = gateway.GetBinaryAddress() == 0 ? "" : gateway.GetStringAddress();
    });
}

void SimRoutingBackend::SetIpv6Gateway(const HostCtl::Network::Ipv6Address& gateway) {
    Operate({"SetIpv6TesselDefaultGateway", gateway.GetScopedStringAddress()}, [&](Json& state) {
        state["routes"]["ipv6Gateway"] = gateway.IsUnspecified() ? "" : gateway.GetScopedStringAddress();
    });
}

} // namespace Platform::Sim
