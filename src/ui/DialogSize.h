// Size of the notification and message dialogs, which follows their title and body; and the Enter footer
// they share.
#pragma once

#include <string>

namespace Tarn {

// Key hint of a dialog that is closed with Enter.
inline constexpr const char* kEnterOkFooter =
    "{align:right}{color:black}<Enter>{/color} {color:dark-grey}OK{/color}{/align}";

struct DialogSize {
    int width;
    int height;
    int splitRow;
};

// A message or notification of a size given by its screen: the top pane ends three rows above the bottom,
// leaving its body every row below the title (48 x 8 holds one line of 42 columns).
constexpr DialogSize FixedMessageSize(int width, int height) {
    return {width, height, height - 3};
}

// Size of a notification or message dialog: wide enough for the title and the longest body line (40 to 72
// columns), a top pane tall enough for the wrapped body, and a 3-row bottom pane for the footer. Screen
// sizes of 0 mean unknown; otherwise the dialog is kept within them.
DialogSize MessageDialogSize(const std::string& title, const std::string& body, int screenColumns,
                             int screenRows);

// A dialog cut to the screen, so that it shows and the operator sees what is typed into it: narrower, and
// shorter by rows taken from the top pane's description first (down to its title row), then from the bottom
// pane's list.
DialogSize FitToScreen(DialogSize wanted, int screenColumns, int screenRows);

} // namespace Tarn
