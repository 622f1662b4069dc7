// The reference for the console's performance: a minimal ncursesw program with the same terminal and colour
// set-up, that paints one full screen and then repaints one line per key. 'q' ends it.
#include <clocale>
#include <curses.h>

namespace {

void SetUpColours() {
    start_color();
    use_default_colors();
    if (!can_change_color())
        return;
    init_color(3, 1000, 800, 0);
    init_color(6, 334, 334, 334);
    init_color(2, 667, 667, 667);
    init_color(7, 1000, 1000, 1000);
    init_color(1, 1000, 0, 0);
    for (short b = 0; b < 8; ++b)
        for (short f = 0; f < 8; ++f)
            init_pair(short(b * 8 + f + 1), f, b);
}

// Pair numbers stay below 65 so that they fit the attribute bits whatever COLORS is.
attr_t Pair(short bg, short fg) {
    return COLOR_PAIR(bg * 8 + fg + 1);
}

void PaintScreen() {
    wbkgd(stdscr, Pair(6, 7));
    erase();
    box(stdscr, 0, 0);
    mvaddstr(1, 3, "Reference console");
    attron(Pair(6, 2));
    for (int row = 3; row < LINES - 3; ++row)
        mvprintw(row, 3, "Line %02d of the reference screen, filled to show a full paint: 0123456789", row);
    attroff(Pair(6, 2));
    attron(Pair(3, 0));
    mvhline(LINES - 2, 1, ' ', COLS - 2);
    mvaddstr(LINES - 2, 3, "Wide: \u65e5\u672c");
    attron(A_REVERSE | A_BOLD);
    mvaddstr(LINES - 2, COLS - 12, "<Enter>");
    attroff(A_REVERSE | A_BOLD);
    attroff(Pair(3, 0));
    refresh();
}

void PaintKey(int count, int key) {
    attron(Pair(6, 7));
    mvprintw(2, 3, "Keys: %d, last %s      ", count, keyname(key));
    attroff(Pair(6, 7));
    refresh();
}

} // namespace

int main() {
    setlocale(LC_ALL, "");
    initscr();
    curs_set(0);
    cbreak();
    noecho();
    keypad(stdscr, TRUE);
    SetUpColours();
    PaintScreen();
    int count = 0;
    for (int key; (key = getch()) != 'q';)
        if (key != ERR)
            PaintKey(++count, key);
    endwin();
    return 0;
}
