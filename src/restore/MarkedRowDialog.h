// The shape Create Standard Switch and Create Port Group share: a name field above a column header and one
// row per candidate, exactly one row marked (Space), D or d for the details of the row under the cursor.
// On the name field D, d and Space are characters of the name. Enter hands the name and the marked row to
// the caller, which acts and says whether the dialog is done.
#pragma once

#include "ui/DialogSize.h"

#include <functional>
#include <string>
#include <vector>

namespace Tarn {

class Frame;

struct MarkedRowForm {
    std::string title;
    std::string body;
    std::string nameLabel;
    std::string header; // above the rows
    std::string noRows; // in place of the rows when there is none
    std::vector<std::string> rows;
    std::function<void(Frame& dialog, int row)> showDetails;
    // Enter: the name as typed and the marked row (-1 when there is no row). True closes the dialog.
    std::function<bool(Frame& dialog, const std::string& name, int marked)> accept;
};

// True when `accept` closed the dialog, false after Esc. The first row starts marked.
bool RunMarkedRowForm(Frame* parent, const MarkedRowForm& form);

// A message of a fixed size over `parent` with a catalogue title, until Enter.
void ShowMessage(Frame& parent, DialogSize size, unsigned titleId, const std::string& text);

} // namespace Tarn
