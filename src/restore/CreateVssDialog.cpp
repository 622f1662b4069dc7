// Create Standard Switch: a name, one marked physical NIC as its uplink; an uplink in use elsewhere is
// moved only when the operator agrees.
#include "network/AdapterInfoDialog.h"
#include "network/NetworkAccess.h"
#include "network/NetworkDialogRules.h"
#include "network/SwitchListing.h"
#include "restore/MarkedRowDialog.h"
#include "restore/RestoreDialogs.h"
#include "restore/SwitchCreation.h"
#include "ui/ConfirmDialog.h"
#include "ui/RunWindow.h"
#include "ui/StandardDialogs.h"
#include "ui/TextIds.h"

namespace Tarn {
namespace {

constexpr const char* kNicHeader =
    "    {align:padding:13}Device Name{/align}{align:padding:30}Hardware Label (MAC "
    "Address){/align}Status";

// The text and the question share the top pane of a 60 x 8 dialog: it has no title.
bool AgreeToMoveUplink(Frame& parent, const std::string& uplink, const std::string& owner) {
    ConfirmDialog ask(&parent, {60, 8, 6},
                      {"", UplinkInUseText(uplink, owner) + "\n" + kUplinkInUseQuestion, "",
                       kYesNoCancelFooter, kYesNoCancelKeys});
    if (ask.Ask() == Answer::Yes)
        return true;
    NotificationDialog cancelled(&parent, FixedMessageSize(60, 8), parent.Text(TextId::OperationCancelled),
                                 "No standard switch was created.");
    RunWindow(&cancelled);
    return false;
}

} // namespace

bool CreateVssDialog(Frame* parent) {
    const std::map<std::string, std::string> owners = GatherStandardSwitchUplinks();
    std::vector<PhysicalNicInfo> nics;
    MarkedRowForm form;
    form.title = parent->Text(TextId::CreateStandardSwitch);
    form.body = parent->Text(TextId::CreateStandardSwitchBody);
    form.nameLabel = "kSwitch Name: ";
    form.header = kNicHeader;
    form.noRows = "No physical nics present";
    for (const std::string& name : GetPhysicalNicNames()) {
        nics.push_back(GetPhysicalNicInfo(name));
        const PhysicalNicInfo& nic = nics.back();
        form.rows.push_back(AdapterRowText(nic.name, nic.hardwareLabel, nic.macAddress, nic.linkState));
    }
    form.showDetails = [&](Frame& dialog, int row) {
        ShowAdapterInfo(&dialog, nics[row], FindUplinkUser(nics[row].name));
    };
    form.accept = [&](Frame& dialog, const std::string& name, int marked) {
        if (name.empty() || marked < 0) {
            ShowMessage(dialog, FixedMessageSize(48, 8), TextId::InvalidArgument,
                        dialog.Text(TextId::EnterValidSwitchName));
            return false;
        }
        const std::string& uplink = nics[marked].name;
        const auto owner = owners.find(uplink);
        const std::string ownerName = owner != owners.end() ? owner->second : "";
        if (!ownerName.empty() && !AgreeToMoveUplink(dialog, uplink, ownerName))
            return false;
        if (!CreateStandardSwitchWithUplink(name, uplink, ownerName)) {
            ShowMessage(dialog, FixedMessageSize(51, 8), TextId::OperationFailed,
                        dialog.Text(TextId::CheckSyslog));
            return false; // a switch that was created stays
        }
        ShowMessage(dialog, FixedMessageSize(75, 10), TextId::OperationSucceeded,
                    dialog.Text(TextId::CreatedStandardSwitch) + name);
        return true;
    };
    return RunMarkedRowForm(parent, form);
}

} // namespace Tarn
