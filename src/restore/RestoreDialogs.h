// The dialogs the Network Restore Options entries open. Each returns true when it changed the host.
#pragma once

namespace Tarn {

class Frame;

// The footer of the dialogs that mark one row of a list (two blanks before "<Space>" and before "<Esc>").
inline constexpr const char* kMarkFooter =
    "{color:black}<D>{/color} {color:dark-grey}View Details{/color}  {color:black}<Space>{/color} "
    "{color:dark-grey}Toggle Selected{/color}{align:right}{color:black}<Enter>{/color} "
    "{color:dark-grey}OK{/color}  {color:black}<Esc>{/color} {color:dark-grey}Cancel{/color}{/align}";

// Factory network restore: F11 confirmation, then the restore with its progress.
bool RestoreNetworkDialog(Frame* parent);
// Move of the management network onto a new standard switch, after F11.
bool SafeModeNetworkDialog(Frame* parent);
bool CreateVssDialog(Frame* parent);
bool CreatePortGroupDialog(Frame* parent);
bool MigrateTesnicDialog(Frame* parent);
bool RestorekDSDialog(Frame* parent);

} // namespace Tarn
