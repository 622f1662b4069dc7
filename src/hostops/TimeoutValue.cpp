// Time-out conversions and the verdict on an entered value.
#include "hostops/TimeoutValue.h"

#include <cstdlib>

namespace Tarn {

long MinutesFromToolOutput(const std::string& output) {
    return MinutesFromSeconds(std::strtol(output.c_str(), nullptr, 10));
}

TimeoutEntry EvaluateShellTimeout(const std::string& input, long currentMinutes) {
    if (input.empty())
        return {TimeoutEntry::Keep, currentMinutes};
    long minutes = std::strtol(input.c_str(), nullptr, 10);
    if (minutes < 0 || minutes > kMaxTimeoutMinutes)
        return {TimeoutEntry::Invalid, minutes};
    return {minutes == currentMinutes ? TimeoutEntry::Keep : TimeoutEntry::Set, minutes};
}

TimeoutEntry EvaluateTarnTimeout(const std::string& input, long currentSeconds) {
    if (input.empty())
        return {TimeoutEntry::Keep, MinutesFromSeconds(currentSeconds)};
    // Read as unsigned: a value the input cannot hold wraps to a large number and is refused.
    unsigned long minutes = std::strtoul(input.c_str(), nullptr, 10);
    if (minutes > static_cast<unsigned long>(kMaxTimeoutMinutes))
        return {TimeoutEntry::Invalid, kMaxTimeoutMinutes + 1};
    long value = static_cast<long>(minutes);
    return {SecondsFromMinutes(value) == currentSeconds ? TimeoutEntry::Keep : TimeoutEntry::Set, value};
}

} // namespace Tarn
