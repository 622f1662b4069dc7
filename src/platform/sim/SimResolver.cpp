// The simulated resolver: what a host's resolver library would answer, from the simulated host's files.
#include "platform/sim/SimResolver.h"

#include "platform/HostCtlException.h"
#include "platform/HostRoot.h"
#include "platform/TextFile.h"
#include "simhost/model/Store.h"

#include <algorithm>
#include <strings.h>

namespace Platform::Sim {
namespace {

using SimHost::Json;

bool SameName(const std::string& a, const std::string& b) {
    return strcasecmp(a.c_str(), b.c_str()) == 0;
}

// Whether some entry of the hosts file names `name` (the first word of a line is its address).
bool InHostsFile(const std::string& name) {
    std::string text;
    if (!ReadTextFile(HostPath("/etc/hosts"), text))
        return false; // a host without a hosts file simply asks its name servers
    for (const std::string& line : SplitLines(text)) {
        std::vector<std::string> words = SplitWords(line.substr(0, line.find('#')));
        for (size_t i = 1; i < words.size(); ++i)
            if (SameName(words[i], name))
                return true;
    }
    return false;
}

// A name server answers when its address (without a zone) is on the simulated network.
bool ServerAnswers(const Json& answering, std::string server) {
    server = server.substr(0, server.find('%'));
    return std::find(answering.begin(), answering.end(), Json(server)) != answering.end();
}

} // namespace

bool ResolveHostName(const std::string& name) {
    if (InHostsFile(name))
        return true;
    Json state;
    try {
        state = SimHost::Load(HostRoot());
    } catch (const SimHost::StoreError& e) {
        throw HostCtl::Lib::HostCtlException(e.what());
    }
    const Json network = state.value("network", Json::object());
    const Json answering = network.value("answering", Json::array());
    const Json dns = state.value("dns", Json::object());
    bool reachable = false;
    for (const char* list : {"servers", "ipv6Servers"})
        for (const auto& server : dns.value(list, Json::array()))
            reachable =
                reachable || (server.is_string() && ServerAnswers(answering, server.get<std::string>()));
    if (!reachable)
        return false;
    const Json names = network.value("names", Json::object());
    for (const auto& entry : names.items())
        if (SameName(entry.key(), name))
            return true;
    return false;
}

} // namespace Platform::Sim
