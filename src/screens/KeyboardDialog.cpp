// The keyboard dialog. Space marks the item under the cursor; Enter returns the marked layout, not the one
// under the cursor.
#include "screens/KeyboardDialog.h"

#include "hostops/HostActions.h"
#include "hostops/TryHostCtl.h"
#include "platform/SystemInfo.h"
#include "screens/KeyboardLayouts.h"
#include "ui/Item.h"
#include "ui/ItemList.h"
#include "ui/StringFactory.h"
#include "ui/TextIds.h"

namespace Tarn {
namespace {

constexpr DialogSize kSize{72, 20, 6};

constexpr const char* kFooter =
    "{color:black}<Up/Down>{/color} {color:dark-grey}Select{/color}  {color:black}<Space>{/color} "
    "{color:dark-grey}Toggle Selected{/color}{align:right}{color:black}<Enter>{/color} "
    "{color:dark-grey}OK{/color}  {color:black}<Esc>{/color} {color:dark-grey}Cancel{/color}{/align}";

const char* Catalogue(unsigned id) {
    return StringFactory::Get("en_US")->GetString(id);
}

} // namespace

KeyboardDialog::KeyboardDialog(Frame* parent)
    : FormDialog(parent, kSize, Catalogue(TextId::ConfigureKeyboard), Catalogue(TextId::KeyboardDialogBody),
                 kFooter) {
    // Only data is read here: a failure leaves an empty list (or nothing marked) rather than no dialog.
    TesCtl::System::SystemInfoImpl info;
    std::string configured;
    TryHostCtl("Getting keyboard layouts", [&] {
        layouts_ = info.GetKeyboardLayouts();
        configured = info.GetKeyboardLayout();
    });
    const int marked = MarkedLayoutIndex(layouts_, configured);

    std::vector<Item*> pointers;
    for (size_t i = 0; i < layouts_.size(); ++i) {
        items_.push_back(std::make_unique<RadioItem>(layouts_[i], static_cast<int>(i) == marked));
        pointers.push_back(items_.back().get());
    }
    SetItems(pointers);
    // Start with the cursor on the configured layout, which may lie below the first page.
    if (List() != nullptr && marked >= 0)
        List()->FocusItem(marked);
}

KeyboardDialog::~KeyboardDialog() = default;

int KeyboardDialog::Marked() const {
    return List() != nullptr ? List()->ChosenIndex() : -1;
}

std::optional<std::string> KeyboardDialog::Ask() {
    if (!Run())
        return std::nullopt;
    return LayoutToApply(layouts_, Marked());
}

bool ChooseKeyboardLayout(Frame* parent) {
    KeyboardDialog dialog(parent);
    const std::optional<std::string> layout = dialog.Ask();
    return layout && ChangeKeyboardLayout(*layout);
}

} // namespace Tarn
