// Resolver configuration object: a held copy of the host's DNS record, saved in one step.
#include "platform/DnsConfig.h"

#include "platform/HostCtlException.h"

#include <algorithm>

namespace TesCtl::Network {

using namespace HostCtl::Network;

void DnsConfigImpl::Refresh() {
    record_ = Platform::ActiveDnsBackend().Read();
    read_ = true;
}

Platform::DnsRecord& DnsConfigImpl::Current() {
    if (!read_)
        Refresh();
    return record_;
}

std::string DnsConfigImpl::GetHostname() {
    return Current().hostname;
}
std::string DnsConfigImpl::GetDomain() {
    return Current().domain;
}
std::vector<Ipv4Address> DnsConfigImpl::GetNameServers() {
    return Current().servers;
}
std::vector<std::string> DnsConfigImpl::GetSearchDomains() {
    return Current().search;
}

std::vector<Ipv6Address> DnsConfigImpl::GetIpv6NameServers(bool refresh) {
    if (refresh)
        Refresh();
    return Current().ipv6Servers;
}

void DnsConfigImpl::SetHostname(const std::string& name, bool fromDhcp) {
    auto& r = Current();
    Platform::ActiveDnsBackend().Prepare({"SetHostname", name});
    r.hostname = name;
    r.dhcp = fromDhcp;
}

void DnsConfigImpl::SetFqdn(const std::string& fqdn, bool fromDhcp, const std::string& domain) {
    auto& r = Current();
    Platform::ActiveDnsBackend().Prepare({"SetFqdn", fqdn, domain});
    auto dot = fqdn.find('.');
    r.hostname = fqdn.substr(0, dot);
    if (!domain.empty())
        r.domain = domain;
    else if (dot != std::string::npos)
        r.domain = fqdn.substr(dot + 1);
    r.dhcp = fromDhcp;
}

void DnsConfigImpl::RemoveNameServers() {
    auto& r = Current();
    Platform::ActiveDnsBackend().Prepare({"RemoveNameServers"});
    r.servers.clear();
    r.ipv6Servers.clear();
}

void DnsConfigImpl::AddNameServer(const IpAddress& server) {
    auto& r = Current();
    const auto* v4 = dynamic_cast<const Ipv4Address*>(&server);
    const auto* v6 = dynamic_cast<const Ipv6Address*>(&server);
    if (v4 || v6)
        Platform::ActiveDnsBackend().Prepare(
            {"AddNameServer", v4 ? v4->GetStringAddress() : v6->GetScopedStringAddress()});
    if (v4) {
        if (std::find(r.servers.begin(), r.servers.end(), *v4) == r.servers.end())
            r.servers.push_back(*v4);
    } else if (v6) {
        if (std::find(r.ipv6Servers.begin(), r.ipv6Servers.end(), *v6) == r.ipv6Servers.end())
            r.ipv6Servers.push_back(*v6);
    } else {
        throw HostCtl::Lib::HostCtlException("Unknown name server address family");
    }
}

void DnsConfigImpl::SetSearchDomainsString(const std::string& domains) {
    auto& search = Current().search;
    Platform::ActiveDnsBackend().Prepare({"SetSearchDomainsString", domains});
    search.clear();
    std::string piece;
    for (char c : domains + " ") {
        if (c == ' ' || c == '\t' || c == '\n' || c == ',') {
            if (!piece.empty() && std::find(search.begin(), search.end(), piece) == search.end())
                search.push_back(piece);
            piece.clear();
        } else {
            piece += c;
        }
    }
}

void DnsConfigImpl::AddSearchDomain(const std::string& domain) {
    auto& search = Current().search;
    Platform::ActiveDnsBackend().Prepare({"AddSearchDomain", domain});
    if (!domain.empty() && std::find(search.begin(), search.end(), domain) == search.end())
        search.push_back(domain);
}

void DnsConfigImpl::SaveConfig() {
    Platform::ActiveDnsBackend().Write(Current());
}

} // namespace TesCtl::Network
