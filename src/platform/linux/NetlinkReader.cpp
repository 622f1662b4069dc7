// Reading links, addresses and default routes with libnl-route-3 (typed rtnetlink dumps, the same
// whichever network manager configured them), plus the bus device, driver and speed from sysfs.
#include "common/TextFile.h"
#include "platform/HostCtlException.h"
#include "platform/linux/HostFacts.h"

#include <arpa/inet.h>
#include <cstring>
#include <filesystem>
#include <linux/if_arp.h>
#include <memory>
#include <netlink/route/addr.h>
#include <netlink/route/link.h>
#include <netlink/route/route.h>
#include <netlink/route/rtnl.h>

namespace Platform::Linux {
namespace {

namespace fs = std::filesystem;
using HostCtl::Lib::HostCtlException;

struct SocketFree {
    void operator()(nl_sock* s) const { nl_socket_free(s); }
};
struct CacheFree {
    void operator()(nl_cache* c) const { nl_cache_free(c); }
};
using Socket = std::unique_ptr<nl_sock, SocketFree>;
using Cache = std::unique_ptr<nl_cache, CacheFree>;

std::string Text(nl_addr* addr) {
    if (addr == nullptr)
        return {};
    int family = nl_addr_get_family(addr);
    size_t want = family == AF_INET ? 4 : family == AF_INET6 ? 16 : 0;
    if (want == 0 || nl_addr_get_len(addr) != want)
        return {};
    char text[INET6_ADDRSTRLEN];
    return inet_ntop(family, nl_addr_get_binary_addr(addr), text, sizeof text) ? text : "";
}

Cache Dump(nl_sock* sock, const char* what, int (*alloc)(nl_sock*, nl_cache**)) {
    nl_cache* cache = nullptr;
    int err = alloc(sock, &cache);
    if (err < 0)
        throw HostCtlException(std::string("reading the ") + what + " failed: " + nl_geterror(err));
    return Cache(cache);
}

std::string FirstLine(const std::string& path) {
    std::string text;
    if (!Common::ReadTextFile(path, text))
        return {};
    return text.substr(0, text.find('\n'));
}

// The bus address of the link's device; a virtio NIC's device sits on a PCI function, whose address
// is the one that orders NICs as the firmware does.
std::string BusAddress(const std::string& name) {
    std::error_code ec;
    fs::path device = fs::canonical("/sys/class/net/" + name + "/device", ec);
    if (ec)
        return {};
    std::string base = device.filename();
    if (base.starts_with("virtio"))
        base = device.parent_path().filename();
    return base;
}

void AddSysfsFacts(LinkFact& link, std::vector<std::string>& problems) {
    link.busAddress = BusAddress(link.name);
    std::error_code ec;
    fs::path driver = fs::read_symlink("/sys/class/net/" + link.name + "/device/driver", ec);
    link.driver = ec ? link.kind : driver.filename().string();
    // A link without carrier cannot tell its speed; that is no problem worth a log line.
    std::string speed = FirstLine("/sys/class/net/" + link.name + "/speed");
    link.speedMbps = speed.empty() ? 0 : std::max(0, std::atoi(speed.c_str()));
    std::string ra = FirstLine("/proc/sys/net/ipv6/conf/" + link.name + "/accept_ra");
    link.acceptRa = ra.empty() ? 0 : std::atoi(ra.c_str());
    if (link.ethernet && !link.busAddress.empty() && link.driver.empty())
        problems.push_back("driver of " + link.name + " unknown: no driver link in sysfs");
}

void ReadLinks(nl_sock* sock, HostFacts& facts) {
    Cache cache =
        Dump(sock, "links", [](nl_sock* s, nl_cache** c) { return rtnl_link_alloc_cache(s, AF_UNSPEC, c); });
    for (nl_object* o = nl_cache_get_first(cache.get()); o; o = nl_cache_get_next(o)) {
        auto* l = reinterpret_cast<rtnl_link*>(o);
        LinkFact link;
        link.index = rtnl_link_get_ifindex(l);
        link.name = rtnl_link_get_name(l) ? rtnl_link_get_name(l) : "";
        const char* kind = rtnl_link_get_type(l);
        link.kind = kind ? kind : "";
        link.master = rtnl_link_get_master(l);
        unsigned flags = rtnl_link_get_flags(l);
        link.up = flags & IFF_UP;
        link.carrier = flags & IFF_LOWER_UP;
        link.loopback = flags & IFF_LOOPBACK;
        link.ethernet = rtnl_link_get_arptype(l) == ARPHRD_ETHER;
        nl_addr* mac = rtnl_link_get_addr(l);
        if (mac && nl_addr_get_len(mac) == 6) {
            HostCtl::Network::MacAddress::Bytes bytes;
            std::memcpy(bytes.data(), nl_addr_get_binary_addr(mac), 6);
            link.mac = HostCtl::Network::MacAddress(bytes);
        }
        AddSysfsFacts(link, facts.problems);
        facts.links.push_back(std::move(link));
    }
}

void ReadAddresses(nl_sock* sock, HostFacts& facts) {
    Cache cache = Dump(sock, "addresses", rtnl_addr_alloc_cache);
    for (nl_object* o = nl_cache_get_first(cache.get()); o; o = nl_cache_get_next(o)) {
        auto* a = reinterpret_cast<rtnl_addr*>(o);
        int family = rtnl_addr_get_family(a);
        if (family != AF_INET && family != AF_INET6)
            continue;
        AddressFact address;
        address.link = rtnl_addr_get_ifindex(a);
        address.ipv6 = family == AF_INET6;
        address.address = Text(rtnl_addr_get_local(a));
        address.prefixLength = rtnl_addr_get_prefixlen(a);
        address.permanent = rtnl_addr_get_flags(a) & IFA_F_PERMANENT;
        address.linkScope = rtnl_addr_get_scope(a) == RT_SCOPE_LINK;
        if (!address.address.empty())
            facts.addresses.push_back(std::move(address));
    }
}

void ReadDefaultRoutes(nl_sock* sock, HostFacts& facts) {
    Cache cache = Dump(sock, "routes",
                       [](nl_sock* s, nl_cache** c) { return rtnl_route_alloc_cache(s, AF_UNSPEC, 0, c); });
    for (nl_object* o = nl_cache_get_first(cache.get()); o; o = nl_cache_get_next(o)) {
        auto* r = reinterpret_cast<rtnl_route*>(o);
        int family = rtnl_route_get_family(r);
        nl_addr* dst = rtnl_route_get_dst(r);
        if ((family != AF_INET && family != AF_INET6) || rtnl_route_get_table(r) != RT_TABLE_MAIN ||
            rtnl_route_get_type(r) != RTN_UNICAST || (dst && nl_addr_get_prefixlen(dst) != 0) ||
            rtnl_route_get_nnexthops(r) < 1)
            continue;
        rtnl_nexthop* hop = rtnl_route_nexthop_n(r, 0);
        DefaultRouteFact route;
        route.ipv6 = family == AF_INET6;
        route.link = rtnl_route_nh_get_ifindex(hop);
        route.gateway = Text(rtnl_route_nh_get_gateway(hop));
        route.preferredSource = Text(rtnl_route_get_pref_src(r));
        route.metric = rtnl_route_get_priority(r);
        facts.defaultRoutes.push_back(std::move(route));
    }
}

} // namespace

HostFacts ReadHostFacts() {
    Socket sock(nl_socket_alloc());
    if (!sock)
        throw HostCtlException("netlink socket: out of memory");
    if (int err = nl_connect(sock.get(), NETLINK_ROUTE); err < 0)
        throw HostCtlException(std::string("netlink connect failed: ") + nl_geterror(err));
    HostFacts facts;
    ReadLinks(sock.get(), facts);
    ReadAddresses(sock.get(), facts);
    ReadDefaultRoutes(sock.get(), facts);
    std::string disabled = FirstLine("/proc/sys/net/ipv6/conf/all/disable_ipv6");
    facts.ipv6Enabled = disabled == "0";
    if (disabled.empty())
        facts.problems.push_back("IPv6 state unknown: /proc/sys/net/ipv6/conf/all/disable_ipv6 unreadable");
    return facts;
}

} // namespace Platform::Linux
