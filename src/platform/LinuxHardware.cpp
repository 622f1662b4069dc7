// Real host: hardware identity from DMI, CPU facts from /proc/cpuinfo, memory from sysconf; no smart-card
// or virtual-machine model.
#include "common/TextFile.h"
#include "platform/HostCtlException.h"
#include "platform/HostRoot.h"
#include "platform/LinuxHost.h"

#include <set>
#include <unistd.h>

namespace Platform::Linux {
namespace {

using HostCtl::Lib::HostCtlException;

std::string ReadFile(const std::string& path) {
    std::string text;
    if (!Common::ReadTextFile(Platform::HostPath(path), text))
        throw HostCtlException("cannot read " + path);
    return text;
}

std::string_view Trim(std::string_view s) {
    const char* blanks = " \t\r\n";
    size_t begin = s.find_first_not_of(blanks);
    if (begin == std::string_view::npos)
        return {};
    return s.substr(begin, s.find_last_not_of(blanks) - begin + 1);
}

class LinuxHardware : public HardwareBackend {
public:
    PlatformIdentity Identity() override {
        return {std::string(Trim(ReadFile("/sys/class/dmi/id/sys_vendor"))),
                std::string(Trim(ReadFile("/sys/class/dmi/id/product_name")))};
    }

    CpuFacts Cpu() override { return ParseCpuInfo(ReadFile("/proc/cpuinfo")); }

    MemoryFacts Memory() override {
        long pages = sysconf(_SC_PHYS_PAGES);
        long size = sysconf(_SC_PAGESIZE);
        if (pages <= 0 || size <= 0)
            throw HostCtlException("cannot read the memory size");
        return {static_cast<uint64_t>(pages), static_cast<uint64_t>(size)};
    }
};

class LinuxSmartCards : public SmartCardBackend {
public:
    std::vector<SmartCardSlotState> Slots() override { NotAvailable(); }
};

class LinuxResources : public ResourceBackend {
public:
    bool HasRunningVirtualMachines() override { NotAvailable(); }
};

} // namespace

void NotAvailable() {
    throw HostCtlException("not available on this host");
}

CpuFacts ParseCpuInfo(std::string_view text) {
    CpuFacts facts;
    std::set<std::string> packages;
    while (!text.empty()) {
        size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
        size_t colon = line.find(':');
        if (colon == std::string_view::npos)
            continue;
        std::string_view key = Trim(line.substr(0, colon));
        std::string_view value = Trim(line.substr(colon + 1));
        if (key == "physical id")
            packages.emplace(value);
        else if (key == "model name" && facts.model.empty())
            facts.model = value;
    }
    facts.packages = packages.empty() ? 1 : static_cast<int>(packages.size());
    return facts;
}

HardwareBackend& HardwareArea() {
    static LinuxHardware area;
    return area;
}

SmartCardBackend& SmartCardArea() {
    static LinuxSmartCards area;
    return area;
}

ResourceBackend& ResourceArea() {
    static LinuxResources area;
    return area;
}

} // namespace Platform::Linux
