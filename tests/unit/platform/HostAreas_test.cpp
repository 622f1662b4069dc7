// The system, hardware, option, smart-card, resource and firewall classes against a simulated host.
#include "HostAreasFixture.h"

#include "platform/AdvancedOptions.h"
#include "platform/HardwareInfo.h"
#include "platform/HostCtlException.h"
#include "platform/ResourceInfo.h"
#include "platform/SmartCard.h"
#include "platform/SysInfo.h"
#include "platform/SystemInfo.h"

#include <functional>

using HostCtl::Lib::HostCtlException;

namespace {

std::string ThrownMessage(const std::function<void()>& call) {
    try {
        call();
    } catch (const HostCtlException& e) {
        return e.what();
    }
    return "<nothing thrown>";
}

::testing::AssertionResult Mentions(const std::string& text, const std::string& part) {
    if (text.find(part) != std::string::npos)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "\"" << text << "\" does not mention \"" << part << "\"";
}

} // namespace

TEST_F(HostAreasTest, FindOptionTypesEachKindOfOption) {
    Json s = BaseState();
    s["advancedOptions"]["/Str"] = {{"type", "string"}, {"value", "abc"}};
    s["advancedOptions"]["/Flag"] = {{"type", "bool"}, {"value", true}};
    Write(s);
    TesCtl::Adv::AdvancedOptionImpl options;

    auto timeout = options.FindOption("/UserVars/TarnTimeOut");
    auto* integer = dynamic_cast<HostCtl::Adv::AdvancedIntegerOption*>(timeout.get());
    ASSERT_NE(integer, nullptr);
    EXPECT_EQ(integer->GetValue(), 900);
    EXPECT_EQ(integer->GetPath(), "/UserVars/TarnTimeOut");

    auto text = options.FindOption("/Str");
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(dynamic_cast<HostCtl::Adv::AdvancedIntegerOption*>(text.get()), nullptr);
    auto* str = dynamic_cast<HostCtl::Adv::AdvancedStringOption*>(text.get());
    ASSERT_NE(str, nullptr);
    EXPECT_EQ(str->GetValue(), "abc");

    auto flag = options.FindOption("/Flag");
    auto* boolean = dynamic_cast<HostCtl::Adv::AdvancedBooleanOption*>(flag.get());
    ASSERT_NE(boolean, nullptr);
    EXPECT_TRUE(boolean->GetValue());

    EXPECT_EQ(options.FindOption("/UserVars/Missing"), nullptr);
}

TEST_F(HostAreasTest, SetIntegerOptionChangesOnlyExistingIntegerOptions) {
    Json s = BaseState();
    s["advancedOptions"]["/Str"] = {{"type", "string"}, {"value", "abc"}};
    Write(s);
    TesCtl::Adv::AdvancedOptionImpl options;

    options.SetIntegerOption("/UserVars/TarnTimeOut", 0);
    EXPECT_EQ(Read()["advancedOptions"]["/UserVars/TarnTimeOut"]["value"], 0);

    EXPECT_TRUE(Mentions(ThrownMessage([&] { options.SetIntegerOption("/Str", 5); }), "/Str"));
    EXPECT_TRUE(Mentions(ThrownMessage([&] { options.SetIntegerOption("/Nope", 5); }), "/Nope"));
    Json after = Read();
    EXPECT_EQ(after["advancedOptions"]["/Str"]["value"], "abc");
    EXPECT_FALSE(after["advancedOptions"].contains("/Nope"));
}

TEST_F(HostAreasTest, HasUserOption) {
    struct Case {
        const char* name;
        Json userOptions;
        bool pxeBoot;
        const char* query;
        bool expected;
    };
    const Json pxe = {{"PXEBootEnabled", {{"type", "int"}, {"value", 1}}}};
    const Case cases[] = {
        {"none set", Json::object(), false, "PXEBootEnabled", false},
        {"user option present", pxe, false, "PXEBootEnabled", true},
        {"system flag only", Json::object(), true, "PXEBootEnabled", true},
        {"system flag names only PXE", Json::object(), true, "OtherOption", false},
        {"other name", pxe, false, "OtherOption", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Json s = BaseState();
        s["userOptions"] = c.userOptions;
        s["system"]["pxeBootEnabled"] = c.pxeBoot;
        Write(s);
        EXPECT_EQ(TesCtl::Adv::UserAdvancedOptionImpl().HasUserOption(c.query), c.expected);
    }
}

TEST_F(HostAreasTest, SmartCardSlotsWithAndWithoutToken) {
    Json s = BaseState();
    s["smartCards"]["slots"] = Json::parse(R"([ { "slot": 3, "token": null },
                                                { "slot": 5, "token": { "userId": "jdoe@EXAMPLE" } } ])");
    Write(s);
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
    s["smartCards"]["slots"][1]["token"] = nullptr;
    Write(s);
    cards.GetToken(slots[1], token);
    EXPECT_FALSE(token.present);

    EXPECT_THROW(cards.GetToken({9}, token), HostCtlException);
}

