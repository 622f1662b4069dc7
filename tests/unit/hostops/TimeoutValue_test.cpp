// Entered time-outs: range, empty input, the value already set, and the minutes/seconds conversions.
#include "hostops/TimeoutValue.h"

#include <gtest/gtest.h>

namespace {

using Tarn::TimeoutEntry;

TEST(TimeoutValue, ShellInputAgainstCurrentMinutes) {
    struct Case {
        const char* input;
        long current;
        TimeoutEntry::Kind kind;
        long minutes;
    } cases[] = {
        {"", 10, TimeoutEntry::Keep, 10},
        {"10", 10, TimeoutEntry::Keep, 10},
        {"1440", 10, TimeoutEntry::Set, 1440},
        {"1441", 10, TimeoutEntry::Invalid, 1441},
        {"0", 10, TimeoutEntry::Set, 0},
        {"0", 0, TimeoutEntry::Keep, 0},
        {"007", 10, TimeoutEntry::Set, 7},
        {"-1", 10, TimeoutEntry::Invalid, -1},
        {"99999999999999999999", 1, TimeoutEntry::Invalid, LONG_MAX},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.input);
        TimeoutEntry e = Tarn::EvaluateShellTimeout(c.input, c.current);
        EXPECT_EQ(e.kind, c.kind);
        EXPECT_EQ(e.minutes, c.minutes);
    }
}

TEST(TimeoutValue, ConsoleInputAgainstStoredSeconds) {
    struct Case {
        const char* input;
        long currentSeconds;
        TimeoutEntry::Kind kind;
        long minutes;
    } cases[] = {
        {"", 600, TimeoutEntry::Keep, 10},
        {"10", 600, TimeoutEntry::Keep, 10},
        {"1", 90, TimeoutEntry::Set, 1}, // 90 s shows as 1 minute but is not 60 s
        {"1440", 600, TimeoutEntry::Set, 1440},
        {"1441", 600, TimeoutEntry::Invalid, 1441},
        {"99999", 600, TimeoutEntry::Invalid, 1441},
        {"0", 600, TimeoutEntry::Set, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.input);
        TimeoutEntry e = Tarn::EvaluateTarnTimeout(c.input, c.currentSeconds);
        EXPECT_EQ(e.kind, c.kind);
        EXPECT_EQ(e.minutes, c.minutes);
    }
}

TEST(TimeoutValue, ToolOutputInWholeMinutes) {
    EXPECT_EQ(Tarn::MinutesFromToolOutput("900\n"), 15);
    EXPECT_EQ(Tarn::MinutesFromToolOutput("119"), 1);
    EXPECT_EQ(Tarn::MinutesFromToolOutput("59"), 0);
    EXPECT_EQ(Tarn::MinutesFromToolOutput(""), 0);
    EXPECT_EQ(Tarn::MinutesFromToolOutput("Unable to find option"), 0);
    EXPECT_EQ(Tarn::SecondsFromMinutes(1440), 86400);
}

} // namespace
