// The network adapters dialog: one check row per physical NIC; the order in which adapters are selected is
// the order of the uplinks. It returns the adapters and the active-uplink count; the window takes them.
#pragma once

#include "network/PendingNetworkConfig.h"

#include <optional>
#include <string>
#include <vector>

namespace Tarn {

class Frame;

class AdaptersDialog {
public:
    AdaptersDialog(Frame* parent, std::vector<std::string> adapters, int32_t activeUplinks,
                   std::string managementSwitch);
    // Nothing after Esc, and after Enter with no adapter selected (the adapters stay as they were).
    std::optional<AdaptersResult> Ask();

private:
    Frame* parent_;
    std::vector<std::string> selected_;
    int32_t activeUplinks_;
    std::string managementSwitch_;
};

} // namespace Tarn
