// Moving the management network off a distributed switch onto a new standard switch: a new kSwitchN with a
// new "Management NetworkN" port group, the distributed switch's uplinks moved over one by one, then the
// management interface. Every failure is logged and the move goes on; nothing is rolled back.
#pragma once

namespace Tarn {

void MoveManagementToStandardSwitch();

} // namespace Tarn
