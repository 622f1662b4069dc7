// The VLAN dialog: one row of digits; empty means no VLAN, 4095 needs a confirmation by warning.
#pragma once

#include <cstdint>
#include <optional>

namespace Tarn {

class Frame;

class VlanDialog {
public:
    VlanDialog(Frame* parent, uint16_t vlanId) : parent_(parent), vlanId_(vlanId) {}
    std::optional<uint16_t> Ask();

private:
    Frame* parent_;
    uint16_t vlanId_;
};

} // namespace Tarn
