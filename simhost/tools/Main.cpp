// simhost-tool: the multi-call program installed under every tool name of a simulated host. It finds its
// host from its own location, records the call, and answers like the real tool on host.json.
#include "Tool.h"

#include "simhost/model/CallLog.h"

#include <cerrno>
#include <charconv>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <iostream>
#include <map>
#include <unistd.h>

namespace fs = std::filesystem;

namespace SimHost::Tools {
namespace {

const std::map<std::string, Handler> kHandlers = {
    {"kelp-cmd", KelpCmd},
    {"corlacli", CorlaCli},
    {"nearcli", CorlaCli}, // the older name of the configuration tool, kept as a fallback
    {"corlacfg-advcfg", AdvCfg},
    {"haltGuests", HaltGuests},
    {"reboot", Reboot},
    {"poweroff", Poweroff},
    {"tesping", Tesping},
    {"svcctl.sh", SvcCtl},
    {"cfgsave.sh", CfgSave},
    {"resetCfg.py", ResetCfg},
    {"CorlaShell", InitScript},
    {"SSH", InitScript},
    {"bryn-opsagent", InitScript},
    {"tesbacktrace", TesBacktrace},
    {"bryncfg-kswitch", BrynCfgKswitch},
};

// The nearest ancestor of the executable that holds a host state: DIR/bin/x, DIR/sbin/x and deeper
// installs such as DIR/usr/lib64/.../bin/x all find the same DIR. "" when there is none.
std::string FindHostDir() {
    std::error_code ec;
    fs::path exe = fs::read_symlink("/proc/self/exe", ec);
    if (ec)
        return "";
    for (fs::path p = exe.parent_path(); p.has_relative_path(); p = p.parent_path())
        if (fs::exists(p / "etc/simhost/host.json", ec) || fs::exists(p / "etc/simhost", ec))
            return p.string();
    return "";
}

// Words of a call as failure entries match them: tool name, then arguments; kelp-cmd's "-U USER" is left
// out so that an entry names the command whichever user runs it.
std::vector<std::string> MatchWords(const Call& call) {
    std::vector<std::string> words{call.name};
    for (size_t i = 0; i < call.args.size(); ++i) {
        if (call.name == "kelp-cmd" && call.args[i] == "-U") {
            ++i;
            continue;
        }
        words.push_back(call.args[i]);
    }
    return words;
}

} // namespace

std::vector<std::string> ToolNames() {
    std::vector<std::string> names;
    for (const auto& [name, handler] : kHandlers)
        names.push_back(name);
    return names;
}

int RunCall(const Call& call) {
    auto handler = kHandlers.find(call.name);
    if (handler == kHandlers.end())
        return Complain(call, "unknown tool", 127);
    try {
        if (SimHost::IsFailing(SimHost::Load(call.dir), MatchWords(call)))
            return Complain(call, "simulated failure");
        return handler->second(call);
    } catch (const SimHost::StoreError& e) {
        return Complain(call, e.what());
    } catch (const SimHost::Json::exception& e) {
        return Complain(call, SimHost::InvalidState(call.dir, e.what()));
    } catch (const std::exception& e) {
        return Complain(call, std::string("unexpected state: ") + e.what());
    }
}

std::string Option(const std::vector<std::string>& args, const std::string& flag) {
    for (size_t i = 0; i + 1 < args.size(); ++i)
        if (args[i] == flag)
            return args[i + 1];
    return "";
}

std::optional<int> CountArgument(const std::string& text, int low, int high) {
    int value = 0;
    const char* end = text.data() + text.size();
    auto [stop, error] = std::from_chars(text.data(), end, value);
    if (text.empty() || text[0] == '-' || error != std::errc() || stop != end || value < low || value > high)
        return std::nullopt;
    return value;
}

Json* FindNamed(Json& array, const std::string& name) {
    if (!array.is_array())
        return nullptr;
    for (auto& item : array)
        if (item.is_object() && item.value("name", "") == name)
            return &item;
    return nullptr;
}

int Complain(const Call& call, const std::string& text, int code) {
    std::cerr << call.name << ": " << text << "\n";
    return code;
}

} // namespace SimHost::Tools

int main(int argc, char** argv) {
    using namespace SimHost::Tools;
    std::vector<std::string> words(argv, argv + argc);
    Call call;
    call.name = words.empty() ? "" : fs::path(words[0]).filename().string();
    if (!kHandlers.count(call.name)) {
        std::error_code ec;
        call.name = fs::read_symlink("/proc/self/exe", ec).filename().string();
    }
    call.dir = FindHostDir();
    if (call.dir.empty()) {
        std::cerr << call.name << ": not installed in a simulated host (no etc/simhost above "
                  << "the program)\n";
        return 2;
    }
    // Scripts exec "simhost-script /sbin/svcctl.sh ARGS": record and answer the script's own call.
    if (call.name == "simhost-script") {
        words.erase(words.begin());
        if (words.empty())
            return Complain(call, "usage: simhost-script SCRIPT [ARGS...]", 2);
        call.name = fs::path(words[0]).filename().string();
    }
    SimHost::AppendCallLog(call.dir, words);
    call.args.assign(words.begin() + 1, words.end());
    return RunCall(call);
}
