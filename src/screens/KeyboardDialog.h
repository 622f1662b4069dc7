// Chooses the console keyboard layout.
#pragma once

#include "platform/SystemInfo.h"
#include "ui/Window.h"

#include <memory>
#include <string>
#include <vector>

namespace Tarn {

class ItemList;
class RadioItem;

class KeyboardDialog : public Dialog {
public:
    explicit KeyboardDialog(Frame* parent);
    ~KeyboardDialog() override;
    // 1 after Enter, 0 after Esc.
    int Foreground() override;

    // Index of the marked layout, -1 when none is.
    int Marked() const { return marked_; }

private:
    void MarkFocused();
    void Apply();

    TesCtl::System::SystemInfoImpl systemInfo_;
    std::vector<std::string> layouts_;
    std::vector<std::unique_ptr<RadioItem>> items_;
    int marked_ = -1;
    ItemList* list_ = nullptr;
};

} // namespace Tarn
