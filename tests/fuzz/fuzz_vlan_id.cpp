// The VLAN ID as typed: empty is no VLAN, plain decimal digits for 1-4094 are taken, 4095 only after the
// warning; anything else (signs, blanks, letters, leading text, numbers beyond any integer) is refused and
// leaves the previous ID as it was.
#include "FuzzCheck.h"
#include "network/NetworkDialogRules.h"

#include <charconv>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    unsigned long long value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool number = !text.empty() && text.size() <= 5 && end == text.data() + text.size() &&
                        error == std::errc() && text.find_first_not_of("0123456789") == std::string::npos;

    uint16_t id = 7;
    const Tarn::VlanCheck check = Tarn::CheckVlan(text, id);
    if (text.empty()) {
        FUZZ_CHECK(check == Tarn::VlanCheck::Valid && id == 0);
    } else if (number && value >= 1 && value <= 4094) {
        FUZZ_CHECK(check == Tarn::VlanCheck::Valid && id == value);
    } else if (number && value == 4095) {
        FUZZ_CHECK(check == Tarn::VlanCheck::NeedsWarning && id == 4095);
    } else {
        FUZZ_CHECK(check == Tarn::VlanCheck::Invalid && id == 7);
    }
    return 0;
}
