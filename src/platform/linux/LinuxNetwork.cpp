// The Linux network, DNS and routing backends: snapshots taken when asked, no thread, no events. This
// phase only reads: every change is refused with "not available on this host" and logged.
#include "platform/linux/LinuxNetwork.h"

#include "common/TextFile.h"
#include "platform/Backends.h"
#include "platform/HostCtlException.h"
#include "platform/Syslog.h"
#include "platform/linux/NetworkdQuery.h"
#include "platform/linux/ResolvConf.h"
#include "platform/linux/Sandbox.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <mutex>
#include <set>
#include <syslog.h>
#include <unistd.h>

namespace Platform::Linux {
namespace {

using HostCtl::Lib::HostCtlException;
using namespace HostCtl::Network;

[[noreturn]] void Refuse(const std::string& what) {
    SyslogWrite(LOG_WARNING, what + ": not available on this host");
    throw HostCtlException("not available on this host");
}

void Guard() {
    std::string refusal = SandboxRefusal();
    if (!refusal.empty()) {
        LogOnce("real host network: " + refusal);
        throw HostCtlException(refusal);
    }
}

// An absent file is normal (no tarn configuration, no dhclient); only other failures are worth a line.
std::string ReadOptional(const std::string& path) {
    std::string text;
    if (!Common::ReadTextFile(path, text)) {
        if (errno != ENOENT)
            LogOnce(path + " unreadable: " + std::strerror(errno));
        text.clear();
    }
    return text;
}

OriginSources LoadOrigins(const HostFacts& facts) {
    OriginSources origins;
    std::error_code ec;
    std::set<std::string> leaseFiles; // sorted, so the order of leases does not depend on the directory
    for (const auto& entry : std::filesystem::directory_iterator("/var/lib/dhcp", ec)) {
        std::string file = entry.path().filename();
        if (file.starts_with("dhclient") && !file.starts_with("dhclient6") && file.ends_with(".leases"))
            leaseFiles.insert(entry.path());
    }
    for (const auto& file : leaseFiles) {
        auto leases = ParseDhclientLeases(ReadOptional(file));
        origins.leases.insert(origins.leases.end(), leases.begin(), leases.end());
    }
    origins.ifupdown = ParseIfupdownInterfaces(ReadOptional("/etc/network/interfaces"));
    for (const auto& link : facts.links) {
        // Only an address needs its origin explained: a bridge port or an idle link costs no query.
        bool addressed = std::any_of(facts.addresses.begin(), facts.addresses.end(),
                                     [&](const AddressFact& a) { return a.link == link.index; });
        if (!addressed || link.loopback)
            continue;
        std::string error;
        auto json = DescribeNetworkdLink(link.index, link.name, error);
        if (!error.empty())
            LogOnce("networkd's description of " + link.name + " unknown: " + error);
        if (!json)
            continue;
        try {
            origins.networkd[link.name] = ParseNetworkdLink(*json);
        } catch (const std::exception& e) {
            LogOnce("networkd's description of " + link.name + " unreadable: " + e.what());
        }
    }
    return origins;
}

class LinuxNetworkBackend : public NetworkBackend {
public:
    NetworkSnapshot Read() override { return ReadNetwork().snapshot; }
    void SetTesNicIpConfig(const std::string& t, const IpConfig&) override {
        Refuse("set IP configuration of " + t);
    }
    void SetTesNicMac(const std::string& t, const MacAddress&) override { Refuse("set MAC address of " + t); }
    void SetTesNicEnabled(const std::string& t, bool) override { Refuse("enable or disable " + t); }
    void SetTesNicDhcpBound(const std::string& t, bool) override { Refuse("bind DHCP of " + t); }
    void SetTesNicConnection(const std::string& t, const ConnectionRecord&) override { Refuse("move " + t); }
    void RenewDhcpLease(const std::string& t) override { Refuse("renew the DHCP lease of " + t); }
    void RenewDhcpv6Lease(const std::string& t) override { Refuse("renew the DHCPv6 lease of " + t); }
    void AddStandardSwitch(const std::string& s, int) override { Refuse("add switch " + s); }
    void AddPortGroup(const std::string& s, const std::string&) override {
        Refuse("add a port group to " + s);
    }
    void AddUplink(const std::string& s, const std::string& p) override {
        Refuse("add uplink " + p + " to " + s);
    }
    void RemoveUplink(const std::string& s, const std::string& p) override {
        Refuse("remove uplink " + p + " from " + s);
    }
    void SetTeamingPolicy(const std::string& s, const std::string&, const NicTeamingPolicy&) override {
        Refuse("set the teaming policy of " + s);
    }
    void SetVlanId(const std::string& s, const std::string&, uint16_t) override {
        Refuse("set a VLAN on " + s);
    }
    void RemoveDistributedUplink(const std::string& s, const std::string&) override {
        Refuse("remove an uplink of " + s);
    }
    void AddDistributedPort(const std::string& s, const DistributedPortRecord&) override {
        Refuse("add a port to " + s);
    }
    void SetIpv6Enabled(bool) override { Refuse("switch IPv6"); }
    void ClearNetworkConfig() override { Refuse("clear the network configuration"); }
    void AutoConfigNetwork() override { Refuse("configure the network automatically"); }
    void DisableNetDumper() override { Refuse("disable the network dump collector"); }
};

class LinuxDnsBackend : public DnsBackend {
public:
    DnsRecord Read() override { return ReadDns(); }
    void Write(const DnsRecord&) override { Refuse("write the resolver configuration"); }
    void Prepare(const std::vector<std::string>& operation) override {
        Refuse(operation.empty() ? "change DNS" : "change DNS (" + operation[0] + ")");
    }
};

class LinuxRoutingBackend : public RoutingBackend {
public:
    RouteRecord Read() override { return ReadNetwork().routes; }
    void SetIpv4Gateway(const Ipv4Address&) override { Refuse("set the IPv4 default gateway"); }
    void SetIpv6Gateway(const Ipv6Address&) override { Refuse("set the IPv6 default gateway"); }
};

} // namespace

void LogOnce(const std::string& text) {
    static std::mutex mutex;
    static std::set<std::string> logged;
    std::lock_guard lock(mutex);
    if (logged.insert(text).second)
        SyslogWrite(LOG_WARNING, text);
}

MappedNetwork ReadNetwork() {
    Guard();
    LinuxHostConfig config = ParseLinuxHostConfig(ReadOptional(kLinuxHostConfigPath));
    for (const auto& problem : config.problems)
        LogOnce(std::string(kLinuxHostConfigPath) + ": " + problem);
    HostFacts facts = ReadHostFacts();
    MappedNetwork mapped = MapNetwork(facts, config, LoadOrigins(facts));
    for (const auto& problem : mapped.problems)
        LogOnce(problem);
    return mapped;
}

DnsRecord ReadDns() {
    Guard();
    DnsRecord dns;
    std::string text;
    ResolvConf conf;
    if (Common::ReadTextFile("/etc/resolv.conf", text))
        conf = ParseResolvConf(text);
    else
        LogOnce(std::string("name servers unknown: /etc/resolv.conf: ") + std::strerror(errno));
    if (OnlyLocalStub(conf) && Common::ReadTextFile("/run/systemd/resolve/resolv.conf", text)) {
        ResolvConf resolved = ParseResolvConf(text);
        conf.servers = resolved.servers;
        conf.ipv6Servers = resolved.ipv6Servers;
    }
    dns.servers = conf.servers;
    dns.ipv6Servers = conf.ipv6Servers;
    dns.search = conf.search;
    char node[256] = {};
    if (gethostname(node, sizeof node - 1) != 0)
        LogOnce(std::string("host name unknown: ") + std::strerror(errno));
    std::string name = node;
    size_t dot = name.find('.');
    dns.hostname = name.substr(0, dot);
    dns.domain = dot == std::string::npos ? conf.domain : name.substr(dot + 1);
    dns.dhcp = ReadNetwork().managementDhcp;
    return dns;
}

NetworkBackend& NetworkArea() {
    static LinuxNetworkBackend area;
    return area;
}

DnsBackend& DnsArea() {
    static LinuxDnsBackend area;
    return area;
}

RoutingBackend& RoutingArea() {
    static LinuxRoutingBackend area;
    return area;
}

} // namespace Platform::Linux
