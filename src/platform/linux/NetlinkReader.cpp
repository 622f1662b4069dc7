// Reading links, addresses and default routes with libnl-route-3 (typed rtnetlink dumps, the same
// whichever network manager configured them), plus the bus device, driver and speed from sysfs.
// The library is opened at the first read, not linked: a console on the simulated host never maps it
// (about 0.5 MiB of its resident memory).
#include "common/TextFile.h"
#include "platform/HostCtlException.h"
#include "platform/linux/HostFacts.h"

#include <arpa/inet.h>
#include <cstring>
#include <dlfcn.h>
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

// Every libnl call the reader makes, all of them reads: netns_console_links_no_network_change checks the
// names the console looks up.
// clang-format off
#define TARN_NETLINK_CALLS(X)                                                                                  \
    X(nl_socket_alloc) X(nl_socket_free) X(nl_connect) X(nl_geterror) X(nl_cache_free) X(nl_cache_get_first)   \
    X(nl_cache_get_next) X(nl_addr_get_family) X(nl_addr_get_len) X(nl_addr_get_binary_addr)                   \
    X(nl_addr_get_prefixlen) X(rtnl_link_alloc_cache) X(rtnl_link_get_ifindex) X(rtnl_link_get_name)           \
    X(rtnl_link_get_type) X(rtnl_link_get_master) X(rtnl_link_get_flags) X(rtnl_link_get_arptype)              \
    X(rtnl_link_get_addr) X(rtnl_addr_alloc_cache) X(rtnl_addr_get_family) X(rtnl_addr_get_ifindex)           \
    X(rtnl_addr_get_local) X(rtnl_addr_get_prefixlen) X(rtnl_addr_get_flags) X(rtnl_addr_get_scope)           \
    X(rtnl_route_alloc_cache) X(rtnl_route_get_family) X(rtnl_route_get_dst) X(rtnl_route_get_table)           \
    X(rtnl_route_get_type) X(rtnl_route_get_nnexthops) X(rtnl_route_nexthop_n) X(rtnl_route_nh_get_ifindex)    \
    X(rtnl_route_nh_get_gateway) X(rtnl_route_get_pref_src) X(rtnl_route_get_priority)
// clang-format on

struct Netlink {
#define TARN_NETLINK_MEMBER(name) decltype(&::name) name = nullptr;
    TARN_NETLINK_CALLS(TARN_NETLINK_MEMBER)
#undef TARN_NETLINK_MEMBER
};

