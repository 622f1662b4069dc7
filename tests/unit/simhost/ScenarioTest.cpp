// Scenarios: every scenario creates a complete, consistent host holding the facts it promises; the host's
// files are laid out for the console and its PAM stack.
#include "simhost/model/Init.h"
#include "simhost/model/Scenarios.h"
#include "simhost/model/Store.h"
#include "support/TestHost.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>

namespace fs = std::filesystem;
using SimHost::Json;

namespace {

// Whether some element of the array `list` has `key` equal to `value` (the element itself without a key).
bool Has(const Json& list, const Json& value, const char* key = nullptr) {
    return std::any_of(list.begin(), list.end(), [&](const Json& e) { return (key ? e[key] : e) == value; });
}

const Json& Mgmt(const Json& s) {
    for (const auto& nic : s["tesnics"])
        if (nic["name"] == s["management"])
            return nic;
    throw std::runtime_error("no management tesnic");
}

// What each scenario promises.
const std::map<std::string, std::function<bool(const Json&)>> kFacts = {
    {"default",
     [](const Json& s) {
         // root with an empty password; a gateway and two name servers that answer pings
         const Json& answering = s["network"]["answering"];
         return s["users"][0] ==
                    Json({{"name", "root"}, {"password", ""}, {"expired", false}, {"permitted", true}}) &&
                Has(answering, s["routes"]["ipv4Gateway"]) && s["dns"]["servers"].size() == 2 &&
                Has(answering, s["dns"]["servers"][0]) && Has(answering, s["dns"]["servers"][1]);
     }},
    {"dhcp",
     [](const Json& s) { return Mgmt(s)["running"]["address"] == s["network"]["dhcp"]["lease"]["address"]; }},
    {"dhcp-no-lease",
     [](const Json& s) {
         return Mgmt(s)["stored"]["dhcp"] == true && Mgmt(s)["running"]["address"] == "0.0.0.0";
     }},
    {"no-nics", [](const Json& s) { return s["pnics"].empty(); }},
    {"dvs",
     [](const Json& s) { return Has(s["distributedSwitches"], Mgmt(s)["connection"]["switch"], "name"); }},
    {"ipv6",
     [](const Json& s) { // static, link-local and leased addresses; an answering gateway
         const Json& a = Mgmt(s)["running"]["ipv6"];
         return Has(a, 0, "type") && Has(a, 7, "type") && Has(a, 9, "type") &&
                Has(s["network"]["answering"], s["routes"]["ipv6Gateway"]);
     }},
    {"smartcard",
     [](const Json& s) { return Has(s["users"], s["smartCards"]["slots"][0]["token"]["userId"], "name"); }},
    {"audit-mode", [](const Json& s) { return s["system"]["bootOptions"]["auditMode"] == true; }},
    {"welcome-message", [](const Json& s) { return s["system"]["welcomeMessage"] != ""; }},
    {"pxe-boot", [](const Json& s) { return s["userOptions"].contains("PXEBootEnabled"); }},
    {"running-vms", [](const Json& s) { return Has(s["vms"], true, "running"); }},
    {"keyboard-choice",
     [](const Json& s) {
         return s["keyboard"]["offerChoice"] == true &&
                Has(s["keyboard"]["layouts"], s["keyboard"]["current"]);
     }},
};

TEST(SimHostScenario, EveryScenarioCreatesAConsistentHostWithItsFact) {
    auto names = SimHost::ScenarioNames();
    ASSERT_EQ(names.front(), "default");
    EXPECT_EQ(names.size(), kFacts.size()) << "each scenario needs its fact here";
    Json reference = SimHost::ScenarioState("default");
    for (const auto& name : names) {
        SCOPED_TRACE(name);
        TestHost tmp(TestHost::Layout::Empty);
        ASSERT_NO_THROW(SimHost::InitHost(tmp.Root(), name, BuildDir()));
        Json s = SimHost::Load(tmp.Root());
        // Every key of the default document, uplinks that exist, a management tesnic that exists, users
        // for the expired and unpermitted logins.
        for (const auto& [key, value] : reference.items())
            EXPECT_TRUE(s.contains(key)) << "missing key " << key;
        for (const char* kind : {"standardSwitches", "distributedSwitches"})
            for (const auto& sw : s[kind])
                for (const auto& uplink : sw["uplinks"])
                    EXPECT_TRUE(Has(s["pnics"], uplink, "name")) << uplink;
        EXPECT_NO_THROW(Mgmt(s));
        EXPECT_TRUE(Has(s["users"], "expired", "name") && Has(s["users"], "guest", "name"));
        ASSERT_EQ(kFacts.count(name), 1u);
        EXPECT_TRUE(kFacts.at(name)(s));
    }
}

TEST(SimHostScenario, HostLayoutServesTheConsole) {
    const TestHost host; // `simhost init`: the default scenario
    const std::string dir = host.Root();
    for (const char* tool : {"bin/kelp-cmd", "bin/corlacli", "bin/haltGuests", "bin/tesping", "sbin/reboot",
                             "sbin/poweroff", "sbin/corlacfg-advcfg", "sbin/svcctl.sh", "sbin/resetCfg.py",
                             "etc/init.d/CorlaShell", "etc/init.d/SSH", "etc/init.d/bryn-opsagent"}) {
        fs::path p = fs::path(dir) / tool;
        EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(p))) << tool << " missing or a symlink";
        EXPECT_EQ(access(p.c_str(), X_OK), 0) << tool << " not executable";
    }
    EXPECT_EQ(fs::read_symlink(dir + "/bin/sh"), "/bin/bash");
    std::string module = dir + "/lib/security/pam_simhost.so root=" + dir + "\n";
    EXPECT_EQ(host.Read("/etc/pam.d/tarn"), "auth required " + module + "account required " + module +
                                                "password required " + module + "session required " + module);
    EXPECT_NE(host.Read("/etc/hosts").find("192.0.2.10\thost01.example.test host01"), std::string::npos);
    EXPECT_TRUE(fs::exists(dir + "/var/run/orvane/show-tarn-login"));
    for (const char* log : {"syslog.log", "obed.log", "audit.log", "simhost-calls.log"})
        EXPECT_EQ(fs::file_size(dir + "/var/log/" + log), 0u) << log;
}

TEST(SimHostScenario, RefusesUnknownScenarioAndMissingBuild) {
    TestHost tmp(TestHost::Layout::Empty);
    EXPECT_THROW(SimHost::InitHost(tmp.Root() + "/h", "no-such", BuildDir()), SimHost::StoreError);
    EXPECT_FALSE(fs::exists(tmp.Root() + "/h/etc/simhost/host.json"));
    try {
        SimHost::InitHost(tmp.Root() + "/h", "default", tmp.Root());
        ADD_FAILURE() << "init without simhost-tool succeeded";
    } catch (const SimHost::StoreError& e) {
        EXPECT_NE(std::string(e.what()).find(tmp.Root() + "/simhost-tool"), std::string::npos) << e.what();
    }
}

} // namespace
