// Asks for the console's idle time-out in minutes; ChangeTarnTimeout reads it, asks, and applies a change
// at once.
#pragma once

#include "ui/FormDialog.h"
#include "ui/InputItem.h"

#include <string>

namespace Tarn {

class TarnTimeoutDialog : public Form<std::string> {
public:
    // 70 x 15; the input shows `seconds` in whole minutes and holds at most five digits.
    TarnTimeoutDialog(Frame* parent, long seconds);

private:
    InputItem minutes_;
};

void ChangeTarnTimeout(Frame& parent);

} // namespace Tarn
