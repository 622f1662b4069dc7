// Lockdown mode on or off through the management command tool.
#pragma once

#include "ui/Window.h"

#include <memory>

namespace Tarn {

class CheckItem;
class ItemList;

class LockdownDialog : public Dialog {
public:
    LockdownDialog(Frame* parent, bool lockdownEnabled);
    ~LockdownDialog() override;
    // 1 after Enter (whatever the command's outcome), 0 after Esc.
    int Foreground() override;

    // The lockdown state as this dialog knows it: as built, then as changed by a successful command.
    bool LockdownEnabled() const { return enabled_; }

private:
    void Apply();

    bool enabled_;
    std::unique_ptr<CheckItem> check_;
    ItemList* list_ = nullptr;
};

} // namespace Tarn
