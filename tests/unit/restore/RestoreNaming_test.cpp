// Free names for the switch and port group that take the management network over.
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
