// Curses set-up and tear-down.
#include "core/Terminal.h"

#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <curses.h>
#include <iterator>
#include <pthread.h>
#include <termios.h>
#include <unistd.h>

namespace Tarn {
namespace {
bool gCursesOpen = false;

// What a fatal signal needs to give the terminal back, prepared while nothing is failing: the modes found at
// start and the bytes that leave the alternate screen, reset the attributes and show the cursor.
struct CrashRestore {
    termios modes{};
    bool haveModes = false;
    char bytes[128] = {};
    size_t length = 0;
};
CrashRestore gCrash;

constexpr int kFatalSignals[] = {SIGABRT, SIGSEGV, SIGBUS, SIGFPE, SIGILL};
struct sigaction gPrevious[std::size(kFatalSignals)];

void AppendCapability(const char* name) {
    char* text = tigetstr(const_cast<char*>(name));
    if (text == nullptr || text == reinterpret_cast<char*>(-1))
        return;
    size_t n = std::strlen(text);
    if (gCrash.length + n <= sizeof gCrash.bytes) {
        std::memcpy(gCrash.bytes + gCrash.length, text, n);
        gCrash.length += n;
    }
}

// Only async-signal-safe calls: the process is in an unknown state.
void RestoreOnFatalSignal(int signal, siginfo_t* info, void* context) {
    int saved = errno;
    if (gCrash.haveModes)
        tcsetattr(1, TCSANOW, &gCrash.modes);
    if (gCrash.length > 0) {
        ssize_t ignored = write(1, gCrash.bytes, gCrash.length);
        (void)ignored;
    }
    errno = saved;
    // A handler that was there before (a sanitizer's report) still gets its turn, then the signal kills us.
    for (size_t i = 0; i < std::size(kFatalSignals); ++i) {
        if (kFatalSignals[i] != signal)
            continue;
        const struct sigaction& previous = gPrevious[i];
        if (previous.sa_flags & SA_SIGINFO) {
            if (previous.sa_sigaction != nullptr)
                previous.sa_sigaction(signal, info, context);
        } else if (previous.sa_handler != SIG_DFL && previous.sa_handler != SIG_IGN) {
            previous.sa_handler(signal);
        }
    }
    struct sigaction fallback {};
    fallback.sa_handler = SIG_DFL;
    sigaction(signal, &fallback, nullptr);
    sigset_t unblock;
    sigemptyset(&unblock);
    sigaddset(&unblock, signal);
    pthread_sigmask(SIG_UNBLOCK, &unblock, nullptr);
    raise(signal);
}

void InstallFatalSignalRestore(const termios* modes) {
    if (modes != nullptr) {
        gCrash.modes = *modes;
        gCrash.haveModes = true;
    }
    gCrash.length = 0;
    AppendCapability("rmcup");
    AppendCapability("sgr0");
    AppendCapability("cnorm");
    struct sigaction action {};
    action.sa_sigaction = RestoreOnFatalSignal;
    action.sa_flags = SA_SIGINFO | SA_NODEFER | SA_RESETHAND;
    sigemptyset(&action.sa_mask);
    for (size_t i = 0; i < std::size(kFatalSignals); ++i)
        sigaction(kFatalSignals[i], &action, &gPrevious[i]);
}

// Also runs on the exit(0) paths of the event loop, which never unwind to the owner.
void EndCurses() {
    if (!gCursesOpen)
        return;
    gCursesOpen = false;
    endwin();
}
} // namespace

Terminal::Terminal() {
    // A lone Esc must act quickly, while a function-key sequence written at once still decodes. The
    // environment's ESCDELAY, when set, is left to win.
    if (std::getenv("ESCDELAY") == nullptr)
        set_escdelay(25);
    termios found{};
    bool haveFound = tcgetattr(1, &found) == 0;
    // Like initscr(), but an unknown terminal type is reported to the caller instead of ending the process.
    if (newterm(nullptr, stdout, stdin) == nullptr)
        return;
    gCursesOpen = true;
    InstallFatalSignalRestore(haveFound ? &found : nullptr);
    start_color();
    static bool registered = false;
    if (!registered) {
        std::atexit(EndCurses);
        registered = true;
    }
    curs_set(0);
    cbreak();
    noecho();
    keypad(stdscr, TRUE);
}

Terminal::~Terminal() {
    EndCurses();
}

bool Terminal::Open() const {
    return gCursesOpen;
}

void Terminal::Close() {
    if (!gCursesOpen)
        return;
    erase();
    refresh();
    EndCurses();
    // ESC ] R: a Linux console resets the palette the colour set-up changed.
    std::fflush(stdout);
    ssize_t ignored = write(1, "\033]R", 3);
    (void)ignored;
}

void Terminal::Release() {
    EndCurses();
}

int ScreenColumns() {
    return gCursesOpen ? COLS : 0;
}
int ScreenLines() {
    return gCursesOpen ? LINES : 0;
}

} // namespace Tarn
