// The System Customization menu as one table: per entry its catalogue id, when it is listed and can be
// chosen, its summary pane (body and key hints) and what Enter opens. Adding an entry is adding a row.
#pragma once

#include "screens/MenuModel.h"
#include "screens/MenuPanes.h"

#include <string>
#include <vector>

namespace Tarn {

class Frame;
class StringFactory;

// What an entry's task gets: the menu to put its dialogs on, and the facts it may change.
struct MenuContext {
    Frame& window;
    const MenuFlags& flags;
    MenuPaneFacts& facts;
};

struct MenuRow {
    unsigned id; // catalogue id of the label; TextId::Blank is a separator line
    // Null: always listed / can always be chosen (a separator never can).
    bool (*listed)(const MenuFlags&);
    bool (*enabled)(const MenuFlags&);
    // The pane body; null: the catalogue text `help`.
    std::string (*body)(const StringFactory&, const MenuPaneFacts&);
    unsigned help;
    const char* footer; // key hints left of "<Esc> Log Out"; null: none
    // The entry's task; null: Enter does nothing. The menu reads the host again after it.
    void (*open)(MenuContext&);
    // The task can change the lockdown state: the menu asks the management command tool again after it
    // (the tool runs as a child process; every other fact is read from the host directly).
    bool changesLockdown;
};

const std::vector<MenuRow>& MenuTable();

// The row of entry `id`, null for none.
const MenuRow* FindMenuRow(unsigned id);

// The tasks behind the entries (MenuActions.cpp).
void OpenPasswordChange(MenuContext& context);
void OpenLockdown(MenuContext& context);
void OpenNetworkWindow(MenuContext& context);
void OpenRestartManagementNetwork(MenuContext& context);
void OpenTestManagementNetwork(MenuContext& context);
void OpenNetworkRestoreOptions(MenuContext& context);
void OpenKeyboard(MenuContext& context);
// TroubleShootingWindow.cpp, RestoreDialog.cpp.
void OpenTroubleshooting(MenuContext& context);
void OpenSystemReset(MenuContext& context);

} // namespace Tarn
