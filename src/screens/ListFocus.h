// Moving an item list's focus straight to one item, for the forms whose keys jump between fields.
#pragma once

#include "ui/ItemList.h"

namespace Tarn {

// Steps the focus to item `index` (every item of these forms can take it) and repaints what changed.
inline void FocusListItem(ItemList& list, int index) {
    while (list.FocusIndex() > index && list.Up()) {
    }
    while (list.FocusIndex() < index && list.Down()) {
    }
}

} // namespace Tarn