TEST_F(HostAreasTest, SysinfoVersionRecordAndAuditMode) {
    Json s = BaseState();
    Write(s);
    Platform::SystemVersion v = Platform::ReadSystemVersion();
    EXPECT_EQ(v.productName, "Orvane Hypervisor");
    EXPECT_EQ(v.productVersion, "8.0.2");
    EXPECT_EQ(v.kernelVersion, "8.0.1");
    EXPECT_EQ(v.build, "22380479");

    std::array<uint8_t, 4> boot{9, 9, 9, 9};
    ASSERT_TRUE(Platform::ReadBootOption(boot));
    EXPECT_EQ(boot[0], 0);

    s["system"]["bootOptions"]["auditMode"] = true;
    Write(s);
    ASSERT_TRUE(Platform::ReadBootOption(boot));
    EXPECT_EQ(boot[0], 1);

    std::filesystem::remove(StateFile());
    EXPECT_FALSE(Platform::ReadBootOption(boot));
}

TEST_F(HostAreasTest, MissingOrCorruptStateNamesTheFile) {
    const std::function<void()> calls[] = {
        [] { Platform::ReadSystemVersion(); },
        [] { TesCtl::System::SystemInfoImpl().GetWelcomeMessage(); },
        [] { TesCtl::System::SystemInfoImpl().SetSystemAlert("x"); },
        [] { TesCtl::System::SystemInfoImpl().GetFirewallRulesetById("sshServer"); },
        [] { TesCtl::Hardware::HardwareInfoImpl().GetVendorName(); },
        [] { TesCtl::Hardware::MemoryInfoImpl().GetTotalPages(); },
        [] { TesCtl::Adv::AdvancedOptionImpl().FindOption("/UserVars/TarnTimeOut"); },
        [] { TesCtl::Adv::UserAdvancedOptionImpl().HasUserOption("PXEBootEnabled"); },
        [] { TesCtl::Hardware::SmartCardInfoImpl().GetAllSlots(); },
        [] { TesCtl::Resource::ResourceInfoImpl().HasRunningVirtualMachines(); },
    };
    for (const char* content : {"", "{ not json", "[1, 2]"}) {
        SCOPED_TRACE(std::string("content: ") + content);
        if (*content)
            WriteText(content);
        else
            std::filesystem::remove(StateFile());
        for (size_t i = 0; i < std::size(calls); ++i) {
            SCOPED_TRACE(i);
            EXPECT_TRUE(Mentions(ThrownMessage(calls[i]), StateFile()));
        }
    }
}

TEST_F(HostAreasTest, WrongTypesOrMissingKeysThrowHostCtlException) {
    const std::function<void(Json&)> damages[] = {
        [](Json& s) { s["hardware"]["cpu"]["packages"] = "two"; },
        [](Json& s) { s["hardware"].erase("cpu"); },
        [](Json& s) { s["keyboard"]["layouts"] = "Default"; },
        [](Json& s) { s["smartCards"]["slots"][0].erase("slot"); },
        [](Json& s) { s["system"] = 1; },
        [](Json& s) {
            s["advancedOptions"]["/Bad"] = {{"type", "float"}, {"value", 1.5}};
        },
        [](Json& s) {
            s["advancedOptions"]["/Bad"] = {{"type", "int"}, {"value", "ten"}};
        },
        [](Json& s) {
            s["advancedOptions"]["/Bad"] = {{"type", "int"}};
        },
    };
    const std::function<void()> reads[] = {
        [] { TesCtl::Hardware::CpuInfoImpl().GetNumCpuPackages(); },
        [] { TesCtl::Hardware::CpuInfoImpl().GetModelName(); },
        [] { TesCtl::System::SystemInfoImpl().GetKeyboardLayouts(); },
        [] { TesCtl::Hardware::SmartCardInfoImpl().GetAllSlots(); },
        [] { TesCtl::System::SystemInfoImpl().SetSystemAlert("x"); },
        [] { TesCtl::Adv::AdvancedOptionImpl().FindOption("/Bad"); },
        [] { TesCtl::Adv::AdvancedOptionImpl().FindOption("/Bad"); },
        [] { TesCtl::Adv::AdvancedOptionImpl().FindOption("/Bad"); },
    };
    static_assert(std::size(damages) == std::size(reads));
    for (size_t i = 0; i < std::size(damages); ++i) {
        SCOPED_TRACE(i);
        Json s = BaseState();
        damages[i](s);
        Write(s);
        EXPECT_THROW(reads[i](), HostCtlException);
    }
}

