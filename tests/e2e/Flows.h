// Steps the end-to-end scenarios share: a roomy console, the way into a session, moving in the menu, editing
// the simulated host and reading what it recorded.
#pragma once

#include "harness/Console.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <sstream>

namespace e2e {

constexpr const char* kLoginTitle = "Authentication Required";
constexpr const char* kMenuReady = "Configure Password";

inline ConsoleOptions Roomy(const std::string& scenario = "default") {
    return {.scenario = scenario, .rows = 30, .cols = 100};
}

// From the welcome screen: `key` (F2 or F12) opens the login dialog, settled for typing.
inline void OpenLogin(Console& c, const std::string& key = "F2") {
    ASSERT_TRUE(c->WaitForTextSettled("<" + key + ">")) << c->View().Text();
    c->Key(key);
    ASSERT_TRUE(c->WaitForTextSettled(kLoginTitle, 50ms)) << c->View().Text();
}

// Root with the empty password (the preset name), then waits for `next` to settle.
inline void LogInAsRoot(Console& c, const std::string& key = "F2", const std::string& next = kMenuReady) {
    OpenLogin(c, key);
    c->Key("Enter");
    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextSettled(next, 100ms)) << c->View().Text();
}

// Moves the menu's cursor down until the pane shows `paneText`.
inline void MoveTo(Console& c, const std::string& paneText) {
    for (int i = 0; i < 20 && !c->View().Contains(paneText); ++i) {
        const std::string before = c->View().Text();
        c->Key("Down");
        // The pane redraws once the cursor has moved: another Down before that would skip an entry.
        c->WaitFor([&] { return c->View().Text() != before; }, 2s);
        c->WaitQuiet(60ms);
    }
    ASSERT_TRUE(c->View().Contains(paneText)) << c->View().Text();
}

// Waits until the host's syslog has a line containing `text`.
inline bool WaitForSyslog(Console& c, const std::string& text) {
    return c->WaitFor([&] {
        c->Pump(20ms);
        return !c.Host().SyslogMatching(text).empty();
    });
}

using Calls = std::vector<std::vector<std::string>>;

// The tool calls made after the first `before` ones.
inline Calls CallsSince(const TestHost& host, size_t before) {
    Calls all = host.ToolCalls();
    return Calls(all.begin() + static_cast<long>(std::min(before, all.size())), all.end());
}

inline std::vector<std::string> Events(const TestHost& host) {
    return host.Lines("var/log/obed.log");
}

inline std::vector<nlohmann::json> AuditRecords(const TestHost& host) {
    std::vector<nlohmann::json> records;
    for (const auto& line : host.Lines("var/log/audit.log"))
        records.push_back(nlohmann::json::parse(line));
    return records;
}

inline bool UserExpired(const TestHost& host, const std::string& name) {
    const nlohmann::json state = host.State();
    for (const auto& user : state["users"])
        if (user["name"] == name)
            return user["expired"].get<bool>();
    return false;
}

} // namespace e2e
