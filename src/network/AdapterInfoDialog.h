// The details of one physical NIC, opened with "D" from the adapters dialog; and the question asked before
// adapters used by another switch are taken over.
#pragma once

#include "network/NetworkAccess.h"

#include <string>

namespace Tarn {

class Frame;

// "Device Name:", "Hardware Label:", "MAC Address:", "Connection Status:", "Used By:" ("None").
std::string AdapterDetailsText(const PhysicalNicInfo& nic, const std::string& usedBy);

// Shows the details until Enter.
void ShowAdapterInfo(Frame* parent, const PhysicalNicInfo& nic, const std::string& usedBy);

// "Network Adapters: Warning": true on Enter (take the adapters over), false on Esc.
bool ConfirmUsedAdapters(Frame* parent);

} // namespace Tarn
