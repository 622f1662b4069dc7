// What the management network dialogs share: their footers, and the radio rows whose choice enables the
// input rows below them.
#pragma once

#include "network/NetworkDialogRules.h"
#include "ui/FormDialog.h"

#include <vector>

namespace Tarn {

class Item;
class RadioItem;

inline constexpr const char* kRadioFormFooter =
    "{color:black}<Up/Down>{/color} {color:dark-grey}Select{/color}  {color:black}<Space>{/color} "
    "{color:dark-grey}Mark Selected{/color}{align:right}{color:black}<Enter>{/color} "
    "{color:dark-grey}OK{/color}  {color:black}<Esc>{/color} {color:dark-grey}Cancel{/color}{/align}";

// Space on one of `radios` chooses it and enables `inputs` exactly while `enabling` is the chosen one; Space
// elsewhere does nothing. Other keys go to the list.
void UseRadioRows(FormDialog& form, std::vector<RadioItem*> radios, RadioItem* enabling,
                  std::vector<Item*> inputs);

// The catalogue message of a refused row as the form shows it.
FormError ToFormError(const Frame& frame, const FieldError& error);

} // namespace Tarn
