// Standard switch creation through corlacli.
#include "restore/SwitchCreation.h"

#include "hostops/CorlaCli.h"

namespace Tarn {

std::string UplinkInUseText(const std::string& uplink, const std::string& owner) {
    return "The chosen uplink \"" + uplink + "\" is already in use by \"" + owner + "\".";
}

bool CreateStandardSwitchWithUplink(const std::string& name, const std::string& uplink,
                                    const std::string& currentOwner) {
    bool ok = true;
    if (!currentOwner.empty())
        ok = ChangeStandardSwitchUplink(currentOwner, uplink, false);
    ok = AddStandardSwitch(name) && ok;
    ok = ChangeStandardSwitchUplink(name, uplink, true) && ok;
    return ok;
}

} // namespace Tarn
