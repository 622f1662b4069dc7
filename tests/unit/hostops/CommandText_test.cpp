// Joining and whitespace helpers.
#include "hostops/CommandText.h"

#include <gtest/gtest.h>

namespace {

TEST(CommandText, CollapseWhitespace) {
    const std::pair<const char*, const char*> cases[] = {
        {"  a \t b  ", "a b"},
        {"     ", ""},
        {"Intel(R)  Xeon(R)\n\nGold", "Intel(R) Xeon(R) Gold"},
        {"\v\fx\r", "x"}};
    for (const auto& [in, out] : cases)
        EXPECT_EQ(Tarn::CollapseWhitespace(in), out) << '"' << in << '"';
}

TEST(CommandText, Joining) {
    const char* none[] = {nullptr};
    EXPECT_EQ(Tarn::JoinArgv(none), ""); // longer ones are in the logged-command messages
    EXPECT_EQ(Tarn::JoinWithCommas({}), "");
    EXPECT_EQ(Tarn::JoinWithCommas({"nicx0", "nicx1", "nicx2"}), "nicx0,nicx1,nicx2");
    EXPECT_EQ(Tarn::JoinWithCommas({"", ""}), ",");
}

} // namespace
