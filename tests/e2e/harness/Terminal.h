// A program running in a pseudo-terminal of fixed size with a complete, explicit environment; its output is
// decoded into a Screen and kept raw. Every wait polls the pty with a deadline: no fixed sleeps.
#pragma once

#include "harness/Screen.h"

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <sys/resource.h>
#include <sys/types.h>
#include <termios.h>
#include <vector>

namespace e2e {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

// A wait budget times TARN_E2E_TIME_SCALE (a number, 1 when unset): a sanitizer build draws several times
// slower, and its runs raise the factor rather than the tests loosening what they check. The waits below
// scale their own budgets; a test that times something itself scales its bound with this.
Clock::duration Scaled(Clock::duration budget);

struct LaunchOptions {
    std::string program; // absolute path
    std::vector<std::string> args;
    std::optional<std::string> term = "xterm-256color"; // nullopt: TERM not set at all
    int rows = 25, cols = 80;
    // Added to (or, with nullopt, removed from) the base environment: LANG=C.UTF-8, ESCDELAY=25,
    // PATH=/usr/bin:/bin, HOME=/tmp. LINES and COLUMNS are never set.
    std::map<std::string, std::optional<std::string>> env;
};

struct ExitStatus {
    bool exited = false; // normal exit; `code` valid
    int code = -1;
    bool signaled = false; // killed; `signal` valid
    int signal = 0;
    struct rusage usage {};
    std::string Describe() const;
};

class Terminal {
public:
    explicit Terminal(const LaunchOptions& options);
    ~Terminal(); // a child still running is killed and reaped
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    pid_t Pid() const { return pid_; }
    const Screen& View() const { return screen_; }
    Clock::time_point Started() const { return started_; }

    // Input: each call is one write(), so an escape sequence arrives whole.
    void Send(std::string_view bytes);
    void Key(const std::string& name); // see KeyBytes
    void Type(std::string_view text) { Send(text); }

    // Reads whatever the program writes within `timeout`; true when bytes arrived.
    bool Pump(Clock::duration timeout);
    bool WaitFor(const std::function<bool()>& done, Clock::duration timeout = 5s);
    bool WaitForText(std::string_view text, Clock::duration timeout = 5s);
    bool WaitForTextGone(std::string_view text, Clock::duration timeout = 5s);
    // WaitForText, then WaitQuiet: use it before typing into a window that has just been drawn, because
    // the console discards type-ahead right after it draws a window.
    bool WaitForTextSettled(std::string_view text, Clock::duration quiet = 30ms,
                            Clock::duration timeout = 5s);
    // True once no byte arrived for `quiet` (counted from the last byte, or from now if none is pending).
    bool WaitQuiet(Clock::duration quiet, Clock::duration timeout = 5s);
    // The child's end (reaped with wait4, so the resource usage is kept); nullopt on time-out.
    std::optional<ExitStatus> WaitExit(Clock::duration timeout = 5s);
    bool Running();
    const std::optional<ExitStatus>& Exit() const { return exit_; }

    void Signal(int sig);
    // New size for both sides: the decoder and the pty (the kernel sends SIGWINCH to the program).
    void Resize(int rows, int cols);
    // Line-discipline modes of the pty as the program left them.
    struct termios Modes() const;

    // Every byte the program wrote, in order.
    const std::string& Output() const { return output_; }
    Clock::time_point LastOutput() const { return lastOutput_; }

    // Convenience forwards to the screen.
    std::string Row(int row) const { return screen_.Row(row); }
    std::optional<Pos> Find(std::string_view text) const { return screen_.Find(text); }
    Cell CellAt(int col, int row) const { return screen_.CellAt(col, row); }

private:
    void Reap(bool block);

    Screen screen_;
    std::optional<std::string> term_;
    pid_t pid_ = -1;
    int master_ = -1;
    int pidfd_ = -1;
    bool eof_ = false;
    Clock::time_point started_;
    Clock::time_point lastOutput_;
    std::string output_;
    std::optional<ExitStatus> exit_;
};

} // namespace e2e
