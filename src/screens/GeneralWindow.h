// The System Customization menu: tasks on the left, the selected task's description and state on the right.
// The entries, panes and tasks come from the menu table (MenuTable.h); this window gathers the host facts
// behind them and handles the keys of the log list and the support pages.
#pragma once

#include "screens/MenuModel.h"
#include "screens/MenuPanes.h"
#include "ui/ListSummaryWindow.h"

#include <string>
#include <vector>

namespace Tarn {

class GeneralWindow : public ListSummaryWindow {
public:
    explicit GeneralWindow(Frame* parent);
    ~GeneralWindow() override;

protected:
    SummaryPane Pane(int index) override;
    bool Open(int index) override;
    void Reload() override;
    void OnOtherKey(int index, int key) override;
    void Leaving(int index) override;

private:
    // Host facts behind the enabling rules and the panes.
    void ReadLockdown();
    void ReadManagement();
    void ReadHostFacts();
    void LoadSupportInformation();

    unsigned IdAt(int index) const;
    void StatLogs();
    void PageSupport(bool down);
    void ViewLog(int digit);
    // The support lines as they page in the body area.
    SupportPaging Paging() const;

    MenuFlags flags_;
    MenuPaneFacts facts_;
    std::vector<MenuEntry> entries_;
    std::vector<std::string> support_;
    size_t supportFirst_ = 0;
    std::vector<int> logNumbers_;
    bool rereadLockdown_ = false; // the task that ran last can change the lockdown state
};

} // namespace Tarn
