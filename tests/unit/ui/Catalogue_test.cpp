// The string catalogue: shared ids, the end of the range, exact texts with markup and blanks, and the cached
// product and version line.
#include "platform/HostCtlException.h"
#include "ui/en_US_Factory.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

namespace Tarn {
namespace {

Platform::SystemVersion Unreadable() {
    throw HostCtl::Lib::HostCtlException("system.version unavailable");
}

en_US_Factory MakeFactory() {
    return en_US_Factory(Unreadable);
}

TEST(Catalogue, SharedIdsGiveTheSameText) {
    const struct {
        unsigned first, second;
        const char* text;
    } cases[] = {
        {1, 167, "Shut Down/Restart"},
        {5, 155, "Configure Password"},
        {6, 251, "Configure Lockdown Mode"},
        {7, 44, "Configure Management Network"},
        {8, 131, "Restart Management Network"},
        {9, 214, "Test Management Network"},
        {10, 62, "Network Restore Options"},
        {14, 179, "Reset System Configuration"},
        {45, 75, "Network Adapters"},
        {47, 99, "IPv4 Configuration"},
        {48, 104, "IPv6 Configuration"},
        {51, 122, "DNS Configuration"},
        {66, 206, "Restore Network Settings"},
        {67, 136, "Restore Standard Switch"},
        {68, 194, "Restore kDS"},
    };
    const en_US_Factory f = MakeFactory();
    for (const auto& c : cases) {
        EXPECT_STREQ(f.GetString(c.first), c.text) << c.first;
        EXPECT_STREQ(f.GetString(c.second), c.text) << c.second;
    }
}

TEST(Catalogue, EmptyTexts) {
    const en_US_Factory f = MakeFactory();
    for (unsigned id : {3u, 289u, 290u, 1000u, UINT_MAX}) {
        ASSERT_NE(f.GetString(id), nullptr) << id;
        EXPECT_STREQ(f.GetString(id), "") << id;
    }
}

TEST(Catalogue, EveryOtherIdHasAText) {
    const en_US_Factory f = MakeFactory();
    for (unsigned id = 0; id <= 288; ++id) {
        if (id == 2 || id == 3) {
            continue;
        }
        EXPECT_STRNE(f.GetString(id), "") << id;
    }
}

TEST(Catalogue, ExactTexts) {
    const struct {
        unsigned id;
        const char* text;
    } cases[] = {
        {0, "Customize System/View Logs"},
        {27, "Press the corresponding key to view a log.\nPress <Q> to return to this screen."},
        {30, "Warning!\n\nAll custom extensions will be removed.\n\nThis operation requires a restart of the "
             "host. It is recommended to previously shut down or migrate running virtual machines off this "
             "host."},
        {98, "VLAN ID (1-4094, or 4095 to access all VLANs):"},
        {135, "IP address is "},
        {143, "Enter an authorized login name and password for "},
        {154, "Password has expired.\nYou will be prompted to set a new password and then login again."},
        {169, "Forcefully terminate running VMs, if any ..."},
        {191, "Restore to default blocked setting (unblocked) "},
        {244, "{color:red}Warning! Restarting the management agents will disconnect all remote management "
              "software. This will affect all running services.\nCollection of extra troubleshooting "
              "information can take a noticeable amount of time.{/color}"},
        {250, "Please, wait ..."},
        {265, "Set the number of minutes that can elapse before you must log in after Corla Shell is enabled "
              "(the availability timeout) and the timeout for idle interactive sessions.\n\nAfter the "
              "availability timeout expires any running shell instances will remain, but new sessions will "
              "not be allowed.  Changes to idle timeout will apply on next login, but will not affect any "
              "existing sessions.\n\nValues are in minutes. Use zero to disable timeouts. Maximum value is "
              "1440 minutes."},
        {281, "Switch Name: "},
        {286, "Successfully created standard virtual switch: "},
        {288, "Please choose which Tessel NIC should be migrated to which portgroup/switch."},
    };
    const en_US_Factory f = MakeFactory();
    for (const auto& c : cases) {
        EXPECT_STREQ(f.GetString(c.id), c.text) << c.id;
    }
}

TEST(Catalogue, VersionLineIsRetriedUntilReadAndThenCached) {
    int calls = 0;
    bool readable = false;
    en_US_Factory f([&]() -> Platform::SystemVersion {
        ++calls;
        if (!readable) {
            throw HostCtl::Lib::HostCtlException("no record");
        }
        return {"Orvane Host", "8.0.2", "8.0.2-rc", "22380479"};
    });

    EXPECT_STREQ(f.GetString(2), "");
    EXPECT_STREQ(f.GetString(2), "");
    EXPECT_EQ(calls, 2);

    readable = true;
    const char* line = f.GetString(2);
    EXPECT_STREQ(line, "Orvane Host 8.0.2 (Tessel 8.0.2-rc Build 22380479)");
    EXPECT_EQ(calls, 3);

    readable = false; // a later failure must not matter: the line is built once
    EXPECT_EQ(f.GetString(2), line);
    EXPECT_EQ(calls, 3);
}

TEST(Catalogue, VersionReaderCanBeReplacedBeforeFirstSuccess) {
    en_US_Factory f = MakeFactory();
    EXPECT_STREQ(f.GetString(2), "");
    f.SetVersionReader([] { return Platform::SystemVersion{"P", "1", "K", "7"}; });
    EXPECT_STREQ(f.GetString(2), "P 1 (Tessel K Build 7)");
}

TEST(Catalogue, ProcessWideFactoryIsOneObject) {
    StringFactory* first = StringFactory::Get("en_US");
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(StringFactory::Get("en_US"), first);
    // Other locale names get the existing factory rather than a new one.
    EXPECT_EQ(StringFactory::Get("de_DE"), first);
    EXPECT_STREQ(first->GetString(4), "System Customization");
}

} // namespace
} // namespace Tarn
