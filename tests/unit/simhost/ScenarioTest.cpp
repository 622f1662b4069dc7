// Scenarios: every scenario creates a complete host whose state parses, is consistent, and holds the
// facts the scenario promises; the host's files are laid out for the console and its PAM stack.
#include "SimHostTesting.h"
#include "simhost/model/Init.h"
#include "simhost/model/Scenarios.h"
#include "simhost/model/Store.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <sstream>

namespace fs = std::filesystem;
using SimHost::Json;
using namespace SimHostTesting;

namespace {

const Json& Mgmt(const Json& s) {
    for (const auto& nic : s["tesnics"])
        if (nic["name"] == s["management"])
            return nic;
    throw std::runtime_error("no management tesnic");
}

int CountIpv6(const Json& s, int type) {
    const Json& list = Mgmt(s)["running"]["ipv6"];
    return static_cast<int>(
        std::count_if(list.begin(), list.end(), [&](const Json& a) { return a["type"] == type; }));
}

bool Answers(const Json& s, const Json& address) {
    const Json& list = s["network"]["answering"];
    return std::find(list.begin(), list.end(), address) != list.end();
}

const std::map<std::string, std::function<void(const Json&)>> kFacts = {
    {"default",
     [](const Json& s) {
         ASSERT_EQ(s["pnics"].size(), 4u);
         for (int i = 0; i < 4; ++i)
             EXPECT_EQ(s["pnics"][i]["name"], "nicx" + std::to_string(i));
         EXPECT_EQ(s["standardSwitches"][0]["name"], "kSwitch0");
         EXPECT_EQ(s["standardSwitches"][0]["uplinks"], Json({"nicx0", "nicx1"}));
         const Json& nic = Mgmt(s);
         EXPECT_EQ(nic["name"], "tes0");
         EXPECT_EQ(nic["connection"]["portGroup"], "Management Network");
         EXPECT_FALSE(nic["stored"]["dhcp"].get<bool>());
         EXPECT_TRUE(Answers(s, s["routes"]["ipv4Gateway"]));
         ASSERT_EQ(s["dns"]["servers"].size(), 2u);
         for (const auto& server : s["dns"]["servers"])
             EXPECT_TRUE(Answers(s, server));
         EXPECT_FALSE(s["dns"]["hostname"].get<std::string>().empty());
         EXPECT_FALSE(s["dns"]["domain"].get<std::string>().empty());
         EXPECT_EQ(s["users"][0],
                   Json({{"name", "root"}, {"password", ""}, {"expired", false}, {"permitted", true}}));
         EXPECT_FALSE(s["keyboard"]["offerChoice"].get<bool>());
     }},
    {"dhcp",
     [](const Json& s) {
         EXPECT_TRUE(Mgmt(s)["running"]["dhcp"].get<bool>());
         EXPECT_NE(Mgmt(s)["dhcpServer"], "0.0.0.0");
         EXPECT_EQ(Mgmt(s)["running"]["address"], s["network"]["dhcp"]["lease"]["address"]);
     }},
    {"dhcp-no-lease",
     [](const Json& s) {
         EXPECT_TRUE(Mgmt(s)["stored"]["dhcp"].get<bool>());
         EXPECT_EQ(Mgmt(s)["dhcpServer"], "0.0.0.0");
         EXPECT_EQ(Mgmt(s)["running"]["address"], "0.0.0.0");
     }},
    {"no-nics", [](const Json& s) { EXPECT_TRUE(s["pnics"].empty()); }},
    {"dvs",
     [](const Json& s) {
         const Json& c = Mgmt(s)["connection"];
         ASSERT_EQ(c["type"], 2);
         ASSERT_EQ(s["distributedSwitches"].size(), 1u);
         EXPECT_EQ(s["distributedSwitches"][0]["name"], c["switch"]);
         EXPECT_EQ(s["distributedSwitches"][0]["ports"][0]["key"], c["port"]);
     }},
    {"ipv6",
     [](const Json& s) {
         EXPECT_GE(Mgmt(s)["running"]["ipv6"].size(), 6u);
         for (int type : {0, 7, 9})
             EXPECT_GE(CountIpv6(s, type), 2) << "origin " << type;
         EXPECT_TRUE(Answers(s, s["routes"]["ipv6Gateway"]));
     }},
    {"smartcard",
     [](const Json& s) {
         std::string id = s["smartCards"]["slots"][0]["token"]["userId"];
         const Json& users = s["users"];
         EXPECT_TRUE(std::any_of(users.begin(), users.end(), [&](const Json& u) { return u["name"] == id; }));
     }},
    {"audit-mode", [](const Json& s) { EXPECT_TRUE(s["system"]["bootOptions"]["auditMode"].get<bool>()); }},
    {"welcome-message", [](const Json& s) { EXPECT_NE(s["system"]["welcomeMessage"], ""); }},
    {"pxe-boot", [](const Json& s) { EXPECT_TRUE(s["userOptions"].contains("PXEBootEnabled")); }},
    {"running-vms",
     [](const Json& s) {
         const Json& vms = s["vms"];
         EXPECT_TRUE(std::any_of(vms.begin(), vms.end(), [](const Json& v) { return v["running"] == true; }));
     }},
    {"keyboard-choice",
     [](const Json& s) {
         const Json& keyboard = s["keyboard"];
         EXPECT_TRUE(keyboard["offerChoice"].get<bool>());
         const Json& layouts = keyboard["layouts"];
         EXPECT_NE(std::find(layouts.begin(), layouts.end(), keyboard["current"]), layouts.end());
     }},
};

// Facts every scenario keeps: all keys of the default document, uplinks that exist, a management
// tesnic that exists, and a password login for expired and unpermitted users.
void CheckConsistent(const Json& s, const Json& reference) {
    for (const auto& [key, value] : reference.items())
        EXPECT_TRUE(s.contains(key)) << "missing key " << key;
    for (const char* kind : {"standardSwitches", "distributedSwitches"})
        for (const auto& sw : s[kind])
            for (const auto& uplink : sw["uplinks"]) {
                const Json& nics = s["pnics"];
                EXPECT_TRUE(std::any_of(nics.begin(), nics.end(), [&](const Json& n) {
                    return n["name"] == uplink;
                })) << uplink;
            }
    EXPECT_NO_THROW(Mgmt(s));
    for (const char* name : {"expired", "guest"}) {
        const Json& users = s["users"];
        EXPECT_TRUE(
            std::any_of(users.begin(), users.end(), [&](const Json& u) { return u["name"] == name; }));
    }
}

std::string ReadFile(const fs::path& path) {
    std::ifstream in(path);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

TEST(SimHostScenario, EveryScenarioCreatesAHostWithItsFacts) {
    auto names = SimHost::ScenarioNames();
    ASSERT_EQ(names.front(), "default");
    EXPECT_EQ(names.size(), kFacts.size()) << "each scenario needs its facts here";
    Json reference = SimHost::ScenarioState("default");
    for (const auto& name : names) {
        SCOPED_TRACE(name);
        TempDir tmp;
        ASSERT_NO_THROW(SimHost::InitHost(tmp.Path(), name, BuildDir()));
        Json s = SimHost::Load(tmp.Path());
        CheckConsistent(s, reference);
        auto facts = kFacts.find(name);
        ASSERT_NE(facts, kFacts.end());
        facts->second(s);
    }
}

TEST(SimHostScenario, HostLayoutServesTheConsole) {
    TempDir tmp;
    std::string dir = tmp.Path();
    SimHost::InitHost(dir, "default", BuildDir());
    for (const char* tool :
         {"bin/kelp-cmd", "bin/corlacli", "bin/haltGuests", "bin/tesping", "sbin/haltGuests", "sbin/reboot",
          "sbin/poweroff", "sbin/corlacfg-advcfg", "sbin/svcctl.sh", "sbin/cfgsave.sh", "sbin/resetCfg.py",
          "etc/init.d/CorlaShell", "etc/init.d/SSH", "etc/init.d/bryn-opsagent"}) {
        fs::path p = fs::path(dir) / tool;
        EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(p))) << tool << " missing or a symlink";
        EXPECT_EQ(access(p.c_str(), X_OK), 0) << tool << " not executable";
    }
    EXPECT_EQ(fs::read_symlink(fs::path(dir) / "bin/sh"), "/bin/bash");
    EXPECT_EQ(fs::read_symlink(fs::path(dir) / "bin/less"), "/usr/bin/less");
    std::string module = dir + "/lib/security/pam_simhost.so root=" + dir + "\n";
    EXPECT_EQ(ReadFile(dir + "/etc/pam.d/tarn"), "auth required " + module + "account required " + module +
                                                     "password required " + module + "session required " +
                                                     module);
    EXPECT_NE(ReadFile(dir + "/etc/pam.d/other").find("pam_deny.so"), std::string::npos);
    EXPECT_NE(ReadFile(dir + "/etc/hosts").find("192.0.2.10\thost01.example.test host01"), std::string::npos);
    EXPECT_TRUE(fs::exists(dir + "/var/run/orvane/show-tarn-login"));
    EXPECT_FALSE(ReadFile(dir + "/etc/orvane/support").empty());
    for (const char* log : {"syslog.log", "obed.log", "audit.log", "simhost-calls.log"})
        EXPECT_EQ(fs::file_size(dir + "/var/log/" + log), 0u) << log;
    for (const char* log : {"tessel.log", "sysboot.log", "stewd.log", "plexa.log", "haagd.log"})
        EXPECT_GT(fs::file_size(dir + "/var/log/" + log), 0u) << log;
    EXPECT_TRUE(fs::is_directory(dir + "/dev"));
    EXPECT_TRUE(fs::is_empty(dir + "/dev"));
}

TEST(SimHostScenario, RefusesUnknownScenarioAndMissingBuild) {
    TempDir tmp;
    EXPECT_THROW(SimHost::InitHost(tmp.Path() + "/h", "no-such", BuildDir()), SimHost::StoreError);
    EXPECT_FALSE(fs::exists(tmp.Path() + "/h/etc/simhost/host.json"));
    try {
        SimHost::InitHost(tmp.Path() + "/h", "default", tmp.Path());
        ADD_FAILURE() << "init without simhost-tool succeeded";
    } catch (const SimHost::StoreError& e) {
        EXPECT_NE(std::string(e.what()).find(tmp.Path() + "/simhost-tool"), std::string::npos) << e.what();
    }
}

} // namespace
