// Time-out inputs as typed through a Number field, and the tool output they start from: a value is only
// ever set inside 0-1440 minutes and when it changes something; no input overflows a conversion.
#include "FuzzCheck.h"
#include "hostops/TimeoutValue.h"
#include "ui/FieldFilter.h"

#include <cctype>
#include <cstdint>
#include <cstring>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 8)
        return 0;
    long current = 0;
    std::memcpy(&current, data, sizeof current);
    current %= 100000; // what a host option can hold, in minutes or seconds
    std::string typed;
    for (size_t i = 8; i < size && typed.size() < Tarn::kTarnTimeoutInputChars + 5; ++i)
        if (std::isprint(data[i]) && Tarn::FieldAccepts(Tarn::FieldFilter::Number, data[i]))
            typed += static_cast<char>(data[i]);

    const auto shell = Tarn::EvaluateShellTimeout(typed, current);
    FUZZ_CHECK(typed.empty() ? shell.kind == Tarn::TimeoutEntry::Keep : true);
    if (shell.kind == Tarn::TimeoutEntry::Set)
        FUZZ_CHECK(shell.minutes >= 0 && shell.minutes <= Tarn::kMaxTimeoutMinutes &&
                   shell.minutes != current);

    const auto tarn = Tarn::EvaluateTarnTimeout(typed, current);
    if (tarn.kind == Tarn::TimeoutEntry::Set)
        FUZZ_CHECK(tarn.minutes >= 0 && tarn.minutes <= Tarn::kMaxTimeoutMinutes &&
                   Tarn::SecondsFromMinutes(tarn.minutes) != current);

    // The option's value as corlacfg-advcfg prints it: any text.
    Tarn::MinutesFromToolOutput(std::string(reinterpret_cast<const char*>(data + 8), size - 8));
    return 0;
}
