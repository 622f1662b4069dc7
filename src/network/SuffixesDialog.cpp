// The suffixes dialog: nothing to check, the window splits the text when it applies it.
#include "network/SuffixesDialog.h"

#include "network/NetworkForms.h"
#include "ui/InputItem.h"
#include "ui/TextIds.h"

namespace Tarn {

std::optional<std::string> SuffixesDialog::Ask() {
    const Frame& f = *parent_;
    InputItem suffixes(f.Text(TextId::Suffixes), suffixes_, 40, FieldFilter::Text);
    Form<std::string> form(parent_, {72, 14, 9}, f.Text(TextId::CustomDnsSuffixes),
                           f.Text(TextId::DnsSuffixesDialogBody), kOkCancelFooter,
                           [&]() -> std::variant<std::string, FormError> { return suffixes.Value(); });
    form.SetItems({&suffixes});
    form.SetShowCursor(true);
    return form.Ask();
}

} // namespace Tarn
