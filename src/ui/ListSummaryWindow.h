// The list-and-summary window: a full-screen list of entries on the left, the summary of the entry under
// the cursor on the right (title, body, key hints). One key loop: Up/Down move and redraw the summary, Enter
// opens the entry, Esc leaves. A screen supplies the entries and says what each shows and opens.
#pragma once

#include "ui/Window.h"

#include <memory>
#include <string>
#include <vector>

namespace Tarn {

class ItemList;
class LabelItem;

struct SummaryPane {
    std::string title;
    std::string body;
    std::string footer;
};

struct SummaryEntry {
    std::string label;
    bool selectable = true; // false: a blank separator line
    bool enabled = true;    // false: listed in dark grey and passed over by the cursor
};

// The hint on the list's last row of a window that has a heading.
inline constexpr const char* kListSelectHint =
    "{color:black}<Up/Down>{/color} {color:dark-grey}Select{/color}";

// Cells of the longest of the catalogue texts `ids`: a window's widest entry name.
int WidestText(const Frame& frame, const std::vector<unsigned>& ids);

class ListSummaryWindow : public RootWindow {
public:
    // `widestLabel`: cells of the longest entry name the window will list (WidestText), which the list pane
    // widens to show whole.
    ListSummaryWindow(Frame* parent, int widestLabel);
    // With `heading` above the list and kListSelectHint on the list's last row: the summary's footer then
    // keeps its width for the entry's own Enter and Esc hints.
    ListSummaryWindow(Frame* parent, const std::string& heading, int widestLabel = 0);
    ~ListSummaryWindow() override;

    // Returns 0 when the operator leaves with Esc; TarnTimeout passes through.
    int Foreground() override;
    // While an entry's task runs: the window repaints once when it returns.
    bool TakesRepaint() override;

protected:
    // Builds the list (the focus on the first entry that can be chosen) and composes its summary.
    void SetEntries(const std::vector<SummaryEntry>& entries);
    // New enabled states after the host changed, one per entry; does not draw.
    void SetEnabled(const std::vector<bool>& enabled);
    // Index of the entry under the cursor, -1 when no entry can be chosen.
    int Selected() const;
    // Fills the summary of the selected entry; DrawPane also puts it on the screen.
    void ComposePane();
    void DrawPane();
    ItemList* List() const { return list_; }

    // The summary of entry `index` (-1: nothing selected).
    virtual SummaryPane Pane(int index) = 0;
    // Enter on entry `index`: true when a task ran, which may have changed the host; the window then calls
    // Reload and repaints, once: the task's dialogs leave the repaint to it.
    virtual bool Open(int index) = 0;
    // Reads again what the entries and summaries show (SetEnabled for the entries).
    // Not named Refresh: that is the frame's screen refresh, which closing a dialog over the window calls.
    virtual void Reload() {}
    // A key the loop has no use for, on entry `index`.
    virtual void OnOtherKey(int index, int key) {
        (void)index;
        (void)key;
    }
    // The cursor left entry `index`.
    virtual void Leaving(int index) { (void)index; }

private:
    void Move(bool up);
    void RunTask(int index);

    bool inTask_ = false;
    bool repaintOwed_ = false; // a dialog of the running task closed
    std::vector<std::unique_ptr<LabelItem>> items_;
    ItemList* list_ = nullptr; // owned by the list pane
};

} // namespace Tarn
