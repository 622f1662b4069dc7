// The real host's files as hostile input: the resolver configuration, dhclient leases, ifupdown definitions,
// networkd's link description and tarn's own configuration never crash their parsers, and what they accept
// is well formed: addresses valid, link names within the kernel's rules, one lease per complete block.
#include "FuzzCheck.h"
#include "platform/linux/DhcpLeases.h"
#include "platform/linux/LinuxHostConfig.h"
#include "platform/linux/NetworkdLink.h"
#include "platform/linux/ResolvConf.h"

#include <stdexcept>
#include <string_view>

using namespace Platform::Linux;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string_view text(reinterpret_cast<const char*>(data), size);

    ResolvConf conf = ParseResolvConf(text);
    for (const auto& server : conf.servers)
        FUZZ_CHECK(HostCtl::Network::Ipv4Address::IsValidAddress(server.GetStringAddress()));
    FUZZ_CHECK(conf.domain.empty() || conf.search == std::vector<std::string>{conf.domain});

    auto leases = ParseDhclientLeases(text);
    FUZZ_CHECK(leases.size() <= size / 7); // "lease{}" is the shortest block
    for (const auto& lease : leases)
        FUZZ_CHECK(FindLease(leases, lease.interface, lease.address) != nullptr ||
                   lease.address.GetBinaryAddress() == 0);

    ParseIfupdownInterfaces(text);

    try {
        NetworkdLink link = ParseNetworkdLink(text);
        for (const auto& address : link.addresses)
            FUZZ_CHECK(!address.address.empty());
    } catch (const std::runtime_error&) {
    }

    LinuxHostConfig config = ParseLinuxHostConfig(text);
    for (const auto& nic : config.nics)
        FUZZ_CHECK(!nic.empty() && nic.size() <= 15 && nic.find('/') == std::string::npos);
    FUZZ_CHECK(config.management.size() <= 15);
    return 0;
}
