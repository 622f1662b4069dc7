// The host's resolver configuration (host name, domain, name servers, search list). Changes are held in the
// object and reach the host only with SaveConfig, in one step, so a half-applied DNS change cannot happen.
#pragma once

#include "platform/NetworkBackend.h"
#include "platform/NetworkTypes.h"

#include <string>
#include <vector>

namespace TesCtl::Network {

class DnsConfigImpl {
public:
    // The console's only stack is "defaultTcpipStack". Nothing is read until the first use.
    explicit DnsConfigImpl(std::string stack = "defaultTcpipStack") : stack_(std::move(stack)) {}

    // Re-reads the host, dropping unsaved changes.
    void Refresh();
    // True before the first read.
    bool IsStale() const { return !read_; }
    const std::string& GetStack() const { return stack_; }

    std::string GetHostname();
    std::string GetDomain();
    std::vector<HostCtl::Network::Ipv4Address> GetNameServers();
    // `refresh`: re-read the host first (dropping unsaved changes).
    std::vector<HostCtl::Network::Ipv6Address> GetIpv6NameServers(bool refresh);
    std::vector<std::string> GetSearchDomains();

    // `fromDhcp`: whether the name came from a DHCP server; a name set by hand is false.
    void SetHostname(const std::string& name, bool fromDhcp);
    // `fqdn` may carry the domain ("host02.corp.test"); a non-empty `domain` takes precedence over it.
    void SetFqdn(const std::string& fqdn, bool fromDhcp, const std::string& domain);
    void RemoveNameServers();
    // An IPv4 or IPv6 server; one already listed is not added twice.
    void AddNameServer(const HostCtl::Network::IpAddress& server);
    // Replaces the search list with the names in `domains` (separated by white space or commas).
    void SetSearchDomainsString(const std::string& domains);
    // Appends one name unless already listed.
    void AddSearchDomain(const std::string& domain);
    // Writes every held change to the host.
    void SaveConfig();

private:
    Platform::DnsRecord& Current();

    std::string stack_;
    Platform::DnsRecord record_;
    bool read_ = false;
};

} // namespace TesCtl::Network
