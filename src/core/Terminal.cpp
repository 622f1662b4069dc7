// Curses set-up and tear-down.
#include "core/Terminal.h"

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <curses.h>
#include <unistd.h>

namespace Tarn {
namespace {
bool gCursesOpen = false;

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
    // Like initscr(), but an unknown terminal type is reported to the caller instead of ending the process.
    if (newterm(nullptr, stdout, stdin) == nullptr)
        return;
    gCursesOpen = true;
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