// Opened once and kept for the life of the process, like a linked library; libnl-3 comes with it.
const Netlink& Nl() {
    static const Netlink netlink = [] {
        void* library = dlopen("libnl-route-3.so.200", RTLD_NOW | RTLD_LOCAL);
        if (library == nullptr)
            throw HostCtlException(std::string("cannot load libnl-route-3: ") + dlerror());
        Netlink n;
#define TARN_NETLINK_BIND(name)                                                                              \
    n.name = reinterpret_cast<decltype(n.name)>(dlsym(library, #name));                                      \
    if (n.name == nullptr)                                                                                   \
        throw HostCtlException(std::string("libnl-route-3 lacks ") + #name);
        TARN_NETLINK_CALLS(TARN_NETLINK_BIND)
#undef TARN_NETLINK_BIND
        return n;
    }();
    return netlink;
}

struct SocketFree {
    void operator()(nl_sock* s) const { Nl().nl_socket_free(s); }
};
struct CacheFree {
    void operator()(nl_cache* c) const { Nl().nl_cache_free(c); }
};
using Socket = std::unique_ptr<nl_sock, SocketFree>;
using Cache = std::unique_ptr<nl_cache, CacheFree>;

std::string Text(nl_addr* addr) {
    const Netlink& nl = Nl();
    if (addr == nullptr)
        return {};
    int family = nl.nl_addr_get_family(addr);
    size_t want = family == AF_INET ? 4 : family == AF_INET6 ? 16 : 0;
    if (want == 0 || nl.nl_addr_get_len(addr) != want)
        return {};
    char text[INET6_ADDRSTRLEN];
    return inet_ntop(family, nl.nl_addr_get_binary_addr(addr), text, sizeof text) ? text : "";
}

Cache Dump(nl_sock* sock, const char* what, int (*alloc)(nl_sock*, nl_cache**)) {
    nl_cache* cache = nullptr;
    int err = alloc(sock, &cache);
    if (err < 0)
        throw HostCtlException(std::string("reading the ") + what + " failed: " + Nl().nl_geterror(err));
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
    const Netlink& nl = Nl();
    Cache cache = Dump(sock, "links",
                       [](nl_sock* s, nl_cache** c) { return Nl().rtnl_link_alloc_cache(s, AF_UNSPEC, c); });
    for (nl_object* o = nl.nl_cache_get_first(cache.get()); o; o = nl.nl_cache_get_next(o)) {
        auto* l = reinterpret_cast<rtnl_link*>(o);
        LinkFact link;
        link.index = nl.rtnl_link_get_ifindex(l);
        link.name = nl.rtnl_link_get_name(l) ? nl.rtnl_link_get_name(l) : "";
        const char* kind = nl.rtnl_link_get_type(l);
        link.kind = kind ? kind : "";
        link.master = nl.rtnl_link_get_master(l);
        unsigned flags = nl.rtnl_link_get_flags(l);
        link.up = flags & IFF_UP;
        link.carrier = flags & IFF_LOWER_UP;
        link.loopback = flags & IFF_LOOPBACK;
        link.ethernet = nl.rtnl_link_get_arptype(l) == ARPHRD_ETHER;
        nl_addr* mac = nl.rtnl_link_get_addr(l);
        if (mac && nl.nl_addr_get_len(mac) == 6) {
            HostCtl::Network::MacAddress::Bytes bytes;
            std::memcpy(bytes.data(), nl.nl_addr_get_binary_addr(mac), 6);
            link.mac = HostCtl::Network::MacAddress(bytes);
        }
        AddSysfsFacts(link, facts.problems);
        facts.links.push_back(std::move(link));
    }
}

void ReadAddresses(nl_sock* sock, HostFacts& facts) {
    const Netlink& nl = Nl();
    Cache cache =
        Dump(sock, "addresses", [](nl_sock* s, nl_cache** c) { return Nl().rtnl_addr_alloc_cache(s, c); });
    for (nl_object* o = nl.nl_cache_get_first(cache.get()); o; o = nl.nl_cache_get_next(o)) {
        auto* a = reinterpret_cast<rtnl_addr*>(o);
        int family = nl.rtnl_addr_get_family(a);
        if (family != AF_INET && family != AF_INET6)
            continue;
        AddressFact address;
        address.link = nl.rtnl_addr_get_ifindex(a);
        address.ipv6 = family == AF_INET6;
        address.address = Text(nl.rtnl_addr_get_local(a));
        address.prefixLength = nl.rtnl_addr_get_prefixlen(a);
        address.permanent = nl.rtnl_addr_get_flags(a) & IFA_F_PERMANENT;
        address.linkScope = nl.rtnl_addr_get_scope(a) == RT_SCOPE_LINK;
        if (!address.address.empty())
            facts.addresses.push_back(std::move(address));
    }
}

void ReadDefaultRoutes(nl_sock* sock, HostFacts& facts) {
    const Netlink& nl = Nl();
    Cache cache = Dump(sock, "routes", [](nl_sock* s, nl_cache** c) {
        return Nl().rtnl_route_alloc_cache(s, AF_UNSPEC, 0, c);
    });
    for (nl_object* o = nl.nl_cache_get_first(cache.get()); o; o = nl.nl_cache_get_next(o)) {
        auto* r = reinterpret_cast<rtnl_route*>(o);
        int family = nl.rtnl_route_get_family(r);
        nl_addr* dst = nl.rtnl_route_get_dst(r);
        if ((family != AF_INET && family != AF_INET6) || nl.rtnl_route_get_table(r) != RT_TABLE_MAIN ||
            nl.rtnl_route_get_type(r) != RTN_UNICAST || (dst && nl.nl_addr_get_prefixlen(dst) != 0) ||
            nl.rtnl_route_get_nnexthops(r) < 1)
            continue;
        rtnl_nexthop* hop = nl.rtnl_route_nexthop_n(r, 0);
        DefaultRouteFact route;
        route.ipv6 = family == AF_INET6;
        route.link = nl.rtnl_route_nh_get_ifindex(hop);
        route.gateway = Text(nl.rtnl_route_nh_get_gateway(hop));
        route.preferredSource = Text(nl.rtnl_route_get_pref_src(r));
        route.metric = nl.rtnl_route_get_priority(r);
        facts.defaultRoutes.push_back(std::move(route));
    }
}

} // namespace

HostFacts ReadHostFacts() {
    const Netlink& nl = Nl();
    Socket sock(nl.nl_socket_alloc());
    if (!sock)
        throw HostCtlException("netlink socket: out of memory");
    if (int err = nl.nl_connect(sock.get(), NETLINK_ROUTE); err < 0)
        throw HostCtlException(std::string("netlink connect failed: ") + nl.nl_geterror(err));
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
