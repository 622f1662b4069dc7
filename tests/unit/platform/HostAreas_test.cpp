// The option, smart-card and firewall classes against a simulated host, and how each area reports a broken
// state file.
#include "support/ActiveTestHost.h"

#include "platform/AdvancedOptions.h"
#include "platform/HardwareInfo.h"
#include "platform/HostCtlException.h"
#include "platform/SmartCard.h"
#include "platform/SysInfo.h"
#include "platform/SystemInfo.h"
#include "platform/sim/SimState.h"

#include <gtest/gtest.h>

#include <functional>

using HostCtl::Lib::HostCtlException;
using Json = TestHost::Json;

namespace {

std::string ThrownMessage(const std::function<void()>& call) {
    try {
        call();
    } catch (const HostCtlException& e) {
        return e.what();
    }
    return "<nothing thrown>";
}

class HostAreasTest : public ::testing::Test {
protected:
    // The parts of a host.json these areas read; tests patch it before writing.
    static Json BaseState() {
        return Json::parse(R"({ "schema": 1,
          "system": { "productName": "Orvane Hypervisor", "productVersion": "8.0.2", "kernelVersion": "8.0.1",
                      "build": "22380479", "welcomeMessage": "Property of Acme", "alerts": [],
                      "bootOptions": { "auditMode": false }, "pxeBootEnabled": false },
          "hardware": { "vendor": "Acme Computer Corp.", "product": "Acme Server 9",
                        "cpu": { "packages": 2, "model": "Xeon Gold" },
                        "memory": { "totalPages": 8388608, "pageSize": 4096 } },
          "keyboard": { "layouts": ["Default", "French", "US Default"], "current": "US Default" },
          "advancedOptions": { "/UserVars/TarnTimeOut": { "type": "int", "value": 900 },
                               "/Str": { "type": "string", "value": "abc" },
                               "/Flag": { "type": "bool", "value": true } },
          "userOptions": {}, "vms": [],
          "firewall": { "rulesets": [ { "name": "httpClient", "enabled": false },
                                      { "name": "sshServer", "enabled": true } ] },
          "smartCards": { "slots": [ { "slot": 3, "token": null },
                                     { "slot": 5, "token": { "userId": "jdoe@EXAMPLE" } } ] } })");
    }
    void SetUp() override { host_.WriteState(BaseState()); }

    ActiveTestHost host_{TestHost::Layout::Folders};
};

TEST_F(HostAreasTest, AdvancedOptionsOfEachKind) {
    TesCtl::Adv::AdvancedOptionImpl options;
    auto timeout = options.FindOption("/UserVars/TarnTimeOut"), text = options.FindOption("/Str"),
         flag = options.FindOption("/Flag");
    auto* integer = dynamic_cast<HostCtl::Adv::AdvancedIntegerOption*>(timeout.get());
    auto* str = dynamic_cast<HostCtl::Adv::AdvancedStringOption*>(text.get());
    auto* boolean = dynamic_cast<HostCtl::Adv::AdvancedBooleanOption*>(flag.get());
    ASSERT_TRUE(integer && str && boolean);
    EXPECT_EQ(integer->GetValue(), 900);
    EXPECT_EQ(str->GetValue(), "abc");
    EXPECT_TRUE(boolean->GetValue());
    EXPECT_EQ(options.FindOption("/UserVars/Missing"), nullptr);

    // Only existing integer options change.
    options.SetIntegerOption("/UserVars/TarnTimeOut", 0);
    EXPECT_EQ(host_.State()["advancedOptions"]["/UserVars/TarnTimeOut"]["value"], 0);
    EXPECT_NE(ThrownMessage([&] { options.SetIntegerOption("/Str", 5); }).find("/Str"), std::string::npos);
    EXPECT_NE(ThrownMessage([&] { options.SetIntegerOption("/Nope", 5); }).find("/Nope"), std::string::npos);
    EXPECT_EQ(host_.State()["advancedOptions"]["/Str"]["value"], "abc");
    EXPECT_FALSE(host_.State()["advancedOptions"].contains("/Nope"));
}

TEST_F(HostAreasTest, HasUserOption) {
    const Json pxe = {{"PXEBootEnabled", {{"type", "int"}, {"value", 1}}}};
    const std::tuple<Json, bool, const char*, bool> cases[] = {
        // user options, the system's PXE flag, queried name, expected
        {Json::object(), false, "PXEBootEnabled", false},
        {pxe, false, "PXEBootEnabled", true},
        {Json::object(), true, "PXEBootEnabled", true},
        {Json::object(), true, "OtherOption", false}};
    for (const auto& [userOptions, pxeBoot, query, expected] : cases) {
        SCOPED_TRACE(userOptions.dump() + (pxeBoot ? " pxe " : " ") + query);
        // clang 14 cannot capture structured bindings.
        host_.ChangeState([&, &options = userOptions, pxeFlag = pxeBoot](Json& s) {
            s["userOptions"] = options;
            s["system"]["pxeBootEnabled"] = pxeFlag;
        });
        EXPECT_EQ(TesCtl::Adv::UserAdvancedOptionImpl().HasUserOption(query), expected);
    }
}

