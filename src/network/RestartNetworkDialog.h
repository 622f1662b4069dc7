// Restart Management Network: the F11-only confirmation, then the restart with its progress.
#pragma once

namespace Tarn {

class Frame;

// The whole task from the menu: find the management interface, confirm with F11, restart, report.
void RunRestartManagementNetwork(Frame* parent);

} // namespace Tarn
