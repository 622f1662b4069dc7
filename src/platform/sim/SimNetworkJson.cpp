// host.json <-> network records.
#include "platform/sim/SimNetworkJson.h"

#include "platform/HostCtlException.h"
#include "platform/HostRoot.h"
#include "simhost/model/JsonNumber.h"

namespace Platform::Sim {
namespace {

using namespace HostCtl::Network;

const char* const kScopes[] = {"global", "link", "site", "host"};

int ScopeFromName(const std::string& name) {
    for (int i = 0; i < 4; ++i)
        if (name == kScopes[i])
            return i;
    throw HostCtl::Lib::HostCtlException(
        SimHost::InvalidState(HostRoot(), "unknown IPv6 scope '" + name + "'"));
}

// Unset addresses are stored as "" or as the all-zero text; both read as unset.
Ipv4Address V4(const Json& json, const char* key) {
    return Ipv4Address(json.value(key, std::string()));
}
Ipv6Address V6(const Json& json, const char* key) {
    return Ipv6Address(json.value(key, std::string()));
}

std::vector<std::string> Strings(const Json& json, const char* key) {
    return json.contains(key) ? json.at(key).get<std::vector<std::string>>() : std::vector<std::string>{};
}

ConnectionRecord ConnectionFromJson(const Json& json) {
    ConnectionRecord c;
    c.type = SimHost::WholeNumber<int>(json.at("type"), "type");
    c.portGroup = json.value("portGroup", std::string());
    c.switchName = json.value("switch", std::string());
    c.port = json.value("port", std::string());
    return c;
}

NicTeamingPolicy TeamingFromJson(const Json& json) {
    NicTeamingPolicy policy;
    policy.SetUplinkOrder(Strings(json, "uplinkOrder"));
    policy.SetMaxActiveUplinks(SimHost::WholeNumber(json, "maxActive", 0));
    return policy;
}

// Runs a parse, turning the JSON library's type and key errors into host-control failures.
template <typename F> auto Guarded(F&& parse) -> decltype(parse()) {
    try {
        return parse();
    } catch (const nlohmann::json::exception& e) {
        throw HostCtl::Lib::HostCtlException(SimHost::InvalidState(HostRoot(), e.what()));
    }
}

} // namespace

const char* ScopeName(int scope) {
    return scope >= 0 && scope < 4 ? kScopes[scope] : "global";
}

IpConfig IpConfigFromJson(const Json& json) {
    return Guarded([&] {
        IpConfig config;
        config.SetUseDhcp(json.value("dhcp", false), json.value("ipv4None", false));
        config.SetIpv4Address(V4(json, "address"));
        config.SetIpv4Netmask(V4(json, "netmask"));
        config.SetIpv4Gateway(V4(json, "gateway"));
        if (json.value("ipv6Enabled", false))
            config.EnableIpv6();
        config.SetUseIpv6Dhcp(json.value("dhcpv6", false));
        config.SetUseIpv6RouterAdvertised(json.value("routerAdvertised", false));
        if (json.contains("ipv6")) {
            for (const auto& entry : json.at("ipv6")) {
                Ipv6Network network(Ipv6Address(entry.at("address").get<std::string>()),
                                    SimHost::WholeNumber<int>(entry.at("prefix"), "prefix"));
                network.SetIpv6AddressType(SimHost::WholeNumber(entry, "type", Ipv6Network::TYPE_STATIC));
                if (entry.contains("scope"))
                    network.SetIpv6Scope(ScopeFromName(entry.at("scope").get<std::string>()));
                config.AddIpv6Network(network);
            }
        }
        config.SetIpv6Gateway(V6(json, "ipv6Gateway"));
        config.SetDhcpDns(json.value("dhcpDns", false));
        return config;
    });
}

Json IpConfigToJson(const IpConfig& config) {
    Json ipv6 = Json::array();
    for (const auto& network : config.GetIpv6Network()) {
        ipv6.push_back({{"address", network.GetAddress().GetScopedStringAddress()},
                        {"prefix", network.GetPrefixLength()},
                        {"type", network.GetIpv6AddressType()},
                        {"scope", ScopeName(network.GetIpv6Scope())}});
    }
    const Ipv6Address& gw6 = config.GetIpv6Gateway();
    return {{"dhcp", config.GetUseDhcp()},
            {"ipv4None", config.GetIpv4UseNone()},
            {"address", config.GetIpv4Address().GetStringAddress()},
            {"netmask", config.GetIpv4Netmask().GetStringAddress()},
            {"gateway", config.GetIpv4Gateway().GetStringAddress()},
            {"ipv6Enabled", config.GetIpv6Enabled()},
            {"dhcpv6", config.GetUseIpv6Dhcp()},
            {"routerAdvertised", config.GetUseIpv6RouterAdvertised()},
            {"ipv6", ipv6},
            {"ipv6Gateway", gw6.IsUnspecified() ? std::string() : gw6.GetScopedStringAddress()},
            {"dhcpDns", config.GetDhcpDns()}};
}

Json ConnectionToJson(const ConnectionRecord& c) {
    Json json = {{"type", c.type}};
    if (c.type == 1)
        json["portGroup"] = c.portGroup;
    if (c.type == 2) {
        json["switch"] = c.switchName;
        json["port"] = c.port;
    }
    return json;
}

Json TeamingToJson(const NicTeamingPolicy& policy) {
    return {{"uplinkOrder", policy.GetUplinkOrder()}, {"maxActive", policy.GetMaxActiveUplinks()}};
}

NetworkSnapshot NetworkFromJson(const Json& state) {
    return Guarded([&] {
        NetworkSnapshot s;
        for (const auto& p : At(state, "/pnics")) {
            PnicRecord r;
            r.name = p.at("name").get<std::string>();
            r.pci = p.value("pci", std::string());
            r.label = p.value("label", std::string());
            r.driver = p.value("driver", std::string());
            r.mac = MacAddress(p.at("mac").get<std::string>());
            r.link = p.value("link", false);
            r.speedMbps = SimHost::WholeNumber(p, "speedMbps", 0);
            r.pciReadable = p.value("pciReadable", true);
            s.pnics.push_back(std::move(r));
        }
        for (const auto& v : At(state, "/standardSwitches")) {
            StandardSwitchRecord r;
            r.name = v.at("name").get<std::string>();
            r.ports = SimHost::WholeNumber(v, "ports", 0);
            r.uplinks = Strings(v, "uplinks");
            for (const auto& pg : v.value("portGroups", Json::array())) {
                PortGroupRecord g;
                g.name = pg.at("name").get<std::string>();
                g.vlan = SimHost::WholeNumber(pg, "vlan", uint16_t{0});
                if (pg.contains("teaming"))
                    g.teaming = TeamingFromJson(pg.at("teaming"));
                r.portGroups.push_back(std::move(g));
            }
            s.standardSwitches.push_back(std::move(r));
        }
        for (const auto& d : At(state, "/distributedSwitches")) {
            DistributedSwitchRecord r;
            r.name = d.at("name").get<std::string>();
            r.uuid = d.value("uuid", std::string());
            r.vendor = d.value("vendor", std::string("Orvane"));
            r.uplinks = Strings(d, "uplinks");
            for (const auto& port : d.value("ports", Json::array()))
                r.ports.push_back({port.at("key").get<std::string>(), port.value("portGroup", std::string()),
                                   SimHost::WholeNumber(port, "vlan", uint16_t{0}), Strings(port, "uplinks"),
                                   port.value("hostLocal", false)});
            s.distributedSwitches.push_back(std::move(r));
        }
        for (const auto& t : At(state, "/tesnics")) {
            TesNicRecord r;
            r.name = t.at("name").get<std::string>();
            r.connection = ConnectionFromJson(t.at("connection"));
            r.mac = MacAddress(t.at("mac").get<std::string>());
            r.enabled = t.value("enabled", true);
            r.dhcpBound = t.value("dhcpBound", false);
            r.dhcpServer = V4(t, "dhcpServer");
            r.stored = IpConfigFromJson(t.at("stored"));
            r.running = IpConfigFromJson(t.at("running"));
            s.tesnics.push_back(std::move(r));
        }
        s.management = At(state, "/management").get<std::string>();
        s.ipv6Enabled = At(state, "/ipv6/enabled").get<bool>();
        s.ipv6PendingEnabled = state.at("ipv6").value("pendingEnabled", s.ipv6Enabled);
        return s;
    });
}

DnsRecord DnsFromJson(const Json& state) {
    return Guarded([&] {
        const Json& dns = At(state, "/dns");
        DnsRecord r;
        r.hostname = dns.value("hostname", std::string());
        r.domain = dns.value("domain", std::string());
        for (const auto& server : Strings(dns, "servers"))
            r.servers.emplace_back(server);
        for (const auto& server : Strings(dns, "ipv6Servers"))
            r.ipv6Servers.emplace_back(server);
        r.search = Strings(dns, "search");
        r.dhcp = dns.value("dhcp", false);
        return r;
    });
}

RouteRecord RoutesFromJson(const Json& state) {
    return Guarded([&] {
        const Json& routes = At(state, "/routes");
        return RouteRecord{V4(routes, "ipv4Gateway"), V6(routes, "ipv6Gateway")};
    });
}

} // namespace Platform::Sim
