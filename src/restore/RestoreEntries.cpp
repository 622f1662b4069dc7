// Network Restore Options entries. The Create, Migrate and Restart hints have no closing colour tag after
// their word while the Restore hint does: that is how the screen has always looked, kept on purpose.
#include "restore/RestoreEntries.h"

namespace Tarn {
namespace {

constexpr const char* kCreateHint =
    "{color:white}<Enter>{/color} {color:light-grey}Create{align:right}{color:white}<Esc>{/color} "
    "{color:light-grey}Exit{/color}{/align}";
constexpr const char* kMigrateHint =
    "{color:white}<Enter>{/color} {color:light-grey}Migrate{align:right}{color:white}<Esc>{/color} "
    "{color:light-grey}Exit{/color}{/align}";
constexpr const char* kRestartHint =
    "{color:white}<Enter>{/color} {color:light-grey}Restart{align:right}{color:white}<Esc>{/color} "
    "{color:light-grey}Exit{/color}{/align}";
constexpr const char* kRestoreHint =
    "{color:white}<Enter>{/color} {color:light-grey}Restore{/color}{align:right}{color:white}<Esc>{/color} "
    "{color:light-grey}Exit{/color}{/align}";

} // namespace

const char* const kRestoreInitialHint =
    "{color:white}<Enter>{/color}{color:light-grey} Change{/color}{align:right}{color:white}<Esc> "
    "{/color}{color:light-grey}Exit{/color}{/align}";

std::vector<RestoreEntry> BuildRestoreEntries(const RestoreConditions& c) {
    return {
        {63, RestoreAction::CreateSwitch, kCreateHint, true},
        {64, RestoreAction::CreatePortGroup, kCreateHint, true},
        {65, RestoreAction::MigrateTesnic, kMigrateHint, c.opsAgentActive},
        {66, RestoreAction::FactoryRestore, kRestartHint, true},
        {67, RestoreAction::StandardSwitch, kRestoreHint, c.managementOnDistributed},
        {68, RestoreAction::RestoreKds, kRestoreHint, c.managementOnDistributed},
    };
}

} // namespace Tarn
