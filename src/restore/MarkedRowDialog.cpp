// The name-and-marked-row dialog on the form kit.
#include "restore/MarkedRowDialog.h"

#include "core/EventLoop.h"
#include "core/Keys.h"
#include "ui/FormDialog.h"
#include "ui/InputItem.h"
#include "ui/Item.h"
#include "ui/ItemList.h"
#include "ui/Markup.h"
#include "ui/RunWindow.h"
#include "ui/StandardDialogs.h"

#include <algorithm>
#include <memory>

namespace Tarn {
namespace {

// Two blanks before "<Space>" and before "<Esc>".
constexpr const char* kMarkFooter =
    "{color:black}<D>{/color} {color:dark-grey}View Details{/color}  {color:black}<Space>{/color} "
    "{color:dark-grey}Toggle Selected{/color}{align:right}{color:black}<Enter>{/color} "
    "{color:dark-grey}OK{/color}  {color:black}<Esc>{/color} {color:dark-grey}Cancel{/color}{/align}";
constexpr int kFirstRow = 2; // below the name field and the header
constexpr int kWidth = 80;
// Columns of the dialog outside a row's text: borders, the content pane's margins, the scroll bar.
constexpr int kRowMargins = 7;

// At least 80 columns, more when the header's columns need them (the screen may still cut it).
int WidthFor(const std::string& header) {
    const std::vector<Markup::Line> lines = Markup::Layout(header, 1 << 10, 1);
    const int cells = lines.empty() ? 0 : Markup::VisibleLength(Markup::PlainText(lines.front()));
    return std::max(kWidth, cells + kRowMargins);
}

} // namespace

bool RunMarkedRowForm(Frame* parent, const MarkedRowForm& definition) {
    InputItem name(definition.nameLabel, "", -1, FieldFilter::Text);
    LabelItem header(definition.header, false);
    LabelItem none(definition.noRows, false);
    std::vector<std::unique_ptr<RadioItem>> rows;
    std::vector<Item*> items = {&name, &header};
    for (size_t i = 0; i < definition.rows.size(); ++i) {
        rows.push_back(std::make_unique<RadioItem>(definition.rows[i], i == 0));
        items.push_back(rows.back().get());
    }
    if (rows.empty())
        items.push_back(&none);

    FormDialog form(parent, {WidthFor(definition.header), 20, 6}, definition.title, definition.body,
                    kMarkFooter);
    form.SetItems(items);
    form.SetShowCursor(true);
    bool done = false;
    form.SetKeyHook([&](int key) {
        const int row = form.List()->FocusIndex() - kFirstRow;
        if ((key == 'D' || key == 'd') && row >= 0 && row < static_cast<int>(rows.size())) {
            definition.showDetails(form, row);
            return FormKey::Used;
        }
        if (key != Key::Enter)
            return FormKey::Unused; // Space marks a row through the list, or is a character of the name
        int marked = -1;
        for (size_t i = 0; i < rows.size(); ++i)
            if (rows[i]->Chosen())
                marked = static_cast<int>(i);
        done = definition.accept(form, name.Value(), marked);
        return done ? FormKey::Cancel : FormKey::Used;
    });
    form.Run();
    return done;
}

void ShowMessage(Frame& parent, DialogSize size, unsigned titleId, const std::string& text) {
    MessageDialog message(&parent, size, titleId, text);
    RunWindow(&message);
}

} // namespace Tarn
