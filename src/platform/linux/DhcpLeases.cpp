// Parsing dhclient lease files and ifupdown interface definitions.
#include "platform/linux/DhcpLeases.h"

#include "platform/linux/TextLines.h"

namespace Platform::Linux {
namespace {

using HostCtl::Network::Ipv4Address;

// The statements of a lease file: words up to ';', '{' or '}', those three as words of their own, quotes
// kept around a quoted text (which may hold any of them), '#' comments dropped.
std::vector<std::string> Tokens(std::string_view text) {
    std::vector<std::string> tokens;
    std::string word;
    auto flush = [&] {
        if (!word.empty())
            tokens.push_back(std::move(word));
        word.clear();
    };
    for (size_t i = 0; i < text.size(); ++i) {
        char c = text[i];
        if (c == '"') {
            size_t end = text.find('"', i + 1);
            if (end == std::string_view::npos)
                end = text.size();
            word.append(text.substr(i, end - i + 1));
            i = end;
        } else if (c == '#') {
            flush();
            i = text.find('\n', i);
            if (i == std::string_view::npos)
                break;
        } else if (c == ';' || c == '{' || c == '}') {
            flush();
            tokens.emplace_back(1, c);
        } else if (c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == ',') {
            flush();
        } else {
            word += c;
        }
    }
    flush();
    return tokens;
}

std::string Unquote(const std::string& word) {
    if (word.size() >= 2 && word.front() == '"' && word.back() == '"')
        return word.substr(1, word.size() - 2);
    return word;
}

Ipv4Address Address(const std::string& word) {
    return Ipv4Address::IsValidAddress(word) ? Ipv4Address(word) : Ipv4Address();
}

std::vector<Ipv4Address> Addresses(const std::vector<std::string>& words, size_t from) {
    std::vector<Ipv4Address> out;
    for (size_t i = from; i < words.size(); ++i)
        if (Ipv4Address::IsValidAddress(words[i]))
            out.emplace_back(words[i]);
    return out;
}

void Apply(DhcpLease& lease, const std::vector<std::string>& s) {
    if (s.size() < 2)
        return;
    if (s[0] == "interface")
        lease.interface = Unquote(s[1]);
    else if (s[0] == "fixed-address")
        lease.address = Address(s[1]);
    else if (s[0] == "option" && s.size() >= 3) {
        if (s[1] == "subnet-mask")
            lease.netmask = Address(s[2]);
        else if (s[1] == "dhcp-server-identifier")
            lease.server = Address(s[2]);
        else if (s[1] == "routers")
            lease.routers = Addresses(s, 2);
        else if (s[1] == "domain-name-servers")
            lease.nameServers = Addresses(s, 2);
        else if (s[1] == "domain-name")
            lease.domain = Unquote(s[2]);
    }
}

} // namespace

std::vector<DhcpLease> ParseDhclientLeases(std::string_view text) {
    std::vector<DhcpLease> leases;
    auto tokens = Tokens(text);
    for (size_t i = 0; i + 1 < tokens.size(); ++i) {
        if (tokens[i] != "lease" || tokens[i + 1] != "{")
            continue;
        DhcpLease lease;
        std::vector<std::string> statement;
        int depth = 1; // nested blocks (none in dhclient's own files) are skipped whole
        size_t j = i + 2;
        for (; j < tokens.size() && depth > 0; ++j) {
            const std::string& t = tokens[j];
            if (t == "{") {
                ++depth;
                statement.clear();
            } else if (t == "}") {
                --depth;
                statement.clear();
            } else if (t == ";") {
                if (depth == 1)
                    Apply(lease, statement);
                statement.clear();
            } else {
                statement.push_back(t);
            }
        }
        if (depth == 0)
            leases.push_back(std::move(lease));
        i = j - 1;
    }
    return leases;
}

const DhcpLease* FindLease(const std::vector<DhcpLease>& leases, const std::string& interface,
                           const Ipv4Address& address) {
    if (address.GetBinaryAddress() == 0)
        return nullptr;
    for (auto it = leases.rbegin(); it != leases.rend(); ++it)
        if (it->interface == interface && it->address == address)
            return &*it;
    return nullptr;
}

std::map<std::string, IfupdownMethods> ParseIfupdownInterfaces(std::string_view text) {
    std::map<std::string, IfupdownMethods> out;
    for (std::string_view line : SplitLines(text)) {
        auto words = SplitWords(line);
        if (words.size() < 4 || words[0] != "iface")
            continue;
        auto& methods = out[std::string(words[1])];
        if (words[2] == "inet")
            methods.inet = words[3];
        else if (words[2] == "inet6")
            methods.inet6 = words[3];
    }
    return out;
}

} // namespace Platform::Linux
