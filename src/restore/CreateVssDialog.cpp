// Create Standard Switch: a name, one marked physical NIC as its uplink; an uplink in use elsewhere is
// moved only when the operator agrees.
#include "core/EventLoop.h"
#include "core/Keys.h"
#include "network/NetworkAccess.h"
#include "network/SwitchListing.h"
#include "restore/RestoreDialogs.h"
#include "restore/SwitchCreation.h"
#include "ui/ConfirmDialog.h"
#include "ui/FormDialog.h"
#include "ui/InputItem.h"
#include "ui/Item.h"
#include "ui/ItemList.h"
#include "ui/RunWindow.h"
#include "ui/StandardDialogs.h"
#include "ui/TextIds.h"

#include <map>
#include <memory>

namespace Tarn {
namespace {

constexpr unsigned kCreateSwitchBody = 287;
constexpr const char* kNicHeader =
    "    {align:padding:13}Device Name{/align}{align:padding:30}Hardware Label (MAC "
    "Address){/align}Status";

std::string NicRow(const PhysicalNicInfo& nic) {
    return "{align:padding:13}" + nic.name + "{/align}{align:padding:30}" + nic.hardwareLabel + " (" +
           nic.macAddress + "){/align}" + nic.linkState;
}

void Message(Frame* parent, unsigned title, const std::string& text) {
    MessageDialog message(parent, title, text);
    RunWindow(&message);
}

} // namespace

bool CreateVssDialog(Frame* parent) {
    const std::vector<std::string> nics = GetPhysicalNicNames();
    const std::map<std::string, std::string> owners = GatherStandardSwitchUplinks();

    InputItem name("kSwitch Name: ", "", -1, FieldFilter::Text);
    LabelItem header(kNicHeader, false);
    LabelItem none("No physical nics present", false);
    std::vector<std::unique_ptr<RadioItem>> rows;
    std::vector<PhysicalNicInfo> infos;
    for (size_t i = 0; i < nics.size(); ++i) {
        infos.push_back(GetPhysicalNicInfo(nics[i]));
        rows.push_back(std::make_unique<RadioItem>(NicRow(infos.back()), i == 0));
    }
    std::vector<Item*> items = {&name, &header};
    if (rows.empty())
        items.push_back(&none);
    for (auto& row : rows)
        items.push_back(row.get());

    FormDialog form(parent, {80, 20, 6}, parent->Text(TextId::CreateStandardSwitch),
                    parent->Text(kCreateSwitchBody), kMarkFooter);
    form.SetItems(items);
    form.SetShowCursor(true);
    bool created = false;
    form.SetKeyHook([&](int key) {
        const int focus = form.List()->FocusIndex();
        const int row = focus - 2; // below the name field and the header
        if ((key == 'D' || key == 'd') && row >= 0 && row < static_cast<int>(infos.size())) {
            const PhysicalNicInfo& nic = infos[row];
            InfoDialog details(&form,
                               "Name: " + nic.name + "\nHardware Label: " + nic.hardwareLabel +
                                   "\nMAC Address: " + nic.macAddress + "\nStatus: " + nic.linkState,
                               nic.name, "", kEnterOkFooter);
            RunWindow(&details);
            return FormKey::Used;
        }
        if (key != Key::Enter)
            return FormKey::Unused; // Space marks a row through the list, or is a character of the name
        int marked = -1;
        for (size_t i = 0; i < rows.size(); ++i)
            if (rows[i]->Chosen())
                marked = static_cast<int>(i);
        if (name.Value().empty() || marked < 0) {
            Message(&form, TextId::InvalidArgument, form.Text(TextId::EnterValidSwitchName));
            return FormKey::Used;
        }
        const std::string& uplink = nics[marked];
        std::string owner;
        if (auto it = owners.find(uplink); it != owners.end())
            owner = it->second;
        if (!owner.empty()) {
            // Text and question together in the top pane: the wrapped question needs more than one row.
            ConfirmDialog ask(&form, {60, 12, 9},
                              {form.Text(TextId::UplinkInUse),
                               UplinkInUseText(uplink, owner) + "\n" + kUplinkInUseQuestion, "",
                               kYesNoCancelFooter, kYesNoCancelKeys});
            if (ask.Ask() != Answer::Yes) {
                Message(&form, TextId::OperationCancelled, form.Text(TextId::OperationCancelled));
                return FormKey::Used;
            }
        }
        if (!CreateStandardSwitchWithUplink(name.Value(), uplink, owner)) {
            Message(&form, TextId::OperationFailed, form.Text(TextId::CheckSyslog));
            return FormKey::Used;
        }
        Message(&form, TextId::OperationSucceeded, form.Text(TextId::CreatedStandardSwitch) + name.Value());
        created = true;
        return FormKey::Cancel; // the switch exists: the dialog is done
    });
    form.Run();
    return created;
}

} // namespace Tarn
