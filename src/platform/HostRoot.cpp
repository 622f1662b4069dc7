// Host root selection and path mapping.
#include "platform/HostRoot.h"

namespace Platform {
namespace {
std::string gRoot = "/";
bool gSimulated = false;
} // namespace

const std::string& HostRoot() {
    return gRoot;
}
bool IsSimulatedHost() {
    return gSimulated;
}

void UseSimulatedHost(const std::string& dir) {
    gRoot = dir;
    while (gRoot.size() > 1 && gRoot.back() == '/')
        gRoot.pop_back();
    gSimulated = true;
}

void UseRealHost() {
    // assign(1, '/') rather than = "/": GCC 12 warns wrongly (-Wrestrict) on the latter.
    gRoot.assign(1, '/');
    gSimulated = false;
}

std::string HostPath(std::string_view absolutePath) {
    if (!gSimulated)
        return std::string(absolutePath);
    std::string out = gRoot;
    if (absolutePath.empty() || absolutePath.front() != '/')
        out += '/';
    out += absolutePath;
    return out;
}

} // namespace Platform
