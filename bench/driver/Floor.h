// The least a program must write to turn one screen into another: the changed cells, the shortest cursor
// moves between them and the shortest attribute changes (SGR). A repaint is judged against this floor.
#pragma once

#include "harness/Screen.h"

#include <vector>

namespace bench {

// A copy of the decoded screen: cells row by row, and the cursor.
struct Grid {
    int rows = 0, cols = 0;
    std::vector<e2e::Cell> cells;
    e2e::Pos cursor;
    bool cursorVisible = false;
    const e2e::Cell& At(int col, int row) const { return cells[size_t(row * cols + col)]; }
};

Grid Snapshot(const e2e::Screen& screen);

struct Change {
    int rowsChanged = 0;
    int cellsChanged = 0;
    int floorBytes = 0;
};

// What differs between `before` and `after` (same size), and the floor in bytes: for each run of changed
// cells, the cheaper of rewriting a short gap or moving the cursor over it, every attribute change at its
// shortest, and the final cursor placement when the cursor shows.
Change Diff(const Grid& before, const Grid& after);

} // namespace bench
