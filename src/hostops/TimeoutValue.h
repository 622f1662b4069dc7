// Time-out values as the operator types them (minutes) and as the host keeps them (seconds): conversions,
// the accepted range and what an entered value means for the option it edits.
#pragma once

#include <string>

namespace Tarn {

// 0 disables a time-out; a day is the longest.
inline constexpr long kMaxTimeoutMinutes = 1440;
// The console time-out's input holds at most this many characters.
inline constexpr int kTarnTimeoutInputChars = 5;

inline constexpr long SecondsFromMinutes(long minutes) {
    return minutes * 60;
}
// Whole minutes, rounded down: 90 seconds show as 1 minute.
inline constexpr long MinutesFromSeconds(long seconds) {
    return seconds / 60;
}

// The minutes shown for an option read with corlacfg-advcfg: its output is seconds ("900\n"); anything
// that does not start with a number reads as 0.
long MinutesFromToolOutput(const std::string& output);

struct TimeoutEntry {
    enum Kind {
        Keep,    // empty input, or the value already set: nothing runs
        Invalid, // out of range: the operator is told, the option stays
        Set      // write `minutes`
    } kind;
    long minutes;
};

// A shell time-out input against the option's current minutes.
TimeoutEntry EvaluateShellTimeout(const std::string& input, long currentMinutes);

// The console time-out input against the seconds read when the dialog opened. Compared in seconds, so a
// stored value that is not whole minutes is replaced even when its minutes are entered again.
TimeoutEntry EvaluateTarnTimeout(const std::string& input, long currentSeconds);

} // namespace Tarn
