// The one blocking point of the user-interface thread, key reading with dimming and idle time-out, and the
// modal run of frames.
#pragma once

#include <sys/time.h>

namespace Tarn {

class Surface;

// Thrown by GetKey when the idle time-out expires; the screen that opened the session logs the user out.
struct TarnTimeout {};

void StartSignalThread();
int WaitForInput(const timeval* timeout);
// Reads one key for `window`, dimming it while the idle time-out nears; TarnTimeout when it expires.
int GetKey(Surface* window, bool useIdleTimeout);
// The surface that receives the SIGUSR1 notification (the innermost one being run); null: none.
void SetNotifiedSurface(Surface* surface);
Surface* NotifiedSurface();
// What PollKey returns when no key came in time.
inline constexpr int kNoKey = -1;
// Waits at most `milliseconds` for a key, for screens that watch work in progress between keys; signals are
// handled as GetKey handles them. No idle time-out applies.
int PollKey(int milliseconds);
// Blocks without reading keys until a terminating signal (or a resize) ends the process: the host is going
// down and takes the console with it. Sleeps in poll on the wake-up pipe alone, never spins.
[[noreturn]] void WaitForHostDown();

void LoadIdleTimeout();
unsigned IdleTimeoutSeconds();
void SetSessionActive(bool active);
bool SessionActive();
bool RestartPending();

void InitColors();
void DefineKeys();
// Curses attribute for a background/foreground colour pair (A_STANDOUT/A_NORMAL in monochrome mode).
unsigned long ColorAttr(int background, int foreground);
bool Monochrome();

} // namespace Tarn
