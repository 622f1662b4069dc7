// Key bytes per TERM through setupterm/tigetstr; every TERM's keys are read once and kept.
#include "harness/Keys.h"

#include <curses.h>
#include <map>
#include <mutex>
#include <stdexcept>
#include <term.h>

namespace e2e {

namespace {

struct KeyInfo {
    const char* cap;      // terminfo capability, or nullptr
    const char* fallback; // bytes when the entry lacks the capability
};

const std::map<std::string, KeyInfo>& KeyTable() {
    static const std::map<std::string, KeyInfo> table = {
        {"F1", {"kf1", "\x1b[11~"}},      {"F2", {"kf2", "\x1b[12~"}},      {"F3", {"kf3", "\x1b[13~"}},
        {"F4", {"kf4", "\x1b[14~"}},      {"F5", {"kf5", "\x1b[15~"}},      {"F6", {"kf6", "\x1b[17~"}},
        {"F7", {"kf7", "\x1b[18~"}},      {"F8", {"kf8", "\x1b[19~"}},      {"F9", {"kf9", "\x1b[20~"}},
        {"F10", {"kf10", "\x1b[21~"}},    {"F11", {"kf11", "\x1b[23~"}},    {"F12", {"kf12", "\x1b[24~"}},
        {"Up", {"kcuu1", "\x1b[A"}},      {"Down", {"kcud1", "\x1b[B"}},    {"Right", {"kcuf1", "\x1b[C"}},
        {"Left", {"kcub1", "\x1b[D"}},    {"Home", {"khome", "\x1b[1~"}},   {"End", {"kend", "\x1b[4~"}},
        {"PageUp", {"kpp", "\x1b[5~"}},   {"PageDown", {"knp", "\x1b[6~"}}, {"Insert", {"kich1", "\x1b[2~"}},
        {"Delete", {"kdch1", "\x1b[3~"}}, {"Backspace", {"kbs", "\x7f"}},   {"Enter", {nullptr, "\r"}},
        {"LineFeed", {nullptr, "\n"}},    {"Esc", {nullptr, "\x1b"}},       {"Tab", {nullptr, "\t"}},
    };
    return table;
}

// The bytes of every named key for one TERM, read from its terminfo entry, which is freed again at once (a
// sanitizer run would otherwise report every entry as a leak).
std::map<std::string, std::string> LoadKeys(const std::string& name) {
    TERMINAL* saved = cur_term;
    int err = 0;
    // A descriptor that is no terminal: setupterm only needs it for the size, which keys do not use.
    if (setupterm(name.c_str(), -1, &err) != OK) {
        set_curterm(saved);
        throw std::invalid_argument("no terminfo entry for TERM=" + name);
    }
    std::map<std::string, std::string> keys;
    for (const auto& [key, info] : KeyTable()) {
        const char* s = info.cap ? tigetstr(info.cap) : nullptr;
        keys[key] = (s == nullptr || s == reinterpret_cast<char*>(-1)) ? info.fallback : s;
    }
    del_curterm(cur_term);
    set_curterm(saved);
    return keys;
}

std::string Lookup(const std::string& term, const std::string& key) {
    static std::mutex mutex;
    static std::map<std::string, std::map<std::string, std::string>> loaded;
    std::lock_guard<std::mutex> lock(mutex);
    const std::string name = term.empty() ? "vt102" : term;
    auto it = loaded.find(name);
    if (it == loaded.end())
        it = loaded.emplace(name, LoadKeys(name)).first;
    return it->second.at(key);
}

} // namespace

std::string KeyBytes(const std::string& term, const std::string& name) {
    auto it = KeyTable().find(name);
    if (it == KeyTable().end())
        throw std::invalid_argument("unknown key name: " + name);
    return Lookup(term, name);
}

} // namespace e2e
