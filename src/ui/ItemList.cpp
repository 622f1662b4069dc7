// Drawing of an item list: rows in the items' own colours, the focused row white on black and rendered last
// (an input item places the terminal cursor while rendering), and the scroll bar.
#include "ui/ItemList.h"

#include "core/Colors.h"
#include "core/EventLoop.h"
#include "ui/Item.h"
#include "ui/ScreenUpdate.h"
#include "ui/TextArea.h"

#include <curses.h>
#include <utility>

namespace Tarn {

ItemList::ItemList(Window* parent, int column, int row, int width, int height)
    : Window(parent, column, row, width, height, -1, -1), navigation_(height) {
    listPane_ = new Window(this, 0, 0, width - 1, height, -1, -1);
    scrollPane_ = new Window(this, width - 1, 0, 1, height, -1, -1);
    for (int r = 0; r < height; ++r) {
        Window* rowWindow = new Window(listPane_, 0, r, width - 1, 1, -1, -1);
        rowWindows_.push_back(rowWindow);
        rowTexts_.push_back(new TextArea(rowWindow, 1, 0, width - 3, 1, -1, -1));
    }
}

void ItemList::SetItems(std::vector<Item*> items) {
    items_ = std::move(items);
    navigation_.Reset(Entries());
}

std::vector<ListEntry> ItemList::Entries() const {
    std::vector<ListEntry> entries;
    entries.reserve(items_.size());
    for (const Item* item : items_)
        entries.push_back({item->Selectable(), item->Enabled()});
    return entries;
}

Item* ItemList::FocusedItem() const {
    int index = navigation_.FocusIndex();
    return index < 0 ? nullptr : items_[static_cast<size_t>(index)];
}

bool ItemList::Up() {
    return Move(true);
}
bool ItemList::Down() {
    return Move(false);
}

bool ItemList::Move(bool up) {
    const int oldRow = navigation_.FocusRow();
    const int oldTop = navigation_.TopIndex();
    Item* oldItem = FocusedItem();
    const std::vector<ListEntry> entries = Entries();
    if (!(up ? navigation_.Up(entries) : navigation_.Down(entries)))
        return false;
    // The old item may scroll out of view, where no row would tell it that it lost the focus.
    if (oldItem != nullptr)
        oldItem->SetFocus(false);
    FocusedItem()->SetFocus(true);
    if (!active_)
        return true; // a dimmed list is drawn in full when it becomes active again
    if (navigation_.TopIndex() != oldTop) {
        Draw(true);
        return true;
    }
    ScreenUpdate update;
    DrawRow(oldRow);
    DrawRow(navigation_.FocusRow());
    return true;
}

void ItemList::Draw(bool active) {
    if (!active) {
        Window::Draw(false);
        return;
    }
    ScreenUpdate update;
    active_ = true;
    if (win_ != nullptr)
        wbkgdset(win_, static_cast<chtype>(ColorAttr(background_, foreground_)) | ' ');
    listPane_->SetColors(background_, foreground_);
    if (listPane_->Curses() != nullptr)
        werase(listPane_->Curses());
    const int focusRow = navigation_.FocusRow();
    for (int r = 0; r < navigation_.Rows(); ++r) {
        if (r != focusRow)
            DrawRow(r);
    }
    DrawScrollBar();
    if (focusRow >= 0)
        DrawRow(focusRow);
    ScreenUpdate::Stage(win_);
}

void ItemList::DrawRow(int row) {
    if (row < 0 || row >= static_cast<int>(rowWindows_.size()))
        return; // not in view: a list squeezed to no rows has nothing to draw
    Window* rowWindow = rowWindows_[static_cast<size_t>(row)];
    TextArea* text = rowTexts_[static_cast<size_t>(row)];
    const size_t index = static_cast<size_t>(navigation_.TopIndex() + row);
    if (index >= items_.size()) {
        // Rows below the last item stay empty, also when a dimmed redraw walks the row text areas.
        rowWindow->SetColors(background_, foreground_);
        text->SetText("");
        text->Draw(true);
        return;
    }
    Item* item = items_[index];
    const bool focused = row == navigation_.FocusRow();
    item->SetFocus(focused);
    if (focused)
        rowWindow->SetColors(Color::FocusBackground, Color::FocusText);
    else
        rowWindow->SetColors(item->Background(), item->Foreground());
    if (rowWindow->Curses() != nullptr)
        werase(rowWindow->Curses());
    item->Render(*text);
    text->Draw(true);
    ScreenUpdate::Stage(rowWindow->Curses());
}

void ItemList::DrawScrollBar() {
    WINDOW* pane = scrollPane_->Curses();
    scrollPane_->SetColors(background_, foreground_);
    if (pane == nullptr)
        return;
    werase(pane);
    const int count = static_cast<int>(items_.size());
    if (navigation_.NeedsScrollBar(count)) {
        for (int r = 0; r < navigation_.Rows(); ++r)
            mvwaddstr(pane, r, 0, "\u2593");
        mvwaddstr(pane, navigation_.ScrollThumbRow(count), 0, "\u2588");
    }
    ScreenUpdate::Stage(pane);
}

} // namespace Tarn
