// Restore kDS: the VLAN and uplinks of a new host local port for the management network.
#include "core/EventLoop.h"
#include "network/NetworkDialogRules.h"
#include "restore/KdsRestore.h"
#include "restore/RestoreDialogs.h"
#include "ui/ConfirmDialog.h"
#include "ui/FormDialog.h"
#include "ui/InputItem.h"
#include "ui/Item.h"
#include "ui/RunWindow.h"
#include "ui/StandardDialogs.h"
#include "ui/TextIds.h"

#include <algorithm>
#include <memory>

namespace Tarn {
namespace {

constexpr const char* kFooter =
    "{color:black}<Up/Down>{/color} {color:dark-grey}Select{/color}  {color:black}<Space>{/color} "
    "{color:dark-grey}Toggle Selected{/color}{align:right}{color:black}<Enter>{/color} "
    "{color:dark-grey}OK{/color}  "
    "{color:black}<Esc>{/color} {color:dark-grey}Cancel{/color}{/align}";
constexpr const char* kEnterCancelFooter =
    "{color:black}<Enter>{/color} {color:dark-grey}Continue{/color}{align:right}{color:black}<Esc>{/color} "
    "{color:dark-grey}Cancel{/color}{/align}";

struct PortChoice {
    uint16_t vlan = 0;
    std::vector<std::string> uplinks;
};

void Message(Frame* parent, unsigned title, unsigned text) {
    MessageDialog message(parent, title, parent->Text(text));
    RunWindow(&message);
}

// Empty means no VLAN; otherwise 1-4094: 4095 (every VLAN) is no port's VLAN.
std::optional<uint16_t> ParseVlan(const std::string& text) {
    uint16_t id = 0;
    return CheckVlan(text, id) == VlanCheck::Valid ? std::optional<uint16_t>(id) : std::nullopt;
}

} // namespace

bool RestorekDSDialog(Frame* parent) {
    const std::optional<KdsPortContext> context = ReadKdsPortContext();
    if (!context) {
        Message(parent, TextId::RestoreKdsError, TextId::RestoreKdsFailed);
        return false;
    }
    if (context->thirdParty) {
        Message(parent, TextId::RestoreKdsError, TextId::RestoreKdsThirdParty);
        return false;
    }
    if (context->uplinks.empty()) {
        Message(parent, TextId::NoKdsUplinksError, TextId::NoUplinksConfigured);
        return false;
    }

    InputItem vlan("VLAN ID: ", context->vlan == 0 ? "" : std::to_string(context->vlan), 6,
                   FieldFilter::Number);
    LabelItem gap("", false), header(parent->Text(TextId::SelectKdsUplinks), false);
    std::vector<std::unique_ptr<CheckItem>> uplinks;
    std::vector<Item*> items = {&vlan, &gap, &header};
    for (const std::string& uplink : context->uplinks) {
        const auto& current = context->portUplinks;
        bool checked = std::find(current.begin(), current.end(), uplink) != current.end();
        uplinks.push_back(std::make_unique<CheckItem>(uplink, checked));
        items.push_back(uplinks.back().get());
    }
    Form<PortChoice> form(parent, {72, 19, 7}, parent->Text(TextId::RestoreKdsTitle),
                          parent->Text(TextId::RestoreKdsDialogBody), kFooter,
                          [&]() -> std::variant<PortChoice, FormError> {
                              std::optional<uint16_t> id = ParseVlan(vlan.Value());
                              if (!id)
                                  return FormError{0, parent->Text(TextId::InvalidVlanId),
                                                   parent->Text(TextId::EnterValidVlanId)};
                              PortChoice choice{*id, {}};
                              for (size_t i = 0; i < uplinks.size(); ++i)
                                  if (uplinks[i]->Checked())
                                      choice.uplinks.push_back(context->uplinks[i]);
                              return choice;
                          });
    form.SetItems(items);
    form.SetShowCursor(true);
    std::optional<PortChoice> choice = form.Ask();
    if (!choice)
        return false;
    if (choice->uplinks.empty()) {
        // A port without uplinks carries no traffic; the operator may still want it (to add uplinks later).
        ConfirmDialog ask(parent,
                          {parent->Text(TextId::KdsUplinksWarning), parent->Text(TextId::NoUplinksSelected),
                           parent->Text(TextId::ContinueQuestion), kEnterCancelFooter, kEnterCancelKeys});
        if (ask.Ask() != Answer::Yes)
            return false;
    }
    const std::string port = RestoreKdsPort(*context, choice->vlan, choice->uplinks);
    if (port.empty()) {
        Message(parent, TextId::RestoreKdsError, TextId::RestoreKdsFailed);
        return false;
    }
    MessageDialog done(parent, TextId::OperationSucceeded,
                       "The management network was moved to the host local port " + port + " on " +
                           context->dswitch + ".");
    RunWindow(&done);
    return true;
}

} // namespace Tarn
