// Shut down or restart the host, optionally forcing running virtual machines off.
#pragma once

#include "ui/Window.h"

#include <memory>

namespace Tarn {

class CheckItem;
class ItemList;
struct PowerAction;

class ShutdownDialog : public Dialog {
public:
    explicit ShutdownDialog(Frame* parent);
    ~ShutdownDialog() override;
    // 0 after Esc; does not return while the host goes down.
    int Foreground() override;

private:
    // Logs and reports the action before its confirm dialog runs.
    static void Announce(const PowerAction& action);
    // Virtual machines are left to the shutdown policy unless the check item asks to force them off.
    bool SoftStop() const;

    std::unique_ptr<CheckItem> terminate_;
    ItemList* list_ = nullptr;
};

} // namespace Tarn
