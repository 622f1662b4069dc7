// The VLAN dialog: digits only; the range is checked on Enter, and 4095 is taken after its warning.
#include "network/VlanDialog.h"

#include "core/EventLoop.h"
#include "network/NetworkForms.h"
#include "ui/InputItem.h"
#include "ui/RunWindow.h"
#include "ui/StandardDialogs.h"
#include "ui/TextIds.h"

namespace Tarn {

std::optional<uint16_t> VlanDialog::Ask() {
    const Frame& f = *parent_;
    InputItem id(f.Text(TextId::VlanIdLabel), vlanId_ == 0 ? "" : std::to_string(vlanId_), 6,
                 FieldFilter::Number);
    Form<uint16_t> form(
        parent_, {72, 12, 7}, f.Text(TextId::VlanOptional), f.Text(TextId::VlanUnsetIsSafe), kOkCancelFooter,
        [&]() -> std::variant<uint16_t, FormError> {
            uint16_t value = 0;
            switch (CheckVlan(id.Value(), value)) {
            case VlanCheck::Invalid:
                return FormError{0, f.Text(TextId::InvalidVlanId), f.Text(TextId::ReenterVlanId)};
            case VlanCheck::NeedsWarning: {
                NotificationDialog warning(&form, f.Text(TextId::Warning), f.Text(TextId::VlanId4095Warning));
                RunWindow(&warning);
                break;
            }
            case VlanCheck::Valid:
                break;
            }
            return value;
        });
    form.SetItems({&id});
    form.SetShowCursor(true);
    return form.Ask();
}

} // namespace Tarn
