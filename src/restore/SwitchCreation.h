// What Create Standard Switch and Create Port Group do once the operator has chosen: the corlacli commands
// and the in-use question's text. The dialogs collect the choice; these act on it.
#pragma once

#include <string>

namespace Tarn {

// "The chosen uplink "nicx1" is already in use by "kSwitch0"." (the question follows on its own line).
std::string UplinkInUseText(const std::string& uplink, const std::string& owner);
inline constexpr const char* kUplinkInUseQuestion =
    "Do you wish to detach the uplink and attach it to the newly created standard switch?";

// Takes `uplink` off `currentOwner` first when one is named, then creates `name` and adds the uplink. Every
// command runs even when an earlier one failed (the failures are logged by the command runner); true when
// all succeeded. Nothing is undone.
bool CreateStandardSwitchWithUplink(const std::string& name, const std::string& uplink,
                                    const std::string& currentOwner);

} // namespace Tarn
