// A window of one-line items with a focus bar (white on black) and a scroll bar in the last column. The
// screen owns the items; OnKey handles the keys every list shares (movement, Space on check boxes and radio
// groups, editing of the focused field). Focus moves repaint only the rows that change.
#pragma once

#include "ui/ListNavigation.h"
#include "ui/Window.h"

#include <vector>

namespace Tarn {

class Item;
class TextArea;

class ItemList : public Window {
public:
    // Colours are the parent's.
    ItemList(Window* parent, int column, int row, int width, int height);

    // Copies the pointers; top row 0, focus on the first selectable enabled item. Does not draw.
    void SetItems(std::vector<Item*> items);
    // Move the focus (no wrap-around) and repaint what changed; false when the focus stayed.
    bool Up();
    bool Down();
    // Up/Down move the focus; Space toggles a check box or chooses a radio item (clearing the others of its
    // group); other keys go to the focused item (an input field edits, through its filter). Redraws what
    // changed; false when the key means nothing to the list, so that the dialog may use it.
    bool OnKey(int key);
    // Steps the focus to item `index` (it must be able to take the focus) and repaints what changed.
    void FocusItem(int index);
    // Index in Items() of the chosen radio item of `group`, -1 when none is chosen.
    int ChosenIndex(int group = 0) const;

    void Draw(bool active) override;
    void Draw() { Draw(true); }

    // The focused item's index among the selectable items.
    int Selection() const { return navigation_.Ordinal(); }
    // Index in Items() of the focused item, -1 when no item can take the focus.
    int FocusIndex() const { return navigation_.FocusIndex(); }
    Item* FocusedItem() const;
    int TopIndex() const { return navigation_.TopIndex(); }
    int Rows() const { return navigation_.Rows(); }
    const std::vector<Item*>& Items() const { return items_; }

private:
    std::vector<ListEntry> Entries() const;
    bool Move(bool up);
    void DrawRow(int row);
    void DrawScrollBar();

    Window* listPane_;
    Window* scrollPane_;
    std::vector<Item*> items_;
    std::vector<Window*> rowWindows_;
    std::vector<TextArea*> rowTexts_;
    ListNavigation navigation_;
};

} // namespace Tarn
