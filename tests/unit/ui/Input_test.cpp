// Keys and colours on real curses screens fed from a pipe: the key table as curses decodes it, colour pairs
// and the monochrome fallback, and the input wait with the real signal thread (signals become wait results,
// a key wins over a signal, GetKey handles a restart request inside a session and ends the program outside).
#include "core/Colors.h"
#include "core/Keys.h"
#include "core/Session.h"
#include "core/SignalThread.h"
#include "platform/HostRoot.h"

#include "support/ActiveTestHost.h"
#include "support/OffscreenTerminal.h"

#include <poll.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <set>
#include <thread>

namespace Tarn {
namespace {

using Curses = Testing::OffscreenTerminal;

TEST_F(Curses, KeyTableIsDecodedOnEveryTerminalType) {
    std::set<std::string> seen;
    for (const KeyBinding& b : KeyTable()) {
        EXPECT_TRUE(seen.insert(b.sequence).second) << "duplicate sequence";
        const bool escO = b.sequence.size() == 3 && b.sequence.compare(0, 2, "\033O") == 0;
        EXPECT_FALSE(escO && (b.key == KEY_F(10) || b.key == KEY_F(11))) << "ESC O never gives F10 or F11";
    }
    const struct {
        const char* bytes;
        int key;
    } cases[] = {
        {"\033OY", KEY_F(12)},   {"\033OX", KEY_F(9)},  {"\033OP", KEY_F(1)}, {"\033[11~", KEY_F(1)},
        {"\033[24~", KEY_F(12)}, {"\0330", KEY_F(10)},  {"\033!", KEY_F(11)}, {"\033@", KEY_F(12)},
        {"\033[X", KEY_F(12)},   {"\033[N", KEY_F(2)},  {"\033h", KEY_HOME},  {"\033k", KEY_END},
        {"\033+", KEY_IC},       {"\033-", KEY_DC},     {"\033?", KEY_PPAGE}, {"\033/", KEY_NPAGE},
        {"\033OA", KEY_UP},      {"\033[D", KEY_LEFT},  {"\033[3~", KEY_DC},  {"\033[4~", KEY_END},
        {"\177", KEY_BACKSPACE}, {"\033R", KEY_RESIZE}, {"a", 'a'},           {"\n", 10},
    };
    for (const char* term : {"linux", "vt102", "xterm"}) {
        SCOPED_TRACE(term);
        Open(term);
        DefineKeys();
        wtimeout(stdscr, 1000);
        for (const auto& c : cases) {
            Type(c.bytes);
            EXPECT_EQ(wgetch(stdscr), c.key) << testing::PrintToString(std::string(c.bytes));
        }
    }
}

TEST_F(Curses, ColourPairsAndMonochrome) {
    for (const char* term : {"linux", "xterm-256color"}) {
        SCOPED_TRACE(term);
        Open(term);
        EXPECT_FALSE(Monochrome());
        for (int background : kConsoleColors) {
            for (int foreground : kConsoleColors) {
                const int pair = PAIR_NUMBER(ColorAttr(background, foreground));
                if (pair >=
                    COLOR_PAIRS) { // TERM=linux has 64 pairs: white on white (64) is refused, never drawn
                    EXPECT_EQ(background + foreground, 14);
                    continue;
                }
                short f = -1, b = -1;
                ASSERT_EQ(pair_content(static_cast<short>(pair), &f, &b), OK);
                EXPECT_EQ((std::vector<int>{f, b}), (std::vector<int>{foreground, background}));
            }
        }
        short r, g, b;
        color_content(3, &r, &g, &b);
        EXPECT_EQ((std::vector<short>{r, g, b}), (std::vector<short>{1000, 800, 0}));
    }
    EXPECT_EQ(ColorPairNumber(7, 7, 256), 120) << "pairs stay inside the attribute's eight bits";

    Open("xterm"); // colours cannot be redefined
    EXPECT_TRUE(Monochrome());
    EXPECT_EQ(ColorAttr(0, 7), A_STANDOUT);
    EXPECT_EQ(ColorAttr(6, 3), A_STANDOUT);
    EXPECT_EQ(ColorAttr(3, 0), A_NORMAL);
    EXPECT_EQ(ColorAttr(7, 0), A_NORMAL);
}

class WaitForInputTest : public Testing::OffscreenTerminal {
protected:
    static void SetUpTestSuite() {
        static bool started = false; // once per process: blocks the signals in this thread, starts the thread
        if (!started)
            StartSignalThread();
        started = true;
    }
    void SetUp() override {
        term_ = "linux";
        OffscreenTerminal::SetUp();
    }
    // Raises `signal` and waits until its byte is on the wake-up pipe.
    static void RaiseAndSettle(int signal) {
        kill(getpid(), signal);
        pollfd fd{WakePipeReadEnd(), POLLIN, 0};
        ASSERT_EQ(poll(&fd, 1, 2000), 1);
    }
    timeval second_{1, 0};
};

TEST_F(WaitForInputTest, SignalsKeysAndTimeOut) {
    const struct {
        int signal, result;
    } cases[] = {{SIGUSR1, -3}, {SIGUSR2, -4}, {SIGWINCH, -5}, {SIGINT, -6}, {SIGQUIT, -6}, {SIGTERM, -6}};
    for (const auto& c : cases) {
        RaiseAndSettle(c.signal);
        EXPECT_EQ(WaitForInput(&second_), c.result) << c.signal;
    }
    timeval shortWait{0, 20000};
    EXPECT_EQ(WaitForInput(&shortWait), -2);
    // A key wins over a signal in the same round.
    RaiseAndSettle(SIGUSR2);
    Type("x");
    EXPECT_EQ(WaitForInput(&second_), 'x');
    EXPECT_EQ(WaitForInput(&second_), -4);
    // A lone Escape acts within a tenth of a second.
    Type("\033");
    auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(WaitForInput(&second_), 27);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(100));
}

TEST_F(WaitForInputTest, KeysThatArriveInOneReadWithALoneEscapeAreNotHeldBack) {
    timeval shortWait{0, 200000};
    for (std::string after : {"x", "\033", "ab"}) {
        SCOPED_TRACE(after);
        Type("\033" + after);
        EXPECT_EQ(WaitForInput(&second_), 27);
        for (char c : after)
            EXPECT_EQ(WaitForInput(&shortWait), static_cast<unsigned char>(c));
        EXPECT_EQ(WaitForInput(&shortWait), -2);
    }
}

TEST_F(WaitForInputTest, ClosedTerminalEndsTheWaitInsteadOfSpinning) {
    close(keys_[1]);
    keys_[1] = -1;
    int result = 0;
    for (int i = 0; i < 2000 && result != -6; ++i)
        result = WaitForInput(&second_);
    EXPECT_EQ(result, -6);
}

TEST_F(WaitForInputTest, RestartRequestDuringSessionIsRememberedAndTheKeyStillArrives) {
    // No host under the test: the session's option read fails and the default time-out applies.
    ActiveTestHost host(TestHost::Layout::Empty);
    SetRestartPending(false);
    SetSessionActive(true);
    EXPECT_EQ(IdleTimeoutSeconds(), 600u);
    RaiseAndSettle(SIGUSR2);
    std::thread typist([this] { // the key comes after the signal was read: the restart request goes first
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        Type("k");
    });
    EXPECT_EQ(GetKey(nullptr, true), 'k');
    typist.join();
    EXPECT_TRUE(RestartPending());
    SetSessionActive(false);
    SetRestartPending(false);
}

using WaitForInputDeathTest = WaitForInputTest;

TEST_F(WaitForInputDeathTest, RestartOutsideSessionAndTerminatingSignalsEndTheProgram) {
    ASSERT_FALSE(SessionActive());
    for (int signal : {SIGUSR2, SIGTERM, SIGINT, SIGQUIT}) {
        RaiseAndSettle(signal);
        EXPECT_EXIT(GetKey(nullptr, false), testing::ExitedWithCode(0), "") << signal;
    }
}

} // namespace
} // namespace Tarn
