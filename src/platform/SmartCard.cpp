// SmartCardInfoImpl: forwards to the active smart-card backend.
#include "platform/SmartCard.h"

#include "platform/HostBackends.h"
#include "platform/HostCtlException.h"

namespace TesCtl::Hardware {

std::vector<HostCtl::Hardware::SmartCardSlot> SmartCardInfoImpl::GetAllSlots() {
    std::vector<HostCtl::Hardware::SmartCardSlot> slots;
    for (const Platform::SmartCardSlotState& s : Platform::ActiveSmartCardBackend().Slots())
        slots.push_back({s.id});
    return slots;
}

// Reads the slots afresh: a card may have been pulled since GetAllSlots.
void SmartCardInfoImpl::GetToken(const HostCtl::Hardware::SmartCardSlot& slot,
                                 HostCtl::Hardware::SmartCardToken& token) {
    for (const Platform::SmartCardSlotState& s : Platform::ActiveSmartCardBackend().Slots()) {
        if (s.id == slot.id) {
            token.present = s.tokenUser.has_value();
            token.userId = s.tokenUser.value_or("");
            return;
        }
    }
    throw HostCtl::Lib::HostCtlException("no smart-card slot " + std::to_string(slot.id));
}

} // namespace TesCtl::Hardware
