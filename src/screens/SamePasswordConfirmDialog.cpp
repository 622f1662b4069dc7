// The same-password question: Enter confirms, Esc goes back to the password dialog.
#include "screens/SamePasswordConfirmDialog.h"

#include "screens/PasswordModel.h"
#include "ui/ConfirmDialog.h"
#include "ui/StringFactory.h"
#include "ui/TextIds.h"

namespace Tarn {

bool ConfirmSamePassword(Frame* parent) {
    const StringFactory& strings = *StringFactory::Get("en_US");
    ConfirmDialog dialog(parent, {strings.GetString(TextId::ConfigurePasswordWarning),
                                  strings.GetString(TextId::SamePasswordQuestion), "", kSamePasswordFooter,
                                  kEnterCancelKeys});
    return dialog.Ask() == Answer::Yes;
}

} // namespace Tarn
