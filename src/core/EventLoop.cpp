// The wait on terminal and wake-up pipe, key reading with dimming and idle time-out, signal handling on the
// user-interface thread, and the modal run of frames.
#include "core/EventLoop.h"
#include "core/Keys.h"

#include "core/IdleDeadline.h"
#include "core/Log.h"
#include "core/Session.h"
#include "core/SignalThread.h"
#include "core/SmartCardWatch.h"
#include "core/Surface.h"

#include <cerrno>
#include <cstdlib>
#include <curses.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace Tarn {
namespace {
// The innermost frame being run modally; receives the SIGUSR1 notification.
Surface* gCurrentWindow = nullptr;

// A resize always ends the program: the supervisor starts it again at the new size.
[[noreturn]] void ResizeAndExit() {
    winsize size{};
    if (ioctl(0, TIOCGWINSZ, &size) == 0 && size.ws_row != 0 && size.ws_col != 0) {
        resizeterm(size.ws_row, size.ws_col);
        Log(LOG_INFO, "Resized window to %dx%d", size.ws_col, size.ws_row);
        refresh();
    }
    exit(0);
}

} // namespace

// A terminal that has gone away (hang-up, or input at end of file) reads as "readable" for ever; ending like
// on a terminating signal keeps the console from spinning. One ERR after a partial escape sequence is normal,
// so only a long unbroken run of them counts.
static int gEmptyReads = 0;

static bool TerminalLost(short revents) {
    if (!(revents & (POLLHUP | POLLERR | POLLNVAL)) && ++gEmptyReads < 1000)
        return false;
    gEmptyReads = 0;
    Log(LOG_INFO, "Terminal closed, exiting");
    return true;
}

// A key curses has already read from the terminal and holds back (the rest of one read after a lone Esc)
// never makes descriptor 0 readable again; ask curses before waiting on the descriptor.
static int BufferedKey() {
    wtimeout(stdscr, 0);
    int key = wgetch(stdscr);
    wtimeout(stdscr, -1);
    return key;
}

int WaitForInput(const timeval* timeout) {
    if (int key = BufferedKey(); key != ERR) {
        gEmptyReads = 0;
        return key;
    }
    pollfd fds[2] = {{0, POLLIN, 0}, {WakePipeReadEnd(), POLLIN, 0}};
    int ms = timeout ? static_cast<int>(timeout->tv_sec * 1000 + timeout->tv_usec / 1000) : -1;
    int rc = poll(fds, 2, ms);
    if (rc < 0) {
        LogErrno("poll() failed");
        return kWaitOther;
    }
    if (rc == 0)
        return kWaitTimeout;
    // The terminal first: a key wins over a signal that arrived in the same round.
    if (fds[0].revents & POLLIN) {
        wtimeout(stdscr, 0);
        int key = wgetch(stdscr);
        wtimeout(stdscr, -1);
        if (key != ERR) {
            gEmptyReads = 0;
            return key;
        }
        if (!TerminalLost(fds[0].revents))
            return key;
        return kWaitTerminate;
    }
    if (fds[0].revents & (POLLHUP | POLLERR | POLLNVAL)) {
        TerminalLost(POLLHUP);
        return kWaitTerminate;
    }
    if (fds[1].revents & POLLIN) {
        unsigned char byte = 0;
        while (read(fds[1].fd, &byte, 1) < 1 && errno == EINTR) {
        }
        return WaitResultForWakeByte(byte);
    }
    return kWaitOther;
}

// Acts on what a wait returned other than a key (resize, notification, restart request, terminate) and
// gives back the key, or a negative value when there is none to deliver.
static int TakeWakeUp(int input) {
    if (input == KEY_RESIZE || input == kWaitResize)
        ResizeAndExit();
    switch (input) {
    case kWaitNotify:
        if (gCurrentWindow != nullptr)
            gCurrentWindow->Notification();
        CheckSmartCard();
        return -1;
    case kWaitRestart:
        if (!SessionActive())
            exit(0);
        SetRestartPending(true);
        return -1;
    case kWaitTerminate:
        exit(0);
    default:
        return input;
    }
}

int GetKey(Surface* window, bool useIdleTimeout) {
    IdleDeadline deadline(IdleDeadline::Clock::now(), IdleTimeoutSeconds(), useIdleTimeout);
    for (;;) {
        auto now = IdleDeadline::Clock::now();
        if (deadline.Expired(now)) {
            gCurrentWindow = nullptr;
            throw TarnTimeout{};
        }
        if (deadline.DimDue(now)) {
            if (window != nullptr) {
                window->Draw(false);
                window->Refresh();
            }
            deadline.MarkDimmed();
        }
        int input;
        if (auto wait = deadline.WaitTime(IdleDeadline::Clock::now())) {
            timeval tv = ToTimeval(*wait);
            input = WaitForInput(&tv);
        } else {
            input = WaitForInput(nullptr);
        }

        input = TakeWakeUp(input);
        if (input < 0)
            continue;
        if (deadline.Dimmed() && window != nullptr) {
            clearok(curscr, TRUE);
            window->Draw(true);
            window->Refresh();
        }
        return input;
    }
}

int PollKey(int milliseconds) {
    timeval tv{milliseconds / 1000, (milliseconds % 1000) * 1000};
    const int input = TakeWakeUp(WaitForInput(&tv));
    return input < 0 ? kNoKey : input;
}

void WaitForHostDown() {
    for (;;) {
        pollfd wake = {WakePipeReadEnd(), POLLIN, 0};
        if (poll(&wake, 1, -1) < 0) {
            if (errno != EINTR) {
                // Without the pipe no signal can reach this loop; sleeping still beats spinning.
                LogErrno("poll() failed");
                pause();
            }
            continue;
        }
        unsigned char byte = 0;
        if (read(wake.fd, &byte, 1) < 1)
            continue;
        int result = WaitResultForWakeByte(byte);
        if (result == kWaitTerminate || result == kWaitResize)
            exit(0);
    }
}

void SetNotifiedSurface(Surface* surface) {
    gCurrentWindow = surface;
}

Surface* NotifiedSurface() {
    return gCurrentWindow;
}

} // namespace Tarn
