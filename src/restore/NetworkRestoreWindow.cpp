// The Network Restore Options screen on the list-and-summary window.
#include "restore/NetworkRestoreWindow.h"

#include "hostops/BrynOpsAgent.h"
#include "network/NetworkAccess.h"
#include "restore/RestoreDialogs.h"
#include "ui/ItemList.h"
#include "ui/TextIds.h"

namespace Tarn {
namespace {

// The list is as wide as "Migrate Tessel NIC to Standard Switch" needs.
int WidestEntryTitle(const Frame& frame) {
    std::vector<unsigned> ids;
    for (const RestoreEntry& e : BuildRestoreEntries({}))
        ids.push_back(e.titleId);
    return WidestText(frame, ids);
}

} // namespace

NetworkRestoreWindow::NetworkRestoreWindow(Frame* parent)
    : ListSummaryWindow(parent, parent->Text(TextId::NetworkRestoreOptionsTitle), WidestEntryTitle(*parent)) {
    // Both tests ask the host (one runs a command): once per visit of the screen.
    RestoreConditions conditions;
    conditions.opsAgentActive = BrynOpsAgentActive();
    conditions.managementOnDistributed = IsManagementOnDistributedSwitch();
    entries_ = BuildRestoreEntries(conditions);
    std::vector<SummaryEntry> list;
    for (const RestoreEntry& e : entries_)
        list.push_back({Text(e.titleId), true, e.enabled});
    SetEntries(list);
}

SummaryPane NetworkRestoreWindow::Pane(int index) {
    if (index < 0 || index >= static_cast<int>(entries_.size()))
        return {Text(TextId::NetworkRestoreOptionsTitle), "", kRestoreInitialHint};
    const RestoreEntry& e = entries_[index];
    return {Text(e.titleId), Text(e.titleId + kRestoreDescriptionOffset), e.enterHint};
}

bool NetworkRestoreWindow::Open(int index) {
    RestoreEntry& e = entries_[index];
    switch (e.action) {
    case RestoreAction::CreateSwitch:
        CreateVssDialog(this);
        break;
    case RestoreAction::CreatePortGroup:
        CreatePortGroupDialog(this);
        break;
    case RestoreAction::MigrateTesnic:
        MigrateTesnicDialog(this);
        break;
    case RestoreAction::FactoryRestore:
        RestoreNetworkDialog(this);
        break;
    case RestoreAction::StandardSwitch:
        if (SafeModeNetworkDialog(this)) {
            // The management network has left the distributed switch: a second move makes no sense.
            e.enabled = false;
            std::vector<bool> enabled;
            for (const RestoreEntry& entry : entries_)
                enabled.push_back(entry.enabled);
            SetEnabled(enabled);
            List()->Down();
        }
        break;
    case RestoreAction::RestoreKds:
        RestorekDSDialog(this);
        break;
    }
    return true; // every dialog drew over the screen
}

} // namespace Tarn
