// The smart-card watch: which user's card is inserted, and whether the card of a smart-card session is
// still there. Runs on every SIGUSR1.
#pragma once

#include <string>

namespace Tarn {

// User id of the first slot (in enumeration order) that holds a token; empty when none does. A failed
// lookup is logged and counts as no card.
std::string FindSmartCardUser();
// True when some slot holds a token of `userId` (false when the lookup fails).
bool SmartCardPresent(const std::string& userId);

// Stores the session's smart-card user and whether that card is present now (smart-card login).
void SetSmartCardSessionUser(const std::string& userId);

// Outside a session: records the card's user id. During a smart-card session: ends the program when the
// session's card is gone.
void CheckSmartCard();

} // namespace Tarn
