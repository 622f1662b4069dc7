// The pure model behind ItemList: which item has the focus, which item is the first visible row, and the
// focused item's ordinal among the selectable items. Knows nothing of curses or of item classes.
#pragma once

#include <vector>

namespace Tarn {

struct ListEntry {
    bool selectable = true; // counts in the ordinal and can be reached
    bool enabled = true;    // only enabled selectable entries take the focus
};

class ListNavigation {
public:
    explicit ListNavigation(int rows) : rows_(rows < 0 ? 0 : rows) {}

    // Top row 0 and the focus on the first selectable enabled entry (none: focus index -1).
    void Reset(const std::vector<ListEntry>& entries);
    // Move the focus to the previous / next selectable enabled entry; false when there is none (no wrap).
    bool Up(const std::vector<ListEntry>& entries);
    bool Down(const std::vector<ListEntry>& entries);

    int Rows() const { return rows_; }
    int FocusIndex() const { return focus_; }
    int TopIndex() const { return top_; }
    // The visible row of the focused entry; -1 when there is none or it is not in view (a list without rows).
    int FocusRow() const {
        const int row = focus_ - top_;
        return focus_ >= 0 && row >= 0 && row < rows_ ? row : -1;
    }
    int Ordinal() const { return ordinal_; }

    // Whether `count` entries need a scroll bar, and the row of its thumb.
    bool NeedsScrollBar(int count) const { return count > rows_; }
    int ScrollThumbRow(int count) const;

private:
    int rows_;
    int focus_ = -1;
    int top_ = 0;
    int ordinal_ = 0;
};

} // namespace Tarn
