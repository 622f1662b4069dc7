// The entries of the Network Restore Options screen as a table: catalogue ids, Enter hints, which dialog
// each opens and when it can be chosen. Plain values; the screen draws from them.
#pragma once

#include <string>
#include <vector>

namespace Tarn {

enum class RestoreAction {
    CreateSwitch,
    CreatePortGroup,
    MigrateTesnic,
    FactoryRestore,
    StandardSwitch,
    RestoreKds
};

struct RestoreEntry {
    unsigned titleId; // the description is titleId + 6
    RestoreAction action;
    const char* enterHint;
    bool enabled;
};

// What decides the enabling of the entries, computed once when the screen is built.
struct RestoreConditions {
    bool opsAgentActive = false;          // BrynOpsAgentActive
    bool managementOnDistributed = false; // the management interface sits on a kDS port
};

inline constexpr unsigned kRestoreDescriptionOffset = 6;

// The six entries in screen order (63 to 68).
std::vector<RestoreEntry> BuildRestoreEntries(const RestoreConditions& conditions);

// The screen's right footer hint before any entry was selected.
extern const char* const kRestoreInitialHint;

} // namespace Tarn
