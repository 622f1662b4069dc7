// Joining and whitespace helpers.
#include "hostops/CommandText.h"

#include <gtest/gtest.h>

namespace {

TEST(CollapseWhitespace, Table) {
    struct Case {
        const char* in;
        const char* out;
    } cases[] = {
        {"  a \t b  ", "a b"},
        {"     ", ""},
        {"", ""},
        {"Intel(R)  Xeon(R)\n\nGold", "Intel(R) Xeon(R) Gold"},
        {"\v\fx\r", "x"},
        {"one", "one"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Tarn::CollapseWhitespace(c.in), c.out) << '"' << c.in << '"';
}

TEST(JoinArgv, Table) {
    const char* none[] = {nullptr};
    const char* one[] = {"sh", nullptr};
    const char* three[] = {"kelp-cmd", "-U", "root", nullptr};
    EXPECT_EQ(Tarn::JoinArgv(none), "");
    EXPECT_EQ(Tarn::JoinArgv(one), "sh");
    EXPECT_EQ(Tarn::JoinArgv(three), "kelp-cmd -U root");
}

TEST(JoinWithCommas, Table) {
    EXPECT_EQ(Tarn::JoinWithCommas({}), "");
    EXPECT_EQ(Tarn::JoinWithCommas({"nicx0"}), "nicx0");
    EXPECT_EQ(Tarn::JoinWithCommas({"nicx0", "nicx1", "nicx2"}), "nicx0,nicx1,nicx2");
    EXPECT_EQ(Tarn::JoinWithCommas({"", ""}), ",");
}

} // namespace
