// The list-and-summary window's entries, summary drawing and key loop.
#include "ui/ListSummaryWindow.h"

#include "core/Colors.h"
#include "core/EventLoop.h"
#include "core/Keys.h"
#include "ui/Item.h"
#include "ui/ItemList.h"
#include "ui/Markup.h"
#include "ui/ScreenUpdate.h"
#include "ui/TextArea.h"

#include <algorithm>

namespace Tarn {

int WidestText(const Frame& frame, const std::vector<unsigned>& ids) {
    int widest = 0;
    for (unsigned id : ids)
        widest = std::max(widest, Markup::VisibleLength(frame.Text(id)));
    return widest;
}

ListSummaryWindow::ListSummaryWindow(Frame* parent, int widestLabel)
    : ListSummaryWindow(parent, "", widestLabel) {}

ListSummaryWindow::ListSummaryWindow(Frame* parent, const std::string& heading, int widestLabel)
    : RootWindow(parent, std::max(widestLabel, Markup::VisibleLength(heading))) {
    Window* pane = ListPane();
    // The hint gets a row of its own, so that redrawing the list never paints over it.
    const int hintRows = heading.empty() || pane->Height() < 2 ? 0 : 1;
    list_ = pane->AddChild<ItemList>(0, 0, pane->Width(), pane->Height() - hintRows);
    if (hintRows != 0)
        pane->AddChild<TextArea>(0, pane->Height() - 1, pane->Width(), 1, Color::ItemText,
                                 Color::ContentBackground)
            ->SetText(kListSelectHint);
    SetHeading(heading);
}

ListSummaryWindow::~ListSummaryWindow() = default;

void ListSummaryWindow::SetEntries(const std::vector<SummaryEntry>& entries) {
    items_.clear();
    std::vector<Item*> pointers;
    std::vector<bool> enabled;
    for (const SummaryEntry& entry : entries) {
        items_.push_back(std::make_unique<LabelItem>(entry.label, entry.selectable));
        pointers.push_back(items_.back().get());
        enabled.push_back(entry.enabled);
    }
    SetEnabled(enabled);
    list_->SetItems(pointers);
    ComposePane();
}

void ListSummaryWindow::SetEnabled(const std::vector<bool>& enabled) {
    for (size_t i = 0; i < items_.size() && i < enabled.size(); ++i) {
        LabelItem& item = *items_[i];
        item.SetEnabled(enabled[i]);
        // A blank separator keeps the plain colours; an entry that cannot be chosen is greyed.
        const bool greyed = !enabled[i] && item.Selectable();
        item.SetColors(Color::ContentBackground, greyed ? Color::DisabledItemText : Color::ItemText);
    }
}

int ListSummaryWindow::Selected() const {
    return list_->FocusIndex();
}

void ListSummaryWindow::ComposePane() {
    SummaryPane pane = Pane(Selected());
    SetTitle(pane.title);
    // A title that wraps takes the row between it and the body: the body starts a row lower.
    const bool titleWraps = Markup::Layout(pane.title, TitleArea()->Width(), 2).size() > 1;
    SetBody(titleWraps ? "\n" + pane.body : pane.body);
    SetFooter(pane.footer);
}

void ListSummaryWindow::DrawPane() {
    ComposePane();
    // Only the three text areas: the terminal gets the cells whose text changed, not the whole pane.
    ScreenUpdate update;
    TitleArea()->Draw(true);
    BodyArea()->Draw(true);
    FooterArea()->Draw(true);
}

void ListSummaryWindow::Move(bool up) {
    const int before = Selected();
    ScreenUpdate update; // the list rows and the summary reach the terminal in one write
    if (!(up ? list_->Up() : list_->Down()))
        return;
    Leaving(before);
    DrawPane();
}

bool ListSummaryWindow::TakesRepaint() {
    repaintOwed_ = repaintOwed_ || inTask_;
    return inTask_;
}

void ListSummaryWindow::RunTask(int index) {
    // The flag goes down however the task ends (the idle time-out passes through as an exception).
    struct TaskScope {
        bool& inTask;
        ~TaskScope() { inTask = false; }
    };
    inTask_ = true;
    repaintOwed_ = false;
    bool ran;
    {
        TaskScope scope{inTask_};
        ran = Open(index);
    }
    if (ran)
        Reload(); // what the task may have changed
    else if (!repaintOwed_)
        return; // nothing ran and nothing covered the window
    // One update: what a closed dialog covered and what the task changed, in their final look.
    ScreenUpdate update;
    ComposePane();
    Draw(true);
    Refresh();
}

int ListSummaryWindow::Foreground() {
    for (;;) {
        const int key = GetKey(this, true);
        const int index = Selected();
        if (key == Key::Escape)
            return 0;
        if (key == Key::Up || key == Key::Down) {
            Move(key == Key::Up);
        } else if (key == Key::Enter) {
            if (index >= 0)
                RunTask(index);
        } else {
            OnOtherKey(index, key);
        }
    }
}

} // namespace Tarn
