// A live core of the host management agent stewd, taken on a thread of its own while the agents restart.
#pragma once

namespace Tarn {

// The thread's work: runs tesbacktrace against stewd and raises a system alert when the core is written.
// Never throws.
void TakeLiveCore();

// Starts TakeLiveCore on a detached thread: it must run while the agents are stopped and may outlive the
// dialog that started it, so nobody waits for it. Returns false (and logs why) when no thread could be
// created.
bool StartLiveCoreThread();

} // namespace Tarn
