// Smart-card slots and their tokens.
#pragma once

#include <string>
#include <vector>

namespace HostCtl::Hardware {

struct SmartCardSlot {
    int id = 0;
};

struct SmartCardToken {
    bool present = false;
    std::string userId;
};

} // namespace HostCtl::Hardware

namespace TesCtl::Hardware {

// Throws HostCtl::Lib::HostCtlException on a backend failure.
class SmartCardInfoImpl {
public:
    std::vector<HostCtl::Hardware::SmartCardSlot> GetAllSlots();
    // Fills `token` for `slot`; token.present is false for an empty slot.
    void GetToken(const HostCtl::Hardware::SmartCardSlot& slot, HostCtl::Hardware::SmartCardToken& token);
};

} // namespace TesCtl::Hardware
