// The keyboard dialog: one radio item per layout the host offers, the configured one marked. Space marks
// the item under the cursor; Enter applies the marked layout, not the one under the cursor.
#include "screens/KeyboardDialog.h"

#include "core/EventLoop.h"
#include "core/Keys.h"
#include "core/Log.h"
#include "platform/HostCtlException.h"
#include "screens/KeyboardLayouts.h"
#include "ui/Item.h"
#include "ui/ItemList.h"
#include "ui/TextIds.h"

namespace Tarn {
namespace {

using HostCtl::Lib::HostCtlException;

constexpr int kWidth = 72;
constexpr int kHeight = 20;
constexpr int kSplitRow = 6;

constexpr const char* kFooter =
    "{color:black}<Up/Down>{/color} {color:dark-grey}Select{/color}  {color:black}<Space>{/color} "
    "{color:dark-grey}Toggle Selected{/color}{align:right}{color:black}<Enter>{/color} "
    "{color:dark-grey}OK{/color}  {color:black}<Esc>{/color} {color:dark-grey}Cancel{/color}{/align}";

} // namespace

KeyboardDialog::KeyboardDialog(Frame* parent) : Dialog(parent, kWidth, kHeight, kSplitRow) {
    SetTitle(Text(TextId::ConfigureKeyboard));
    SetBody(Text(TextId::KeyboardDialogBody));
    SetFooter(kFooter);

    // Only data is read here: a failure leaves an empty list (or nothing marked) rather than no dialog.
    std::string configured;
    try {
        layouts_ = systemInfo_.GetKeyboardLayouts();
        configured = systemInfo_.GetKeyboardLayout();
    } catch (const HostCtlException& e) {
        Log(LOG_ERR, "Getting keyboard layouts failed: %s", e.what());
    }
    marked_ = MarkedLayoutIndex(layouts_, configured);

    std::vector<Item*> pointers;
    for (size_t i = 0; i < layouts_.size(); ++i) {
        items_.push_back(std::make_unique<RadioItem>(layouts_[i], static_cast<int>(i) == marked_));
        pointers.push_back(items_.back().get());
    }
    if (content_ == nullptr)
        return;
    list_ = content_->AddChild<ItemList>(0, 0, content_->Width(), content_->Height());
    list_->SetItems(pointers);
    // Start with the cursor on the configured layout, which may lie below the first page.
    while (list_->FocusIndex() >= 0 && list_->FocusIndex() < marked_ && list_->Down()) {
    }
}

KeyboardDialog::~KeyboardDialog() = default;

int KeyboardDialog::Foreground() {
    for (;;) {
        switch (GetKey(this, true)) {
        case Key::Space:
            MarkFocused();
            break;
        case Key::Up:
            if (list_ != nullptr)
                list_->Up();
            break;
        case Key::Down:
            if (list_ != nullptr)
                list_->Down();
            break;
        case Key::Escape:
            return 0;
        case Key::Enter:
            Apply();
            return 1;
        default:
            break;
        }
    }
}

void KeyboardDialog::MarkFocused() {
    if (list_ == nullptr || list_->FocusIndex() < 0)
        return;
    if (marked_ >= 0)
        items_[static_cast<size_t>(marked_)]->SetChosen(false);
    marked_ = list_->FocusIndex();
    items_[static_cast<size_t>(marked_)]->SetChosen(true);
    list_->Draw();
}

void KeyboardDialog::Apply() {
    const std::optional<std::string> layout = LayoutToApply(layouts_, marked_);
    if (!layout)
        return;
    try {
        systemInfo_.LoadKeyboardMappings(*layout);
        systemInfo_.SetKeyboardLayout(*layout);
        Log(LOG_INFO, "Keyboard Layout changed to %s", layout->c_str());
    } catch (const HostCtlException& e) {
        Log(LOG_ERR, "Changing keyboard layout failed: %s", e.what());
    }
}

} // namespace Tarn
