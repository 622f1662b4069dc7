// The dialogs the Network Restore Options entries open. Each returns true when it changed the host.
#pragma once

namespace Tarn {

class Frame;

// Factory network restore: F11 confirmation, then the restore with its progress.
bool RestoreNetworkDialog(Frame* parent);
// Move of the management network onto a new standard switch, after F11.
bool SafeModeNetworkDialog(Frame* parent);
bool CreateVssDialog(Frame* parent);
bool CreatePortGroupDialog(Frame* parent);
bool MigrateTesnicDialog(Frame* parent);
bool RestorekDSDialog(Frame* parent);

} // namespace Tarn
