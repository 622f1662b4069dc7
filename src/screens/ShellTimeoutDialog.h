// Asks for the Corla Shell's availability and idle time-outs in minutes; ChangeShellTimeouts reads them
// from the host, asks, and writes what changed.
#pragma once

#include "ui/FormDialog.h"
#include "ui/InputItem.h"

#include <string>

namespace Tarn {

// The two inputs as typed (digits only; empty leaves an option as it is).
struct ShellTimeoutInput {
    std::string availability;
    std::string idle;
};

class ShellTimeoutDialog : public Form<ShellTimeoutInput> {
public:
    ShellTimeoutDialog(Frame* parent, long availabilityMinutes, long idleMinutes);

private:
    InputItem availability_;
    InputItem idle_;
};

// The troubleshooting entry: read both options, ask, then write each changed one; an out-of-range value is
// refused with a message and the other one still applies.
void ChangeShellTimeouts(Frame& parent);

} // namespace Tarn
