// Shared behaviour of the management network forms.
#include "network/NetworkForms.h"

#include "core/Keys.h"
#include "ui/Item.h"
#include "ui/ItemList.h"

#include <algorithm>

namespace Tarn {

namespace {

void EnableInputs(RadioItem* enabling, const std::vector<Item*>& inputs) {
    for (Item* input : inputs)
        input->SetEnabled(enabling->Chosen());
}

} // namespace

void UseRadioRows(FormDialog& form, std::vector<RadioItem*> radios, RadioItem* enabling,
                  std::vector<Item*> inputs) {
    EnableInputs(enabling, inputs);
    form.SetKeyHook([&form, radios, enabling, inputs](int key) {
        if (key != Key::Space)
            return FormKey::Unused;
        ItemList* list = form.List();
        if (list == nullptr)
            return FormKey::Used;
        Item* focused = list->FocusedItem();
        if (std::find(radios.begin(), radios.end(), focused) == radios.end())
            return FormKey::Used; // Space in an address row is not an address character
        list->OnKey(key);
        EnableInputs(enabling, inputs);
        list->Draw();
        return FormKey::Used;
    });
}

FormError ToFormError(const Frame& frame, const FieldError& error) {
    return {error.row, frame.Text(error.title), frame.Text(error.text)};
}

} // namespace Tarn
