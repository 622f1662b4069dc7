// Process-wide session values: who is logged in and how, the smart-card watch results, the pending restart
// and whether the console runs on the local terminal. Touched only by the user-interface thread.
#pragma once

#include <string>

namespace Tarn {

const std::string& LoggedInUser();
void SetLoggedInUser(const std::string& user);

// True when the logged-in user has an empty password.
bool EmptyPassword();
void SetEmptyPassword(bool empty);

// User id of a smart-card login (empty for a password login).
const std::string& SmartCardLoginId();
void SetSmartCardLoginId(const std::string& id);

// True when the host asks the console to offer the keyboard-layout choice (read at start-up).
bool KeyboardChoice();
void SetKeyboardChoice(bool chosen);

// User id found on a smart card while no session is active (empty when none).
const std::string& SmartCardUser();
void SetSmartCardUser(const std::string& userId);

// The user id of a session opened with a smart card, and whether that card was present when it began.
const std::string& SmartCardSessionUser();
bool SmartCardSession();
void SetSmartCardSessionState(const std::string& userId, bool cardPresent);

void SetRestartPending(bool pending);

// True when the console runs on the machine's own terminal (not through SSH or a serial line).
bool LocalConsole();
void SetLocalConsole(bool local);

} // namespace Tarn
