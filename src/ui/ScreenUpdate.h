// Batching of terminal output: windows only stage their contents (wnoutrefresh) while a batch is open, and
// the outermost batch sends one update to the terminal, with the cursor where the process-wide cursor state
// says. One update per operation keeps the bytes written per key small and free of intermediate states.
#pragma once

typedef struct _win_st WINDOW;

namespace Tarn {

class ScreenUpdate {
public:
    ScreenUpdate();
    ~ScreenUpdate();
    ScreenUpdate(const ScreenUpdate&) = delete;
    ScreenUpdate& operator=(const ScreenUpdate&) = delete;

    // Marks all of `window` for copying to the screen at the end of the batch (null is ignored).
    static void Stage(WINDOW* window);
};

} // namespace Tarn
