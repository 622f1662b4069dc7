// The keys an item list handles itself, so that dialogs declare items instead of forwarding keys.
#include "core/Keys.h"
#include "ui/Item.h"
#include "ui/ItemList.h"

namespace Tarn {

bool ItemList::OnKey(int key) {
    if (key == Key::Up) {
        Up();
        return true;
    }
    if (key == Key::Down) {
        Down();
        return true;
    }
    Item* focused = FocusedItem();
    if (focused == nullptr)
        return false;
    if (auto* radio = dynamic_cast<RadioItem*>(focused); radio != nullptr) {
        if (key != Key::Space)
            return false;
        for (Item* item : items_) {
            auto* other = dynamic_cast<RadioItem*>(item);
            if (other != nullptr && other != radio && other->Group() == radio->Group() && other->Chosen())
                other->SetChosen(false);
        }
        radio->SetChosen(true);
        Draw();
        return true;
    }
    if (!focused->OnKey(key))
        return false;
    Draw();
    return true;
}

void ItemList::FocusItem(int index) {
    while (FocusIndex() > index && Up()) {
    }
    while (FocusIndex() >= 0 && FocusIndex() < index && Down()) {
    }
}

int ItemList::ChosenIndex(int group) const {
    for (size_t i = 0; i < items_.size(); ++i) {
        auto* radio = dynamic_cast<const RadioItem*>(items_[i]);
        if (radio != nullptr && radio->Group() == group && radio->Chosen())
            return static_cast<int>(i);
    }
    return -1;
}

} // namespace Tarn
