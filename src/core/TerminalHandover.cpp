// Terminal handover to a child: curses' shell mode is the mode the terminal had at start-up.
#include "core/TerminalHandover.h"

#include "core/Log.h"

#include <curses.h>
#include <termios.h>
#include <unistd.h>

namespace Tarn {
namespace {

termios g_savedAttributes{};
bool g_haveSaved = false;

} // namespace

void SuspendForChild() {
    g_haveSaved = tcgetattr(1, &g_savedAttributes) == 0;
    if (!g_haveSaved)
        LogErrno("tcgetattr");
    reset_shell_mode();
    clear();
    refresh();
}

void ResumeAfterChild() {
    if (g_haveSaved && tcsetattr(1, TCSANOW, &g_savedAttributes) != 0)
        LogErrno("tcsetattr");
    // The child may have taken the foreground; terminal-stop signals are blocked, so this cannot stop us.
    if (tcsetpgrp(1, getpgid(0)) != 0)
        LogErrno("tcsetpgrp");
    // The pager leaves the keypad in its own mode: switching it off and on sends the sequence again.
    keypad(stdscr, FALSE);
    keypad(stdscr, TRUE);
    // curses still believes in its cursor visibility and would not send it again.
    int visibility = curs_set(1);
    if (visibility != 1 && visibility != ERR)
        curs_set(visibility);
    // Whatever the child left on the screen is unknown to curses: the next update repaints everything.
    clearok(curscr, TRUE);
}

} // namespace Tarn
