// The login dialog's decisions as plain functions: its texts per mode, what a key does, and what each PAM
// status leads to. Kept apart from drawing so they can be checked without a terminal.
#pragma once

#include "core/Report.h"

#include <string>

namespace Tarn {

inline constexpr const char* kLoginPasswordFooter =
    "{align:right}{color:black}<Enter>{/color} {color:dark-grey}OK{/color}  {color:black}<Esc>{/color} "
    "{color:dark-grey}Cancel{/color}{/align}";
// The stray ">" in the first colour tag is how this footer has always been written; it is kept.
inline constexpr const char* kLoginPinFooter =
    "{align:left}{color:black>}<F3>{/color} {color:dark-grey}Switch PIN/Password Login{/color}{/align}"
    "{align:right}{color:black}<Enter>{/color} {color:dark-grey}OK{/color}  {color:black}<Esc>{/color} "
    "{color:dark-grey}Cancel{/color}{/align}";

// "prompt", then "host.domain." — the prompt names the host the credentials are for.
std::string HostLabel(const std::string& prompt, const std::string& host, const std::string& domain);

// Catalogue texts and footer of one login mode.
struct LoginTexts {
    unsigned promptId;
    unsigned loginLabelId;
    unsigned passwordLabelId;
    const char* footer;
};
LoginTexts LoginModeTexts(bool pinMode);

enum class LoginKeyAction {
    Cancel,
    RunKeyboard, // Enter on the keyboard item
    FocusNext,
    FocusFirst, // Tab on the last item wraps
    Submit,
    Up,
    Down,
    SwitchMode,
    Edit, // handed to the focused field
    Ignore,
};

// What `key` does with the focus on item `focus` of `itemCount` items; `keyboardItem` tells whether item 0
// is the keyboard item (which takes no editing keys).
LoginKeyAction DecideLoginKey(int key, int focus, int itemCount, bool keyboardItem);

// One row of the outcome table for a PAM status.
struct LoginResult {
    LoginOutcome outcome;
    unsigned messageId;  // message dialog text (0 on success)
    bool changePassword; // the expired path: the password dialog runs after the message
};
LoginResult LoginStatusResult(int pamStatus);

} // namespace Tarn
