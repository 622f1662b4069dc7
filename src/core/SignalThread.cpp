// Signal thread: blocks the asynchronous signals in every thread and turns each one into a byte on the
// wake-up pipe, so that signals are handled synchronously between two keys.
#include "core/SignalThread.h"

#include "core/EventLoop.h"
#include "core/Log.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <initializer_list>
#include <pthread.h>
#include <unistd.h>

namespace Tarn {
namespace {
int gWakePipe[2] = {-1, -1};

sigset_t BlockedSignals() {
    sigset_t set;
    sigemptyset(&set);
    for (int s : {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGUSR1, SIGUSR2, SIGWINCH})
        sigaddset(&set, s);
    return set;
}

void* SignalLoop(void*) {
    sigset_t set = BlockedSignals();
    for (;;) {
        int signal = 0;
        int rc = sigwait(&set, &signal);
        if (rc != 0) {
            errno = rc;
            LogErrno("sigwait() failed");
            continue;
        }
        unsigned char byte = WakeByteForSignal(signal);
        if (byte == 0)
            continue;
        while (write(gWakePipe[1], &byte, 1) < 1 && errno == EINTR) {
        }
    }
    return nullptr;
}
} // namespace

unsigned char WakeByteForSignal(int signal) {
    switch (signal) {
    case SIGUSR1:
        return 1;
    case SIGUSR2:
        return 2;
    case SIGWINCH:
        return 3;
    case SIGHUP: // the terminal went away: end like on any other request to terminate
    case SIGINT:
    case SIGQUIT:
    case SIGTERM:
        return 4;
    default:
        return 0;
    }
}

int WaitResultForWakeByte(unsigned char byte) {
    switch (byte) {
    case 1:
        return kWaitNotify;
    case 2:
        return kWaitRestart;
    case 3:
        return kWaitResize;
    case 4:
        return kWaitTerminate;
    default:
        return kWaitOther;
    }
}

int WakePipeReadEnd() {
    return gWakePipe[0];
}

void StartSignalThread() {
    // Close-on-exec: children started by the console never hold the pipe.
    if (pipe2(gWakePipe, O_CLOEXEC) != 0) {
        LogErrno("pipe() failed");
        exit(1);
    }
    sigset_t set = BlockedSignals();
    int rc = pthread_sigmask(SIG_BLOCK, &set, nullptr);
    if (rc != 0) {
        errno = rc;
        LogErrno("pthread_sigmask() failed");
    }
    pthread_t thread;
    rc = pthread_create(&thread, nullptr, SignalLoop, nullptr);
    if (rc != 0) {
        errno = rc;
        LogErrno("pthread_create() failed");
        exit(1);
    }
}

} // namespace Tarn
