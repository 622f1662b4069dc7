// Welcome screen texts.
#include "screens/WelcomeText.h"

#include "hostops/CommandText.h"
#include "ui/StringFactory.h"
#include "ui/TextIds.h"

#include <algorithm>
#include <cstdio>

namespace Tarn {
namespace {

const char* OriginLabel(const StringFactory& strings, int type) {
    switch (type) {
    case 0:
        return strings.GetString(TextId::Static);
    case 9:
        return strings.GetString(TextId::Dhcp);
    case 7:
        return strings.GetString(TextId::Autoconf);
    default:
        return nullptr;
    }
}

} // namespace

std::string WelcomeFooter(const StringFactory& strings) {
    return std::string("<F2> {color:dark-grey}") + strings.GetString(TextId::CustomizeSystem) +
           "{/color}{align:right}<F12> {color:dark-grey}" + strings.GetString(TextId::ShutDownRestart) +
           "{/color}{/align}";
}

std::string Ipv6Lines(const StringFactory& strings, const std::vector<WelcomeIpv6Address>& addresses) {
    // Five fit as well as four plus "...", so five are shown whole.
    size_t shown = addresses.size() == 5 ? 5 : std::min<size_t>(addresses.size(), 4);
    std::vector<std::string> lines;
    for (size_t i = 0; i < shown; ++i) {
        std::string line;
        line.reserve(100);
        line += "https://[" + addresses[i].address + "]/ ";
        if (const char* label = OriginLabel(strings, addresses[i].type)) {
            line += '(';
            line += label;
            line += ')';
        }
        line += '\n';
        lines.push_back(std::move(line));
    }
    std::sort(lines.begin(), lines.end());
    std::string text;
    for (const auto& line : lines)
        text += line;
    if (shown < addresses.size())
        text += "...\n";
    return text;
}

std::string ManagementText(const StringFactory& strings, const WelcomeNetworkFacts& facts) {
    std::string text = strings.GetString(TextId::ToManageThisHost);
    if (!facts.hostname.empty() && facts.hostname != "localhost")
        text += "\nhttps://" + facts.hostname + "/ ";
    if (!facts.ipv4Disabled)
        text += "\nhttps://" + facts.ipv4Address + "/ ";
    // The label follows whatever line came last, also the host-name line when IPv4 is off.
    if (facts.dhcp) {
        text += '(';
        text += strings.GetString(facts.dhcpServerKnown ? TextId::Dhcp : TextId::WaitingForDhcp);
        text += ')';
    } else if (!facts.ipv4Disabled) {
        text += '(';
        text += strings.GetString(TextId::Static);
        text += ')';
    }
    if (facts.ipv6Enabled) {
        text += '\n';
        text += Ipv6Lines(strings, facts.ipv6);
    }
    return text;
}

unsigned WarningTextId(bool dhcp, bool dhcpServerKnown, bool auditMode) {
    if (auditMode)
        return TextId::AuditModeWarning;
    if (dhcp && !dhcpServerKnown)
        return TextId::DhcpLookupFailedWarning;
    return 0;
}

std::string HardwareLine(const std::string& vendor, const std::string& product) {
    std::string v = CollapseWhitespace(vendor);
    std::string p = CollapseWhitespace(product);
    if (p.find(v) == 0)
        return p;
    return v + " " + p;
}

std::string MemoryFigure(uint64_t totalBytes) {
    static const char units[] = "MGTP";
    uint64_t unit = uint64_t(1) << 20;
    int step = 0;
    while (step < 3 && totalBytes >= unit * 1024) {
        unit *= 1024;
        ++step;
    }
    // Single precision, rounded half away from zero. Done by hand: the value is below 2^24, so the
    // truncation and the fraction are exact, and the console need not map the maths library for one call.
    const float scaled = static_cast<float>(totalBytes) * 10.0f / static_cast<float>(unit);
    auto whole = static_cast<uint32_t>(scaled);
    if (scaled - static_cast<float>(whole) >= 0.5f)
        ++whole;
    const float value = static_cast<float>(whole) / 10.0f;
    char buffer[64];
    if (whole % 10 == 0)
        std::snprintf(buffer, sizeof buffer, "%.0f %ciB Memory", value, units[step]);
    else
        std::snprintf(buffer, sizeof buffer, "%.1f %ciB Memory", value, units[step]);
    return buffer;
}

std::string CpuAndMemoryText(unsigned packages, const std::string& model, uint64_t totalPages,
                             uint64_t pageSize) {
    std::string text;
    if (packages < 2)
        text = CollapseWhitespace(model);
    else
        text = std::to_string(packages) + " x " + CollapseWhitespace(model);
    text += '\n';
    text += MemoryFigure(totalPages * pageSize);
    return text;
}

} // namespace Tarn
