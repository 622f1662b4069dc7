// An off-screen terminal for rendering tests: a curses screen of 80x24 whose output goes to a temporary file,
// with helpers that read back what curses believes the terminal shows (curscr) and what bytes it was sent.
#pragma once

#include "core/EventLoop.h"
#include "ui/Window.h"

#include <gtest/gtest.h>

#include <curses.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <clocale>
#include <cstdio>
#include <cwchar>
#include <string>

namespace Tarn::Testing {

class OffscreenTerminal : public ::testing::Test {
protected:
    void SetUp() override {
        std::setlocale(LC_ALL, "C.UTF-8");
        out_ = std::tmpfile();
        in_ = std::fopen("/dev/null", "r");
        screen_ = newterm(term_, out_, in_);
        ASSERT_NE(screen_, nullptr);
        set_term(screen_);
        resizeterm(24, 80);
        start_color();
        InitColors();
        refresh();
    }

    void TearDown() override {
        Window::ShowCursor(false);
        if (screen_ != nullptr) {
            endwin();
            delscreen(screen_);
        }
        std::fclose(out_);
        std::fclose(in_);
    }

    // The text the terminal shows at (row, column), `count` cells.
    static std::string Screen(int row, int column, int count) {
        std::string text;
        for (int c = column; c < column + count; ++c) {
            cchar_t cell;
            mvwin_wch(curscr, row, c, &cell);
            wchar_t chars[CCHARW_MAX + 1] = {};
            attr_t attrs = 0;
            short pair = 0;
            getcchar(&cell, chars, &attrs, &pair, nullptr);
            char bytes[MB_LEN_MAX] = {};
            std::mbstate_t state{};
            size_t n = std::wcrtomb(bytes, chars[0], &state);
            text.append(bytes, n == static_cast<size_t>(-1) ? 0 : n);
        }
        return text;
    }

    static int PairOnScreen(int row, int column) {
        cchar_t cell;
        mvwin_wch(curscr, row, column, &cell);
        wchar_t chars[CCHARW_MAX + 1] = {};
        attr_t attrs = 0;
        short pair = 0;
        getcchar(&cell, chars, &attrs, &pair, nullptr);
        return pair;
    }

    static int Pair(int background, int foreground) {
        return static_cast<int>(PAIR_NUMBER(static_cast<int>(ColorAttr(background, foreground))));
    }

    long BytesWritten() const {
        std::fflush(out_);
        struct stat st {};
        fstat(fileno(out_), &st);
        return static_cast<long>(st.st_size);
    }

    // What was sent to the terminal since byte `from`, escape characters shown as "^[".
    std::string OutputSince(long from) const {
        std::string bytes(static_cast<size_t>(BytesWritten() - from), '\0');
        if (pread(fileno(out_), bytes.data(), bytes.size(), from) < 0)
            return {};
        std::string shown;
        for (char ch : bytes)
            shown += ch == 27 ? std::string("^[") : std::string(1, ch);
        return shown;
    }

    const char* term_ = "xterm-256color";
    FILE* out_ = nullptr;
    FILE* in_ = nullptr;
    SCREEN* screen_ = nullptr;
};

} // namespace Tarn::Testing