TEST_F(HostAreasTest, HardwareFacts) {
    Write(BaseState());
    EXPECT_EQ(TesCtl::Hardware::HardwareInfoImpl().GetVendorName(), "Acme Computer Corp.");
    EXPECT_EQ(TesCtl::Hardware::HardwareInfoImpl().GetProductName(), "Acme Server 9");
    EXPECT_EQ(TesCtl::Hardware::CpuInfoImpl().GetNumCpuPackages(), 2);
    EXPECT_EQ(TesCtl::Hardware::CpuInfoImpl().GetModelName(), "Xeon Gold");
    EXPECT_EQ(TesCtl::Hardware::MemoryInfoImpl().GetTotalPages(), 8388608u);
    EXPECT_EQ(TesCtl::Hardware::MemoryInfoImpl().GetPageSize(), 4096u);
}

TEST_F(HostAreasTest, RunningVirtualMachines) {
    struct Case {
        const char* vms;
        bool expected;
    };
    const Case cases[] = {
        {R"([])", false},
        {R"([ { "name": "vm01", "running": false } ])", false},
        {R"([ { "name": "vm01", "running": false }, { "name": "vm02", "running": true } ])", true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.vms);
        Json s = BaseState();
        s["vms"] = Json::parse(c.vms);
        Write(s);
        EXPECT_EQ(TesCtl::Resource::ResourceInfoImpl().HasRunningVirtualMachines(), c.expected);
    }
}

TEST_F(HostAreasTest, KeyboardLayouts) {
    Write(BaseState());
    TesCtl::System::SystemInfoImpl system;
    EXPECT_EQ(system.GetKeyboardLayouts(), (std::vector<std::string>{"Default", "French", "US Default"}));
    EXPECT_EQ(system.GetKeyboardLayout(), "US Default");

    system.LoadKeyboardMappings("French");
    system.SetKeyboardLayout("French");
    EXPECT_EQ(system.GetKeyboardLayout(), "French");

    EXPECT_THROW(system.LoadKeyboardMappings("Klingon"), HostCtlException);
    EXPECT_THROW(system.SetKeyboardLayout("Klingon"), HostCtlException);
    EXPECT_EQ(Read()["keyboard"]["current"], "French");
}

TEST_F(HostAreasTest, KeyboardChoiceOfferedOnlyWhenTheHostSaysSo) {
    struct Case {
        const char* keyboard;
        bool offered;
    };
    const Case cases[] = {
        {R"({ "layouts": ["Default"], "current": "Default", "offerChoice": true })", true},
        {R"({ "layouts": ["Default"], "current": "Default", "offerChoice": false })", false},
        {R"({ "layouts": ["Default"], "current": "Default" })", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.keyboard);
        Json s = BaseState();
        s["keyboard"] = Json::parse(c.keyboard);
        Write(s);
        EXPECT_EQ(TesCtl::System::SystemInfoImpl().IsKeyboardChoiceOffered(), c.offered);
    }
    Json s = BaseState();
    s["keyboard"]["offerChoice"] = "yes";
    Write(s);
    EXPECT_THROW(TesCtl::System::SystemInfoImpl().IsKeyboardChoiceOffered(), HostCtlException);
}

TEST_F(HostAreasTest, WelcomeMessageAndAlerts) {
    Json s = BaseState();
    s["system"]["welcomeMessage"] = "Property of Acme";
    Write(s);
    TesCtl::System::SystemInfoImpl system;
    EXPECT_EQ(system.GetWelcomeMessage(), "Property of Acme");

    system.SetSystemAlert("No compatible network adapter found.");
    system.SetSystemAlert("Stewd core dump completed");
    EXPECT_EQ(Read()["system"]["alerts"],
              Json::parse(R"(["No compatible network adapter found.", "Stewd core dump completed"])"));
}

TEST_F(HostAreasTest, FirewallRulesetEnableDisable) {
    Write(BaseState());
    TesCtl::System::SystemInfoImpl system;
    auto ssh = system.GetFirewallRulesetById("sshServer");
    ASSERT_NE(ssh, nullptr);
    EXPECT_EQ(ssh->GetId(), "sshServer");
    EXPECT_TRUE(ssh->IsEnabled());

    ssh->Disable();
    EXPECT_FALSE(ssh->IsEnabled());
    Json rulesets = Read()["firewall"]["rulesets"];
    EXPECT_EQ(rulesets[1], Json::parse(R"({ "name": "sshServer", "enabled": false })"));
    EXPECT_EQ(rulesets[0]["enabled"], false); // the neighbour is left alone

    ssh->Enable();
    EXPECT_TRUE(system.GetFirewallRulesetById("sshServer")->IsEnabled());

    EXPECT_TRUE(Mentions(ThrownMessage([&] { system.GetFirewallRulesetById("nfsClient"); }), "nfsClient"));
}

TEST_F(HostAreasTest, FirewallRulesetRemovedBehindTheObjectThrows) {
    Write(BaseState());
    auto ssh = TesCtl::System::SystemInfoImpl().GetFirewallRulesetById("sshServer");
    Json s = BaseState();
    s["firewall"]["rulesets"].erase(1);
    Write(s);
    EXPECT_THROW(ssh->Disable(), HostCtlException);
    EXPECT_TRUE(ssh->IsEnabled());
}
