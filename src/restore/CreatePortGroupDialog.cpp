// Create Port Group: a name and one marked standard switch.
#include "hostops/CorlaCli.h"
#include "network/SwitchListing.h"
#include "restore/MarkedRowDialog.h"
#include "restore/RestoreDialogs.h"
#include "ui/RunWindow.h"
#include "ui/StandardDialogs.h"
#include "ui/TextIds.h"

namespace Tarn {
namespace {

constexpr const char* kSwitchHeader =
    "    {align:padding:20}Device Name{/align}{align:padding:10}Uplinks{/align}{align:padding:15}Port "
    "Groups{/align}{align:padding:12}Used Ports{/align}{align:padding:16}Configured Ports{/align}";

std::string SwitchRow(const SwitchSummary& s) {
    return "{align:padding:20}" + s.name + "{/align}{align:padding:10}" + std::to_string(s.uplinks.size()) +
           "{/align}{align:padding:15}" + std::to_string(s.portGroups.size()) + "{/align}{align:padding:12}" +
           std::to_string(s.usedPorts) + "{/align}{align:padding:16}" + std::to_string(s.configuredPorts) +
           "{/align}";
}

// StandardSwitchInfoDialog: the name under the title, the port counts, port groups and uplinks below.
void ShowStandardSwitchInfo(Frame& parent, const SwitchSummary& s) {
    InfoDialog details(
        &parent,
        "Number of ports: " + std::to_string(s.numPorts) + "\nUsed ports: " + std::to_string(s.usedPorts) +
            "\nConfigured ports: " + std::to_string(s.configuredPorts) +
            "\nPort groups: " + JoinOrNone(s.portGroups) + "\nUplinks: " + JoinOrNone(s.uplinks),
        parent.Text(TextId::StandardSwitchDetails), parent.Text(TextId::SwitchNameLabel) + s.name,
        kEnterOkFooter);
    RunWindow(&details);
}

} // namespace

bool CreatePortGroupDialog(Frame* parent) {
    std::vector<SwitchSummary> switches;
    ScanVirtualSwitches(switches);
    MarkedRowForm form;
    form.title = parent->Text(TextId::CreatePortGroup);
    form.body = parent->Text(TextId::CreatePortGroupBody);
    form.nameLabel = parent->Text(TextId::PortGroupNameLabel);
    form.header = kSwitchHeader;
    form.noRows = "No standard switches present";
    for (const SwitchSummary& s : switches)
        form.rows.push_back(SwitchRow(s));
    form.showDetails = [&](Frame& dialog, int row) { ShowStandardSwitchInfo(dialog, switches[row]); };
    form.accept = [&](Frame& dialog, const std::string& name, int marked) {
        if (name.empty() || marked < 0) {
            ShowMessage(dialog, FixedMessageSize(43, 8), TextId::InvalidArgument,
                        dialog.Text(TextId::EnterValidPortGroupName));
            return false;
        }
        if (!AddPortGroup(name, switches[marked].name)) {
            ShowMessage(dialog, FixedMessageSize(51, 8), TextId::OperationFailed,
                        dialog.Text(TextId::CheckSyslog));
            return false;
        }
        ShowMessage(dialog, FixedMessageSize(60, 8), TextId::OperationSucceeded,
                    dialog.Text(TextId::CreatedPortGroup) + name);
        return true;
    };
    return RunMarkedRowForm(parent, form);
}

} // namespace Tarn
