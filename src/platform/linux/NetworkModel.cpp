// Mapping kernel facts onto NICs, switches, port groups and tesnics.
#include "platform/linux/NetworkModel.h"

#include "platform/Network.h"

#include <algorithm>

namespace Platform::Linux {
namespace {

using namespace HostCtl::Network;

struct Mapper {
    const HostFacts& facts;
    const LinuxHostConfig& config;
    const OriginSources& origins;
    MappedNetwork out;
    std::vector<std::pair<const LinkFact*, std::string>> nics; // in nicxN order

    const LinkFact* Link(int index) const {
        for (const auto& link : facts.links)
            if (link.index == index)
                return &link;
        return nullptr;
    }
    const LinkFact* Link(const std::string& name) const {
        for (const auto& link : facts.links)
            if (link.name == name)
                return &link;
        return nullptr;
    }

    void Nics() {
        std::vector<const LinkFact*> candidates;
        for (const auto& link : facts.links)
            if (link.ethernet && link.kind.empty() && !link.busAddress.empty())
                candidates.push_back(&link);
        std::stable_sort(candidates.begin(), candidates.end(),
                         [](auto* a, auto* b) { return a->busAddress < b->busAddress; });
        for (const auto& name : config.nics) {
            const LinkFact* link = Link(name);
            if (!link)
                out.problems.push_back("configured NIC " + name + " does not exist");
            else if (std::find(candidates.begin(), candidates.end(), link) == candidates.end())
                candidates.push_back(link);
        }
        for (const LinkFact* link : candidates) {
            PnicRecord pnic;
            pnic.name = "nicx" + std::to_string(out.snapshot.pnics.size());
            pnic.pci = link->busAddress;
            pnic.label = (link->driver.empty() ? "unknown driver" : link->driver) + " (" + link->name + ")";
            pnic.driver = link->driver;
            pnic.mac = link->mac;
            pnic.link = link->up && link->carrier;
            pnic.speedMbps = link->speedMbps;
            nics.emplace_back(link, pnic.name);
            out.snapshot.pnics.push_back(std::move(pnic));
        }
    }

    // A switch per bridge or bond and per NIC outside them, each with a tesnic of the switch's name.
    void Switches() {
        std::vector<const LinkFact*> holders;
        for (const auto& link : facts.links)
            if (IsSwitch(&link))
                holders.push_back(&link);
        for (const auto& [link, name] : nics)
            if (!IsSwitch(Link(link->master)))
                holders.push_back(link);
        for (const LinkFact* holder : holders) {
            StandardSwitchRecord kswitch;
            kswitch.name = holder->name;
            kswitch.ports = Portset::DEF_NUM_PORTS;
            for (const auto& [link, name] : nics)
                if (link == holder || link->master == holder->index)
                    kswitch.uplinks.push_back(name);
            PortGroupRecord group;
            group.name = holder->name;
            group.teaming.SetUplinkOrder(kswitch.uplinks);
            group.teaming.SetMaxActiveUplinks(static_cast<int>(kswitch.uplinks.size()));
            kswitch.portGroups.push_back(std::move(group));
            out.snapshot.standardSwitches.push_back(std::move(kswitch));
            AddTesNic(*holder, true);
        }
    }

    static bool IsSwitch(const LinkFact* link) {
        return link && (link->kind == "bridge" || link->kind == "bond");
    }

    const DefaultRouteFact* DefaultRoute(bool ipv6) const {
        const DefaultRouteFact* best = nullptr;
        for (const auto& route : facts.defaultRoutes)
            if (route.ipv6 == ipv6 && (!best || route.metric < best->metric))
                best = &route;
        return best;
    }

