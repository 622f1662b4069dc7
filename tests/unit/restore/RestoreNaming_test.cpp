// The restore screen's rules: free switch and port group names, and which entries can be chosen.
#include "restore/RestoreEntries.h"
#include "restore/RestoreNaming.h"

#include <gtest/gtest.h>

#include <set>

using namespace Tarn;

TEST(RestoreNaming, FirstFreeNames) {
    struct Case {
        std::set<std::string> taken;
        std::string kswitch;
        std::string portGroup;
    };
    const Case cases[] = {
        {{}, "kSwitch0", "Management Network1"},
        {{"kSwitch0", "kSwitch1", "Management Network", "Management Network1"},
         "kSwitch2",
         "Management Network2"},
        {{"kSwitch1", "Management Network2"}, "kSwitch0", "Management Network1"},
        {{"kSwitch0", "kSwitch2", "Management Network1", "Management Network2", "Management Network3"},
         "kSwitch1",
         "Management Network4"},
    };
    for (const Case& c : cases) {
        auto taken = [&](const std::string& name) { return c.taken.count(name) > 0; };
        EXPECT_EQ(NextSwitchName(taken), c.kswitch);
        EXPECT_EQ(NextPortGroupName(taken), c.portGroup);
    }
}

TEST(RestoreEntries, EnablingFollowsAgentAndDistributedSwitch) {
    struct Case {
        RestoreConditions conditions;
        std::vector<bool> enabled;
    };
    const Case cases[] = {
        {{false, false}, {true, true, false, true, false, false}},
        {{true, false}, {true, true, true, true, false, false}},
        {{false, true}, {true, true, false, true, true, true}},
    };
    for (const Case& c : cases) {
        std::vector<bool> enabled;
        std::vector<unsigned> ids;
        for (const RestoreEntry& e : BuildRestoreEntries(c.conditions)) {
            enabled.push_back(e.enabled);
            ids.push_back(e.titleId);
        }
        EXPECT_EQ(enabled, c.enabled);
        EXPECT_EQ(ids, (std::vector<unsigned>{63, 64, 65, 66, 67, 68}));
    }
}
