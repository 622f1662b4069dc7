// The one owner of the curses terminal: sets it up, and restores it on every way out of the program
// (normal return, exception, and exit() through the at-exit list).
#pragma once

namespace Tarn {

class Terminal {
public:
    // Sets up curses on standard input/output. Open() is false when the terminal type is unusable.
    Terminal();
    ~Terminal();
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    bool Open() const;
    // The normal end: clears the screen, ends curses and resets a Linux console's palette.
    void Close();
    // An abnormal end: ends curses only, so whatever is printed next lands on a sane terminal.
    void Release();
};

// Screen size in character cells (0 before the terminal is set up).
int ScreenColumns();
int ScreenLines();

} // namespace Tarn
