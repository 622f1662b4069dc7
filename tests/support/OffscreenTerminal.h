// An off-screen 80x24 curses terminal: keys come from a pipe put on descriptor 0 (the event loop polls it),
// output goes to a temporary file. Helpers read back what curses believes the terminal shows (curscr) and
// which bytes it was sent.
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
        ASSERT_EQ(pipe(keys_), 0);
        savedStdin_ = dup(0);
        ASSERT_GE(dup2(keys_[0], 0), 0);
        out_ = std::tmpfile();
        Open(term_);
    }
    void TearDown() override {
        Window::ShowCursor(false);
        Close();
        std::fclose(out_);
        dup2(savedStdin_, 0);
        close(savedStdin_);
        close(keys_[0]);
        if (keys_[1] >= 0)
            close(keys_[1]);
    }
    // (Re)starts curses on terminal type `term`.
    void Open(const char* term) {
        Close();
        screen_ = newterm(term, out_, stdin);
        ASSERT_NE(screen_, nullptr) << term;
        set_term(screen_);
        cbreak();
        noecho();
        keypad(stdscr, TRUE);
        set_escdelay(25); // as the console sets it
        resizeterm(24, 80);
        flushinp(); // the resize queues KEY_RESIZE, which would end the program in GetKey
        start_color();
        InitColors();
        refresh();
    }
    void Close() {
        if (screen_ != nullptr) {
            endwin();
            delscreen(screen_);
            screen_ = nullptr;
        }
    }
    void Type(const std::string& bytes) {
        ASSERT_EQ(write(keys_[1], bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }
    // The key sequence of a terminfo capability such as "kcud1" (Down).
    void Press(const char* capability) {
        const char* sequence = tigetstr(capability);
        ASSERT_TRUE(sequence != nullptr && sequence != reinterpret_cast<char*>(-1)) << capability;
        Type(sequence);
    }

    // The characters of one cell of the terminal into `chars`; returns its colour pair.
    static short Cell(int row, int column, wchar_t (&chars)[CCHARW_MAX + 1]) {
        cchar_t cell;
        mvwin_wch(curscr, row, column, &cell);
        attr_t attrs = 0;
        short pair = 0;
        getcchar(&cell, chars, &attrs, &pair, nullptr);
        return pair;
    }
    // The text the terminal shows at (row, column), `count` cells.
    static std::string Screen(int row, int column, int count) {
        std::string text;
        for (int c = column; c < column + count; ++c) {
            wchar_t chars[CCHARW_MAX + 1] = {};
            Cell(row, c, chars);
            char bytes[MB_LEN_MAX] = {};
            std::mbstate_t state{};
            size_t n = std::wcrtomb(bytes, chars[0], &state);
            text.append(bytes, n == static_cast<size_t>(-1) ? 0 : n);
        }
        return text;
    }
    static int PairOnScreen(int row, int column) {
        wchar_t chars[CCHARW_MAX + 1] = {};
        return Cell(row, column, chars);
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
    // The bytes sent to the terminal since byte `from`.
    std::string OutputSince(long from) const {
        std::string bytes(static_cast<size_t>(BytesWritten() - from), '\0');
        return pread(fileno(out_), bytes.data(), bytes.size(), from) < 0 ? std::string() : bytes;
    }

    const char* term_ = "xterm-256color";
    int keys_[2] = {-1, -1};
    int savedStdin_ = -1;
    FILE* out_ = nullptr;
    SCREEN* screen_ = nullptr;
};

} // namespace Tarn::Testing
