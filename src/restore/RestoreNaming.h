// Names for the standard switch and port group that take over the management network: the first free
// "kSwitch0", "kSwitch1", ... and "Management Network1", "Management Network2", ... (switches count from 0,
// port groups from 1, as administrators know them).
#pragma once

#include <functional>
#include <string>

namespace Tarn {

using NameTaken = std::function<bool(const std::string&)>;

std::string NextSwitchName(const NameTaken& taken);
std::string NextPortGroupName(const NameTaken& taken);

} // namespace Tarn
