// Migrate Tessel NIC to Standard Switch: one tesnic and one port group of a standard switch are chosen;
// the caller below moves the tesnic and reports.
#include "core/EventLoop.h"
#include "restore/MigrateTesnic.h"
#include "restore/RestoreDialogs.h"
#include "ui/FormDialog.h"
#include "ui/Item.h"
#include "ui/RunWindow.h"
#include "ui/StandardDialogs.h"
#include "ui/TextIds.h"

#include <memory>

namespace Tarn {
namespace {

constexpr const char* kFooter =
    "{color:black}<Up/Down>{/color} {color:dark-grey}Select{/color}  {color:black}<Space>{/color} "
    "{color:dark-grey}Choose{/color}{align:right}{color:black}<Enter>{/color} {color:dark-grey}OK{/color}  "
    "{color:black}<Esc>{/color} {color:dark-grey}Cancel{/color}{/align}";
constexpr int kTesnicGroup = 0, kPortGroupGroup = 1;

struct Migration {
    std::string tesnic;
    std::string portGroup;
};

std::string ChosenLabel(const std::vector<std::unique_ptr<RadioItem>>& rows,
                        const std::vector<std::string>& names) {
    for (size_t i = 0; i < rows.size(); ++i)
        if (rows[i]->Chosen())
            return names[i];
    return {};
}

} // namespace

bool MigrateTesnicDialog(Frame* parent) {
    const MigrationChoices choices = ReadMigrationChoices();
    LabelItem tesnicHeader("Tessel NIC:", false), portGroupHeader("Port group:", false), gap("", false);
    std::vector<std::unique_ptr<RadioItem>> tesnics, portGroups;
    std::vector<Item*> items = {&tesnicHeader};
    for (size_t i = 0; i < choices.tesnics.size(); ++i) {
        tesnics.push_back(std::make_unique<RadioItem>(choices.tesnics[i], i == 0, kTesnicGroup));
        items.push_back(tesnics.back().get());
    }
    items.insert(items.end(), {&gap, &portGroupHeader});
    for (size_t i = 0; i < choices.portGroups.size(); ++i) {
        portGroups.push_back(std::make_unique<RadioItem>(choices.portGroups[i], i == 0, kPortGroupGroup));
        items.push_back(portGroups.back().get());
    }
    Form<Migration> form(
        parent, {70, 20, 6}, parent->Text(TextId::MigrateTesNicToStandardSwitch),
        parent->Text(TextId::MigrateTesNicBody), kFooter, [&]() -> std::variant<Migration, FormError> {
            Migration m{ChosenLabel(tesnics, choices.tesnics), ChosenLabel(portGroups, choices.portGroups)};
            if (m.tesnic.empty() || m.portGroup.empty())
                return FormError{0, parent->Text(TextId::InvalidArgument),
                                 parent->Text(TextId::MigrateTesNicBody)};
            return m;
        });
    form.SetItems(items);
    std::optional<Migration> chosen = form.Ask();
    if (!chosen)
        return false;
    const std::string failure = MigrateTesnic(chosen->tesnic, chosen->portGroup);
    MessageDialog result(parent, failure.empty() ? TextId::OperationSucceeded : TextId::OperationFailed,
                         failure.empty()
                             ? "Migrated " + chosen->tesnic + " to port group " + chosen->portGroup + "."
                             : failure + "\n" + parent->Text(TextId::CheckSyslog));
    RunWindow(&result);
    return failure.empty();
}

} // namespace Tarn
