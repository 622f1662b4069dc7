// Parsing the resolver's configuration file.
#include "platform/linux/ResolvConf.h"

#include "platform/linux/TextLines.h"

namespace Platform::Linux {

using HostCtl::Network::Ipv4Address;
using HostCtl::Network::Ipv6Address;

ResolvConf ParseResolvConf(std::string_view text) {
    ResolvConf conf;
    for (std::string_view line : SplitLines(text)) {
        auto words = SplitWords(line);
        if (words.empty() || words[0].starts_with('#') || words[0].starts_with(';'))
            continue;
        if (words[0] == "nameserver" && words.size() >= 2) {
            if (Ipv4Address::IsValidAddress(words[1]))
                conf.servers.emplace_back(words[1]);
            else if (Ipv6Address::IsValidAddress(words[1]))
                conf.ipv6Servers.emplace_back(words[1]);
        } else if (words[0] == "search" || words[0] == "domain") {
            conf.search.clear();
            conf.domain.clear();
            for (size_t i = 1; i < words.size(); ++i) {
                if (words[i].starts_with('#') || words[i].starts_with(';'))
                    break;
                conf.search.emplace_back(words[i]);
            }
            if (words[0] == "domain" && !conf.search.empty()) {
                conf.search.resize(1);
                conf.domain = conf.search[0];
            }
        }
    }
    return conf;
}

bool OnlyLocalStub(const ResolvConf& conf) {
    if (conf.servers.empty() || !conf.ipv6Servers.empty())
        return false;
    for (const auto& server : conf.servers)
        if ((server.GetBinaryAddress() >> 24) != 127)
            return false;
    return true;
}

} // namespace Platform::Linux
