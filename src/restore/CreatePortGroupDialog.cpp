// Create Port Group: a name and one marked standard switch.
#include "core/EventLoop.h"
#include "core/Keys.h"
#include "hostops/CorlaCli.h"
#include "network/SwitchListing.h"
#include "restore/RestoreDialogs.h"
#include "ui/FormDialog.h"
#include "ui/InputItem.h"
#include "ui/Item.h"
#include "ui/ItemList.h"
#include "ui/RunWindow.h"
#include "ui/StandardDialogs.h"
#include "ui/TextIds.h"

#include <memory>

namespace Tarn {
namespace {

constexpr unsigned kCreatePortGroupBody = 276;
constexpr const char* kSwitchHeader =
    "    {align:padding:20}Device Name{/align}{align:padding:10}Uplinks{/align}{align:padding:15}Port "
    "Groups{/align}{align:padding:12}Used Ports{/align}{align:padding:16}Configured Ports{/align}";

std::string SwitchRow(const SwitchSummary& s) {
    return "{align:padding:20}" + s.name + "{/align}{align:padding:10}" + std::to_string(s.uplinks.size()) +
           "{/align}{align:padding:15}" + std::to_string(s.portGroups.size()) + "{/align}{align:padding:12}" +
           std::to_string(s.usedPorts) + "{/align}{align:padding:16}" + std::to_string(s.configuredPorts) +
           "{/align}";
}

void Message(Frame* parent, unsigned title, const std::string& text) {
    MessageDialog message(parent, title, text);
    RunWindow(&message);
}

} // namespace

bool CreatePortGroupDialog(Frame* parent) {
    std::vector<SwitchSummary> switches;
    ScanVirtualSwitches(switches);

    InputItem name(parent->Text(TextId::PortGroupNameLabel), "", -1, FieldFilter::Text);
    LabelItem header(kSwitchHeader, false);
    LabelItem none("No standard switches present", false);
    std::vector<std::unique_ptr<RadioItem>> rows;
    for (size_t i = 0; i < switches.size(); ++i)
        rows.push_back(std::make_unique<RadioItem>(SwitchRow(switches[i]), i == 0));
    std::vector<Item*> items = {&name, &header};
    if (rows.empty())
        items.push_back(&none);
    for (auto& row : rows)
        items.push_back(row.get());

    FormDialog form(parent, {80, 20, 6}, parent->Text(TextId::CreatePortGroup),
                    parent->Text(kCreatePortGroupBody), kMarkFooter);
    form.SetItems(items);
    form.SetShowCursor(true);
    bool created = false;
    form.SetKeyHook([&](int key) {
        const int row = form.List()->FocusIndex() - 2; // below the name field and the header
        if ((key == 'D' || key == 'd') && row >= 0 && row < static_cast<int>(switches.size())) {
            const SwitchSummary& s = switches[row];
            InfoDialog details(&form,
                               form.Text(TextId::SwitchNameLabel) + s.name + "\n" + FormatSwitchSummary(s),
                               form.Text(TextId::StandardSwitchDetails), "", kEnterOkFooter);
            RunWindow(&details);
            return FormKey::Used;
        }
        if (key != Key::Enter)
            return FormKey::Unused;
        int marked = -1;
        for (size_t i = 0; i < rows.size(); ++i)
            if (rows[i]->Chosen())
                marked = static_cast<int>(i);
        if (name.Value().empty() || marked < 0) {
            Message(&form, TextId::InvalidArgument, form.Text(TextId::EnterValidPortGroupName));
            return FormKey::Used;
        }
        if (!AddPortGroup(name.Value(), switches[marked].name)) {
            Message(&form, TextId::OperationFailed, form.Text(TextId::CheckSyslog));
            return FormKey::Used;
        }
        Message(&form, TextId::OperationSucceeded, form.Text(TextId::CreatedPortGroup) + name.Value());
        created = true;
        return FormKey::Cancel; // created: the dialog is done
    });
    form.Run();
    return created;
}

} // namespace Tarn
