// One-line entries of an ItemList: the Item base (focus, enabled, colours without focus), text labels,
// check boxes and radio buttons. The screen owns its items; the list only points at them.
#pragma once

#include "core/Colors.h"

#include <string>
#include <utility>

namespace Tarn {

class TextArea;

class Item {
public:
    explicit Item(bool selectable) : selectable_(selectable) {}
    virtual void FocusChanged() {}
    virtual ~Item() = default;
    // Puts the item's line into the row's text area (the list draws the area afterwards).
    virtual void Render(TextArea& row) = 0;
    virtual void SetFocus(bool focused);
    // A key for the focused item; true when the item used it (the list then redraws).
    virtual bool OnKey(int key);

    bool Selectable() const { return selectable_; }
    bool Focused() const { return focused_; }
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled) { enabled_ = enabled; }
    // Colours of the row while the item does not have the focus (amber background, black text by default).
    int Background() const { return background_; }
    int Foreground() const { return foreground_; }
    void SetColors(int background, int foreground) {
        background_ = background;
        foreground_ = foreground;
    }

protected:
    bool selectable_;
    bool focused_ = false;
    bool enabled_ = true;
    int background_ = Color::ContentBackground;
    int foreground_ = Color::ItemText;
};

class LabelItem : public Item {
public:
    LabelItem(std::string text, bool selectable) : Item(selectable), text_(std::move(text)) {}
    void Render(TextArea& row) override;

    const std::string& Text() const { return text_; }
    void SetText(std::string text) { text_ = std::move(text); }

protected:
    std::string text_;
};

// "[X] label" or "[ ] label", after `indent` blanks.
class CheckItem : public LabelItem {
public:
    CheckItem(std::string label, bool checked, int indent = 0);

    bool Checked() const { return checked_; }
    void SetChecked(bool checked);
    const std::string& Label() const { return label_; }
    // Space toggles the box.
    bool OnKey(int key) override;

private:
    void Compose();

    std::string label_;
    bool checked_;
    int indent_;
};

// "(o) label" or "( ) label". Radio items of one group in a list are chosen one at a time: Space on one
// (ItemList::OnKey) clears the others of its group.
class RadioItem : public LabelItem {
public:
    RadioItem(std::string label, bool chosen, int group = 0);

    bool Chosen() const { return chosen_; }
    void SetChosen(bool chosen);
    const std::string& Label() const { return label_; }
    int Group() const { return group_; }

private:
    void Compose();

    std::string label_;
    bool chosen_;
    int group_;
};

} // namespace Tarn
