// The console's own idle time-out, the advanced option /UserVars/TarnTimeOut in seconds.
#pragma once

namespace Tarn {

// The option's value; 600 when it is missing, not an integer option or unreadable.
long GetTarnTimeout();
// Stores the value; a failure is ignored (the console keeps its time-out).
void SetTarnTimeout(long seconds);

// Stores `minutes` × 60, makes the event loop use it from the next key on, and logs the change.
void ApplyTarnTimeout(long minutes);

} // namespace Tarn
