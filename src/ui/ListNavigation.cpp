// Focus movement over list entries: headings (not selectable) are skipped and not counted; selectable but
// disabled entries are skipped but counted, so that ordinals stay stable whatever is enabled.
#include "ui/ListNavigation.h"

namespace Tarn {

void ListNavigation::Reset(const std::vector<ListEntry>& entries) {
    top_ = 0;
    focus_ = -1;
    ordinal_ = 0;
    int selectableBefore = 0;
    for (int i = 0; i < static_cast<int>(entries.size()); ++i) {
        if (!entries[i].selectable)
            continue;
        if (entries[i].enabled) {
            focus_ = i;
            ordinal_ = selectableBefore;
            break;
        }
        ++selectableBefore;
    }
    // A long block of headings must not leave the focus below the visible rows.
    if (focus_ >= rows_ && rows_ > 0)
        top_ = focus_ - rows_ + 1;
}

bool ListNavigation::Up(const std::vector<ListEntry>& entries) {
    if (focus_ < 0)
        return false;
    int ordinal = ordinal_;
    for (int i = focus_ - 1; i >= 0; --i) {
        if (!entries[i].selectable)
            continue;
        --ordinal;
        if (!entries[i].enabled)
            continue;
        focus_ = i;
        ordinal_ = ordinal;
        if (focus_ < top_)
            top_ = focus_;
        return true;
    }
    return false;
}

bool ListNavigation::Down(const std::vector<ListEntry>& entries) {
    if (focus_ < 0)
        return false;
    int ordinal = ordinal_;
    for (int i = focus_ + 1; i < static_cast<int>(entries.size()); ++i) {
        if (!entries[i].selectable)
            continue;
        ++ordinal;
        if (!entries[i].enabled)
            continue;
        focus_ = i;
        ordinal_ = ordinal;
        if (focus_ >= top_ + rows_)
            top_ = focus_ - rows_ + 1;
        return true;
    }
    return false;
}

int ListNavigation::ScrollThumbRow(int count) const {
    if (!NeedsScrollBar(count))
        return -1;
    int percent = top_ * 100 / (count - rows_);
    return (rows_ - 1) * percent / 100;
}

} // namespace Tarn
