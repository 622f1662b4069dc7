// Entered time-outs: range, empty input, the value already set, and the minutes/seconds conversions.
#include "hostops/TimeoutValue.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

using Tarn::TimeoutEntry;

TEST(TimeoutValue, InputAgainstTheValueSet) {
    constexpr auto shell = Tarn::EvaluateShellTimeout;  // against minutes
    constexpr auto console = Tarn::EvaluateTarnTimeout; // against seconds
    const struct {
        TimeoutEntry (*evaluate)(const std::string&, long);
        const char* input;
        long current;
        TimeoutEntry::Kind kind;
        long minutes;
    } cases[] = {
        {shell, "", 10, TimeoutEntry::Keep, 10},
        {shell, "10", 10, TimeoutEntry::Keep, 10},
        {shell, "1440", 10, TimeoutEntry::Set, 1440},
        {shell, "1441", 10, TimeoutEntry::Invalid, 1441},
        {shell, "0", 10, TimeoutEntry::Set, 0},
        {shell, "0", 0, TimeoutEntry::Keep, 0},
        {shell, "007", 10, TimeoutEntry::Set, 7},
        {shell, "-1", 10, TimeoutEntry::Invalid, -1},
        {shell, "99999999999999999999", 1, TimeoutEntry::Invalid, LONG_MAX},
        {console, "", 600, TimeoutEntry::Keep, 10},
        {console, "10", 600, TimeoutEntry::Keep, 10},
        {console, "1", 90, TimeoutEntry::Set, 1}, // 90 s shows as 1 minute but is not 60 s
        {console, "1440", 600, TimeoutEntry::Set, 1440},
        {console, "1441", 600, TimeoutEntry::Invalid, 1441},
        {console, "99999", 600, TimeoutEntry::Invalid, 1441},
        {console, "0", 600, TimeoutEntry::Set, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.evaluate == shell ? "shell " : "console ") + c.input);
        const TimeoutEntry e = c.evaluate(c.input, c.current);
        EXPECT_EQ(e.kind, c.kind);
        EXPECT_EQ(e.minutes, c.minutes);
    }
}

TEST(TimeoutValue, ToolOutputInWholeMinutes) {
    for (auto [output, minutes] :
         {std::pair{"900\n", 15L}, {"119", 1L}, {"59", 0L}, {"", 0L}, {"Unable to find option", 0L}})
        EXPECT_EQ(Tarn::MinutesFromToolOutput(output), minutes) << output;
    EXPECT_EQ(Tarn::SecondsFromMinutes(1440), 86400);
}

} // namespace
