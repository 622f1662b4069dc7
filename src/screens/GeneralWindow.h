// The System Customization menu: tasks on the left, the selected task's description and state on the right.
#pragma once

#include "screens/MenuModel.h"
#include "screens/MenuPanes.h"
#include "ui/Window.h"

#include <memory>
#include <string>
#include <vector>

namespace Tarn {

class ItemList;
class LabelItem;

class GeneralWindow : public RootWindow {
public:
    explicit GeneralWindow(Frame* parent);
    ~GeneralWindow() override;
    // Returns when the operator logs out with Esc; Tarn::TarnTimeout passes through.
    int Foreground() override;

private:
    // Host facts behind the enabling rules and the panes.
    void ReadLockdown();
    void ReadManagement();
    void ReadHostFacts();
    void LoadSupportInformation();

    void ApplyEnabling();
    unsigned SelectedId() const;
    // Composes the pane of the selected entry; DrawPane also puts it on the screen.
    void ComposePane();
    void DrawPane();
    void StatLogs();

    void Move(bool up);
    void PageSupport(bool down);
    void ViewLog(int digit);
    void Open(unsigned id);
    void RestartManagementNetwork();
    size_t SupportPageRows() const;

    MenuFlags flags_;
    MenuPaneFacts facts_;
    std::vector<MenuEntry> entries_;
    std::vector<std::unique_ptr<LabelItem>> items_;
    ItemList* list_ = nullptr; // owned by the list pane
    std::vector<std::string> support_;
    size_t supportFirst_ = 0;
    std::vector<int> logNumbers_;
};

} // namespace Tarn
