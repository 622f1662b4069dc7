// The input wait with the real signal thread: signals become wait results, a key wins over a signal, and
// GetKey hands keys through while handling a restart request inside a session.
#include "core/EventLoop.h"
#include "core/Session.h"
#include "core/SignalThread.h"
#include "platform/HostRoot.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <curses.h>
#include <poll.h>
#include <thread>
#include <unistd.h>

namespace Tarn {
namespace {

class WaitForInputTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        // Once per process: blocks the signals in this (only) thread and starts the signal thread.
        static bool started = false;
        if (!started) {
            StartSignalThread();
            started = true;
        }
    }
    void SetUp() override {
        ASSERT_EQ(pipe(keys_), 0);
        savedStdin_ = dup(0);
        ASSERT_GE(dup2(keys_[0], 0), 0); // the wait polls descriptor 0
        out_ = std::fopen("/dev/null", "w");
        screen_ = newterm("linux", out_, stdin);
        ASSERT_NE(screen_, nullptr);
        set_term(screen_);
        keypad(stdscr, TRUE);
    }
    void TearDown() override {
        endwin();
        delscreen(screen_);
        std::fclose(out_);
        dup2(savedStdin_, 0);
        close(savedStdin_);
        close(keys_[0]);
        if (keys_[1] >= 0)
            close(keys_[1]);
    }
    void Type(const std::string& bytes) {
        ASSERT_EQ(write(keys_[1], bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }
    // Raises `signal` and waits until its byte is on the wake-up pipe.
    static void RaiseAndSettle(int signal) {
        kill(getpid(), signal);
        pollfd fd{WakePipeReadEnd(), POLLIN, 0};
        ASSERT_EQ(poll(&fd, 1, 2000), 1);
    }

    int keys_[2] = {-1, -1};
    int savedStdin_ = -1;
    FILE* out_ = nullptr;
    SCREEN* screen_ = nullptr;
};

TEST_F(WaitForInputTest, SignalsBecomeWaitResults) {
    const struct {
        int signal;
        int result;
    } cases[] = {
        {SIGUSR1, -3}, {SIGUSR2, -4}, {SIGWINCH, -5}, {SIGINT, -6}, {SIGQUIT, -6}, {SIGTERM, -6},
    };
    timeval second{1, 0};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.signal);
        RaiseAndSettle(c.signal);
        EXPECT_EQ(WaitForInput(&second), c.result);
    }
}

TEST_F(WaitForInputTest, TimesOutWithNothingPending) {
    timeval shortWait{0, 20000};
    EXPECT_EQ(WaitForInput(&shortWait), -2);
}

TEST_F(WaitForInputTest, KeyWinsOverSignalInTheSameRound) {
    RaiseAndSettle(SIGUSR2);
    Type("x");
    timeval second{1, 0};
    EXPECT_EQ(WaitForInput(&second), 'x');
    EXPECT_EQ(WaitForInput(&second), -4);
}

TEST_F(WaitForInputTest, FunctionKeyDecodesThroughTheWait) {
    Type("\033[24~");
    timeval second{1, 0};
    EXPECT_EQ(WaitForInput(&second), KEY_F(12));
}

TEST_F(WaitForInputTest, LoneEscapeActsWithinATenthOfASecond) {
    set_escdelay(25);
    Type("\033");
    timeval second{1, 0};
    auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(WaitForInput(&second), 27);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(100));
}

TEST_F(WaitForInputTest, RestartRequestDuringSessionIsRememberedAndTheKeyStillArrives) {
    // No host under the test: the session's option read fails and the default time-out applies.
    char dir[] = "/tmp/tarn-nohost-XXXXXX";
    ASSERT_NE(mkdtemp(dir), nullptr);
    Platform::UseSimulatedHost(dir);
    SetRestartPending(false);
    SetSessionActive(true);
    EXPECT_EQ(IdleTimeoutSeconds(), 600u);

    RaiseAndSettle(SIGUSR2);
    // The key comes after the signal has been read, so the restart request is handled first.
    std::thread typist([this] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        Type("k");
    });
    EXPECT_EQ(GetKey(nullptr, true), 'k');
    typist.join();
    EXPECT_TRUE(RestartPending());

    SetSessionActive(false);
    SetRestartPending(false);
    Platform::UseRealHost();
    std::string cleanup = std::string("rm -rf ") + dir;
    ASSERT_EQ(std::system(cleanup.c_str()), 0);
}

using WaitForInputDeathTest = WaitForInputTest;

TEST_F(WaitForInputDeathTest, RestartOutsideSessionAndTerminatingSignalsEndTheProgram) {
    ASSERT_FALSE(SessionActive());
    for (int signal : {SIGUSR2, SIGTERM, SIGINT, SIGQUIT}) {
        SCOPED_TRACE(signal);
        RaiseAndSettle(signal);
        EXPECT_EXIT(GetKey(nullptr, false), testing::ExitedWithCode(0), "");
    }
}

TEST_F(WaitForInputTest, ClosedTerminalEndsTheWaitInsteadOfSpinning) {
    Type("a");
    timeval second{1, 0};
    EXPECT_EQ(WaitForInput(&second), 'a');
    // The writer goes away: the terminal reads as hung up, which ends like a terminating signal.
    close(keys_[1]);
    keys_[1] = -1;
    int result = 0;
    for (int i = 0; i < 2000 && result != -6; ++i)
        result = WaitForInput(&second);
    EXPECT_EQ(result, -6);
}

} // namespace
} // namespace Tarn
