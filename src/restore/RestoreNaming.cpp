// First free switch and port group names.
#include "restore/RestoreNaming.h"

namespace Tarn {

std::string NextSwitchName(const NameTaken& taken) {
    std::string name = "kSwitch0";
    for (int n = 1; taken(name); ++n)
        name = "kSwitch" + std::to_string(n);
    return name;
}

std::string NextPortGroupName(const NameTaken& taken) {
    std::string name = "Management Network1";
    for (int n = 2; taken(name); ++n)
        name = "Management Network" + std::to_string(n);
    return name;
}

} // namespace Tarn
