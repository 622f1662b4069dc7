// The terminal-number argument: plain decimal digits for a number 1-63; a sign, a blank or anything after
// the number refuses it.
#include "FuzzCheck.h"
#include "core/StartupRules.h"

#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const std::string argument = text.substr(0, text.find('\0')); // what argv can hold
    int expected = -1;
    if (!argument.empty() && argument.find_first_not_of("0123456789") == std::string::npos) {
        const std::string number =
            argument.substr(std::min(argument.find_first_not_of('0'), argument.size()));
        if (!number.empty() && number.size() <= 2 && std::stoi(number) <= 63)
            expected = std::stoi(number);
    }
    FUZZ_CHECK(Tarn::ParseVtArgument(argument.c_str()) == expected);
    return 0;
}
