// The lockdown dialog: one check box; Space toggles it, Enter returns it, Esc leaves.
#include "screens/LockdownDialog.h"

#include "ui/StringFactory.h"
#include "ui/TextIds.h"

namespace Tarn {
namespace {

constexpr DialogSize kSize{60, 11, 6};

constexpr const char* kFooter =
    "{color:black}<Space>{/color} {color:dark-grey}Toggle "
    "Selected{/color}{align:right}{color:black}<Enter>{/color} "
    "{color:dark-grey}OK{/color}  {color:black}<Esc>{/color} {color:dark-grey}Cancel{/color}{/align}";

const char* Catalogue(unsigned id) {
    return StringFactory::Get("en_US")->GetString(id);
}

} // namespace

LockdownDialog::LockdownDialog(Frame* parent, bool lockdownEnabled)
    : FormDialog(parent, kSize, Catalogue(TextId::ConfigureLockdownModeTitle),
                 Catalogue(TextId::LockdownDialogBody), kFooter),
      check_(Catalogue(TextId::EnableLockdownMode), lockdownEnabled) {
    SetItems({&check_});
}

std::optional<bool> LockdownDialog::Ask() {
    if (!Run())
        return std::nullopt;
    return check_.Checked();
}

} // namespace Tarn