    void AddTesNic(const LinkFact& link, bool onPortGroup) {
        TesNicRecord tesnic;
        tesnic.name = link.name;
        if (onPortGroup) {
            tesnic.connection.type = ConnectionPoint::TYPE_PORT_GROUP;
            tesnic.connection.portGroup = link.name;
        }
        tesnic.mac = link.mac;
        tesnic.enabled = link.up;
        IpConfig running, stored;
        Ipv4Address ipv4;
        int prefix = 0;
        for (const auto& a : facts.addresses)
            if (a.link == link.index && !a.ipv6 && ipv4.GetBinaryAddress() == 0 && !a.linkScope) {
                ipv4 = Ipv4Address(a.address);
                prefix = a.prefixLength;
            }
        if (ipv4.GetBinaryAddress() != 0) {
            running.SetIpv4Address(ipv4);
            running.SetIpv4Netmask(Ipv4Address::FromBinary(prefix == 0 ? 0 : ~0u << (32 - prefix)));
        }
        if (const auto* route = DefaultRoute(false);
            route && route->link == link.index && !route->gateway.empty())
            running.SetIpv4Gateway(Ipv4Address(route->gateway));
        const Ipv4Origin origin = DecideIpv4Origin(origins, link.name, ipv4);
        tesnic.dhcpBound = origin.dhcp;
        tesnic.dhcpServer = origin.server;
        running.SetUseDhcp(origin.dhcp);
        stored = running;
        // No address and no DHCP: the link is not set up for IPv4, which is what the console calls "none".
        if (!origin.dhcp && ipv4.GetBinaryAddress() == 0)
            stored.SetUseDhcp(false, true);
        if (origin.dhcp) {
            stored.SetIpv4Address({});
            stored.SetIpv4Netmask({});
            stored.SetIpv4Gateway({});
        }
        if (facts.ipv6Enabled) {
            running.EnableIpv6();
            stored.EnableIpv6();
            for (const auto& a : facts.addresses) {
                if (a.link != link.index || !a.ipv6)
                    continue;
                Ipv6Address address(a.address);
                if (a.linkScope)
                    address = Ipv6Address(address.GetBinaryAddress(), link.name);
                Ipv6Network network(address, a.prefixLength);
                network.SetIpv6AddressType(DecideIpv6Type(origins, link.name, a));
                running.AddIpv6Network(network);
                if (network.GetIpv6AddressType() == Ipv6Network::TYPE_STATIC)
                    stored.AddIpv6Network(network);
                if (network.GetIpv6AddressType() == Ipv6Network::TYPE_DHCP) {
                    running.SetUseIpv6Dhcp(true);
                    stored.SetUseIpv6Dhcp(true);
                }
            }
            running.SetUseIpv6RouterAdvertised(link.acceptRa > 0);
            stored.SetUseIpv6RouterAdvertised(link.acceptRa > 0);
            if (const auto* route = DefaultRoute(true);
                route && route->link == link.index && !route->gateway.empty())
                running.SetIpv6Gateway(Ipv6Gateway(*route));
        }
        tesnic.running = std::move(running);
        tesnic.stored = std::move(stored);
        out.snapshot.tesnics.push_back(std::move(tesnic));
    }

    Ipv6Address Ipv6Gateway(const DefaultRouteFact& route) const {
        Ipv6Address gateway(route.gateway);
        const LinkFact* link = Link(route.link);
        return gateway.IsLinkLocal() && link ? Ipv6Address(gateway.GetBinaryAddress(), link->name) : gateway;
    }

    const LinkFact* ManagementLink() {
        if (!config.management.empty()) {
            if (const LinkFact* link = Link(config.management))
                return link;
            out.problems.push_back("configured management link " + config.management + " does not exist");
        }
        const DefaultRouteFact* route = DefaultRoute(false);
        if (!route)
            return LinkWithoutRoute();
        if (!route->preferredSource.empty())
            for (const auto& a : facts.addresses)
                if (!a.ipv6 && a.address == route->preferredSource)
                    return Link(a.link);
        return Link(route->link);
    }

    // Without a default route (a host on one network only), the first tesnic on a switch with uplinks,
    // one holding an IPv4 address before others: what the host can be reached at, if anything.
    const LinkFact* LinkWithoutRoute() {
        const Platform::TesNicRecord* chosen = nullptr;
        for (const auto& tesnic : out.snapshot.tesnics) {
            bool uplinks = false;
            for (const auto& kswitch : out.snapshot.standardSwitches)
                uplinks = uplinks || (kswitch.name == tesnic.name && !kswitch.uplinks.empty());
            if (!uplinks)
                continue;
            if (tesnic.running.GetIpv4Address().GetBinaryAddress() != 0) {
                chosen = &tesnic;
                break;
            }
            if (!chosen)
                chosen = &tesnic;
        }
        if (!chosen) {
            out.problems.push_back("no management interface: no IPv4 default route and no NIC");
            return nullptr;
        }
        out.problems.push_back("no IPv4 default route: management is on " + chosen->name);
        return Link(chosen->name);
    }

    void Management() {
        const LinkFact* link = ManagementLink();
        if (!link || link->loopback)
            return;
        auto& tesnics = out.snapshot.tesnics;
        auto it = std::find_if(tesnics.begin(), tesnics.end(), [&](auto& t) { return t.name == link->name; });
        if (it == tesnics.end()) {
            // A link the console cannot place on a switch (a VLAN, a tunnel): shown, its switch unknown.
            AddTesNic(*link, false);
            it = tesnics.end() - 1;
        }
        out.snapshot.management = link->name;
        out.managementDhcp = it->stored.GetUseDhcp();
    }

    void Routes() {
        if (const auto* route = DefaultRoute(false); route && !route->gateway.empty())
            out.routes.ipv4Gateway = Ipv4Address(route->gateway);
        if (const auto* route = DefaultRoute(true); route && !route->gateway.empty())
            out.routes.ipv6Gateway = Ipv6Gateway(*route);
    }
};

} // namespace

MappedNetwork MapNetwork(const HostFacts& facts, const LinuxHostConfig& config,
                         const OriginSources& origins) {
    Mapper mapper{facts, config, origins, {}, {}};
    mapper.out.problems = facts.problems;
    mapper.Nics();
    mapper.Switches();
    mapper.Management();
    mapper.Routes();
    mapper.out.snapshot.ipv6Enabled = facts.ipv6Enabled;
    mapper.out.snapshot.ipv6PendingEnabled = facts.ipv6Enabled;
    return std::move(mapper.out);
}

} // namespace Platform::Linux
