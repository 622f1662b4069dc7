// The adapters dialog: the column header, then a check row per NIC. Space keeps the selection in the
// order it was made; "D" shows a NIC's details; Enter asks first when a selected NIC serves another switch.
#include "network/AdaptersDialog.h"

#include "core/Keys.h"
#include "network/AdapterInfoDialog.h"
#include "network/NetworkAccess.h"
#include "network/NetworkDialogRules.h"
#include "network/NetworkForms.h"
#include "network/SwitchListing.h"
#include "ui/Item.h"
#include "ui/ItemList.h"
#include "ui/TextIds.h"

#include <algorithm>
#include <memory>

namespace Tarn {

namespace {

constexpr const char* kHeader =
    "    {align:padding:13}Device Name{/align}{align:padding:30}Hardware Label (MAC Address){/align}Status";
constexpr const char* kFooter =
    "{color:black}<D>{/color} {color:dark-grey}View Details{/color}  {color:black}<Space>{/color} "
    "{color:dark-grey}Toggle Selected{/color}{align:right}{color:black}<Enter>{/color} "
    "{color:dark-grey}OK{/color}  {color:black}<Esc>{/color} {color:dark-grey}Cancel{/color}{/align}";

bool Contains(const std::vector<std::string>& list, const std::string& name) {
    return std::find(list.begin(), list.end(), name) != list.end();
}

} // namespace

AdaptersDialog::AdaptersDialog(Frame* parent, std::vector<std::string> adapters, int32_t activeUplinks,
                               std::string managementSwitch)
    : parent_(parent), selected_(std::move(adapters)), activeUplinks_(activeUplinks),
      managementSwitch_(std::move(managementSwitch)) {}

std::optional<AdaptersResult> AdaptersDialog::Ask() {
    const Frame& f = *parent_;
    std::vector<PhysicalNicInfo> nics;
    for (const auto& name : GetPhysicalNicNames())
        nics.push_back(GetPhysicalNicInfo(name));

    LabelItem header(kHeader, false);
    std::vector<std::unique_ptr<CheckItem>> rows;
    std::vector<Item*> items{&header};
    for (const auto& nic : nics) {
        rows.push_back(std::make_unique<CheckItem>(
            AdapterRowText(nic.name, nic.hardwareLabel, nic.macAddress, nic.linkState),
            Contains(selected_, nic.name)));
        items.push_back(rows.back().get());
    }
    std::vector<std::string> selected = selected_;
    // The NIC under the cursor; null on the header.
    auto focusedNic = [&](ItemList* list) -> const PhysicalNicInfo* {
        const int index = list == nullptr ? -1 : list->FocusIndex() - 1;
        return index >= 0 && index < static_cast<int>(nics.size()) ? &nics[static_cast<size_t>(index)]
                                                                   : nullptr;
    };
    // Another switch that uses a selected NIC; the management switch itself does not count.
    auto usedElsewhere = [&] {
        return std::any_of(selected.begin(), selected.end(), [&](const std::string& name) {
            const std::string user = FindUplinkUser(name);
            return !user.empty() && user != managementSwitch_;
        });
    };

    Form<AdaptersResult> form(parent_, {76, 20, 7}, f.Text(TextId::NetworkAdaptersTitle),
                              f.Text(TextId::NetworkAdaptersDialogBody), kFooter,
                              [&]() -> std::variant<AdaptersResult, FormError> {
                                  // Every selected adapter is active, unless the selection stayed as it was.
                                  const int32_t active = selected == selected_
                                                             ? activeUplinks_
                                                             : static_cast<int32_t>(selected.size());
                                  return AdaptersResult{selected, active};
                              });
    form.SetItems(items);
    form.SetKeyHook([&](int key) {
        ItemList* list = form.List();
        const PhysicalNicInfo* nic = focusedNic(list);
        if (key == Key::Space) {
            if (nic != nullptr) {
                ToggleAdapter(selected, nic->name);
                rows[static_cast<size_t>(list->FocusIndex() - 1)]->SetChecked(Contains(selected, nic->name));
                list->Draw();
            }
            return FormKey::Used;
        }
        if (key == 'D' || key == 'd') {
            if (nic != nullptr)
                ShowAdapterInfo(&form, *nic, FindUplinkUser(nic->name));
            return FormKey::Used;
        }
        if (key == Key::Enter) {
            if (selected.empty())
                return FormKey::Cancel;
            if (usedElsewhere() && !ConfirmUsedAdapters(&form))
                return FormKey::Used;
            return FormKey::Accept;
        }
        return FormKey::Unused;
    });
    return form.Ask();
}

} // namespace Tarn
