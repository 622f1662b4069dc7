// Menu entries and their enabling rules, log numbering, support paging.
#include "screens/MenuModel.h"

#include <gtest/gtest.h>

namespace Tarn {
namespace {

std::vector<unsigned> Ids(const std::vector<MenuEntry>& entries) {
    std::vector<unsigned> ids;
    for (const auto& e : entries)
        ids.push_back(e.id);
    return ids;
}

bool Enabled(const std::vector<MenuEntry>& entries, unsigned id) {
    for (const auto& e : entries)
        if (e.id == id)
            return e.enabled;
    ADD_FAILURE() << "no entry " << id;
    return false;
}

TEST(MenuEntries, OrderAndKeyboardEntry) {
    MenuFlags flags;
    EXPECT_EQ(Ids(BuildMenuEntries(flags)),
              (std::vector<unsigned>{5, 6, 3, 7, 8, 9, 10, 3, 13, 3, 12, 3, 11, 3, 14}));
    flags.keyboardChoice = true;
    EXPECT_EQ(Ids(BuildMenuEntries(flags)),
              (std::vector<unsigned>{5, 6, 3, 7, 8, 9, 10, 3, 15, 13, 3, 12, 3, 11, 3, 14}));
}

TEST(MenuEntries, EnablingRules) {
    MenuFlags none;
    auto entries = BuildMenuEntries(none);
    EXPECT_FALSE(Enabled(entries, 6));
    for (unsigned id : {7u, 8u, 9u})
        EXPECT_FALSE(Enabled(entries, id)) << id;
    EXPECT_TRUE(Enabled(entries, 14));
    for (const auto& e : entries) {
        if (e.id == 3) {
            EXPECT_FALSE(e.enabled);
        }
    }

    MenuFlags all{true, true, false, true};
    entries = BuildMenuEntries(all);
    EXPECT_TRUE(Enabled(entries, 6));
    for (unsigned id : {7u, 8u, 9u})
        EXPECT_TRUE(Enabled(entries, id)) << id;
    EXPECT_FALSE(Enabled(entries, 14)); // network boot
}

TEST(MenuLogs, OnlyExistingFilesAreNumbered) {
    // syslog.log and stewd.log only
    std::vector<bool> exists = {true, false, false, true, false, false, false};
    auto numbers = NumberLogs(exists);
    EXPECT_EQ(numbers, (std::vector<int>{1, 0, 0, 2, 0, 0, 0}));
    EXPECT_EQ(LogListText(numbers), "{color:white}<1> {color:light-grey}Syslog{/color}\n"
                                    "{color:white}<2> {color:light-grey}Management Agent (stewd){/color}\n");
    EXPECT_STREQ(LogFiles()[LogForDigit(numbers, 2)].path, "/var/log/stewd.log");
    EXPECT_EQ(LogForDigit(numbers, 3), -1);
    EXPECT_EQ(LogForDigit(numbers, 0), -1);
}

TEST(MenuLogs, TableKeepsItsLabels) {
    ASSERT_EQ(LogFiles().size(), 7u);
    EXPECT_STREQ(LogFiles()[5].label, "High Availibility Agent (haagd)");
    EXPECT_STREQ(LogFiles()[6].path, "/var/log/obed.log");
}

TEST(MenuSupport, CommentsSkippedAndPagesMarked) {
    auto lines = ParseSupportLines("# comment\nline 1\nline 2\n$servicetag\nline 4\nline 5\n");
    ASSERT_EQ(lines.size(), 5u);
    EXPECT_EQ(lines[2], "$servicetag");

    std::string first = SupportPage(lines, 0, 4);
    EXPECT_EQ(first.find("<Page Up>"), std::string::npos);
    EXPECT_NE(first.find("<Page Down>"), std::string::npos);
    EXPECT_NE(first.find("line 1"), std::string::npos);

    std::string last = SupportPage(lines, 3, 4);
    EXPECT_NE(last.find("<Page Up>"), std::string::npos);
    EXPECT_EQ(last.find("<Page Down>"), std::string::npos);
    EXPECT_NE(last.find("line 5"), std::string::npos);
}

} // namespace
} // namespace Tarn
