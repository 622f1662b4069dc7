// A window of one-line items with a focus bar (white on black) and a scroll bar in the last column. The
// screen owns the items and handles keys; it calls Up/Down and reads the selection. Focus moves repaint only
// the rows that change.
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
