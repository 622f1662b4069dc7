// The string catalogue: the end of the range, and the cached product and version line.
#include "platform/HostCtlException.h"
#include "ui/en_US_Factory.h"

#include <gtest/gtest.h>

#include <climits>

namespace Tarn {
namespace {

Platform::SystemVersion Unreadable() {
    throw HostCtl::Lib::HostCtlException("system.version unavailable");
}

TEST(Catalogue, EveryIdUpToTheEndHasATextAndTheRestAreEmpty) {
    const en_US_Factory f(Unreadable);
    for (unsigned id : {3u, 289u, 290u, 1000u, UINT_MAX}) {
        ASSERT_NE(f.GetString(id), nullptr) << id;
        EXPECT_STREQ(f.GetString(id), "") << id;
    }
    for (unsigned id = 4; id <= 288; ++id) // 2 is the version line, 3 the blank entry
        EXPECT_STRNE(f.GetString(id), "") << id;
    EXPECT_STRNE(f.GetString(0), "");
    EXPECT_STRNE(f.GetString(1), "");
}

TEST(Catalogue, VersionLineIsRetriedUntilReadAndThenCached) {
    int calls = 0;
    bool readable = false;
    en_US_Factory f([&]() -> Platform::SystemVersion {
        ++calls;
        if (!readable)
            throw HostCtl::Lib::HostCtlException("no record");
        return {"Orvane Host", "8.0.2", "8.0.2-rc", "22380479"};
    });
    EXPECT_STREQ(f.GetString(2), "");
    EXPECT_STREQ(f.GetString(2), "");
    EXPECT_EQ(calls, 2);
    readable = true;
    const char* line = f.GetString(2);
    EXPECT_STREQ(line, "Orvane Host 8.0.2 (Tessel 8.0.2-rc Build 22380479)");
    readable = false; // a later failure must not matter: the line is built once
    EXPECT_EQ(f.GetString(2), line);
    EXPECT_EQ(calls, 3);

    en_US_Factory replaced(Unreadable);
    EXPECT_STREQ(replaced.GetString(2), "");
    replaced.SetVersionReader([] { return Platform::SystemVersion{"P", "1", "K", "7"}; });
    EXPECT_STREQ(replaced.GetString(2), "P 1 (Tessel K Build 7)");
}

TEST(Catalogue, ProcessWideFactoryServesEveryLocaleName) {
    StringFactory* first = StringFactory::Get("en_US");
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(StringFactory::Get("en_US"), first);
    EXPECT_EQ(StringFactory::Get("de_DE"), first);
    EXPECT_STREQ(first->GetString(4), "System Customization");
}

} // namespace
} // namespace Tarn