TEST_F(HostAreasTest, SmartCardSlotsWithAndWithoutToken) {
    TesCtl::Hardware::SmartCardInfoImpl cards;
    auto slots = cards.GetAllSlots();
    ASSERT_EQ(slots.size(), 2u);
    EXPECT_EQ(slots[0].id, 3);
    EXPECT_EQ(slots[1].id, 5);
    HostCtl::Hardware::SmartCardToken token{true, "stale"};
    cards.GetToken(slots[0], token);
    EXPECT_FALSE(token.present);
    EXPECT_EQ(token.userId, "");
    cards.GetToken(slots[1], token);
    EXPECT_TRUE(token.present);
    EXPECT_EQ(token.userId, "jdoe@EXAMPLE");
    // The card is pulled between enumeration and the token read.
    host_.ChangeState([](Json& s) { s["smartCards"]["slots"][1]["token"] = nullptr; });
    cards.GetToken(slots[1], token);
    EXPECT_FALSE(token.present);
    EXPECT_THROW(cards.GetToken({9}, token), HostCtlException);
}

TEST_F(HostAreasTest, BrokenStateThrowsHostCtlException) {
    // A missing or corrupt file is named in the message.
    const std::function<void()> calls[] = {
        [] { Platform::ReadSystemVersion(); },
        [] { TesCtl::System::SystemInfoImpl().SetSystemAlert("x"); },
        [] { TesCtl::Hardware::MemoryInfoImpl().GetTotalPages(); },
        [] { TesCtl::Adv::AdvancedOptionImpl().FindOption("/UserVars/TarnTimeOut"); },
        [] { TesCtl::Hardware::SmartCardInfoImpl().GetAllSlots(); },
    };
    for (const char* content : {"", "{ not json", "[1, 2]"}) {
        SCOPED_TRACE(std::string("content: ") + content);
        if (*content)
            host_.Write("/etc/simhost/host.json", content);
        else
            std::filesystem::remove(host_.StatePath());
        for (size_t i = 0; i < std::size(calls); ++i)
            EXPECT_NE(ThrownMessage(calls[i]).find(host_.StatePath()), std::string::npos) << "call " << i;
    }

    // Wrong types, missing keys, an unknown option type.
    const auto badOption = [](Json value) {
        return [value](Json& s) { s["advancedOptions"]["/Bad"] = value; };
    };
    const auto findBad = [] { TesCtl::Adv::AdvancedOptionImpl().FindOption("/Bad"); };
    const std::pair<std::function<void(Json&)>, std::function<void()>> cases[] = {
        {[](Json& s) { s["hardware"]["cpu"]["packages"] = "two"; },
         [] { TesCtl::Hardware::CpuInfoImpl().GetNumCpuPackages(); }},
        {[](Json& s) { s["hardware"].erase("cpu"); }, [] { TesCtl::Hardware::CpuInfoImpl().GetModelName(); }},
        {[](Json& s) { s["keyboard"]["layouts"] = "Default"; },
         [] { TesCtl::System::SystemInfoImpl().GetKeyboardLayouts(); }},
        {[](Json& s) { s["keyboard"]["offerChoice"] = "yes"; },
         [] { TesCtl::System::SystemInfoImpl().IsKeyboardChoiceOffered(); }},
        {[](Json& s) { s["smartCards"]["slots"][0].erase("slot"); },
         [] { TesCtl::Hardware::SmartCardInfoImpl().GetAllSlots(); }},
        {badOption({{"type", "float"}, {"value", 1.5}}), findBad},
        {badOption({{"type", "int"}, {"value", "ten"}}), findBad}};
    for (size_t i = 0; i < std::size(cases); ++i) {
        host_.WriteState(BaseState());
        host_.ChangeState(cases[i].first);
        EXPECT_NE(ThrownMessage(cases[i].second).find(host_.StatePath()), std::string::npos) << "case " << i;
    }
}

// The console reads the host's state but never keeps its user database.
TEST_F(HostAreasTest, UserDatabaseStaysOutOfTheConsolesCopy) {
    host_.ChangeState(
        [](Json& s) { s["users"] = Json::parse(R"([{"name": "root", "password": "Kq9Vb7Rt"}])"); });
    EXPECT_FALSE(Platform::Sim::Load()->contains("users"));
    TesCtl::System::SystemInfoImpl().SetSystemAlert("x"); // a change returns the stored state
    EXPECT_FALSE(Platform::Sim::Load()->contains("users"));
    EXPECT_TRUE(host_.State().contains("users")) << "the file keeps it";
}

TEST_F(HostAreasTest, FirewallRulesets) {
    TesCtl::System::SystemInfoImpl system;
    auto ssh = system.GetFirewallRulesetById("sshServer");
    ASSERT_NE(ssh, nullptr);
    EXPECT_EQ(ssh->GetId(), "sshServer");
    EXPECT_TRUE(ssh->IsEnabled());
    ssh->Disable();
    EXPECT_FALSE(ssh->IsEnabled());
    // Only this ruleset changes.
    EXPECT_EQ(
        host_.State()["firewall"]["rulesets"],
        Json::parse(
            R"([{ "name": "httpClient", "enabled": false }, { "name": "sshServer", "enabled": false }])"));
    ssh->Enable();
    EXPECT_TRUE(system.GetFirewallRulesetById("sshServer")->IsEnabled());
    EXPECT_NE(ThrownMessage([&] { system.GetFirewallRulesetById("nfsClient"); }).find("nfsClient"),
              std::string::npos);

    // Removed behind the object's back.
    host_.ChangeState([](Json& s) { s["firewall"]["rulesets"].erase(1); });
    EXPECT_THROW(ssh->Disable(), HostCtlException);
    EXPECT_TRUE(ssh->IsEnabled());
}

} // namespace
