// forkpty start-up with a clean signal state and environment, the read pump, and the child's end.
#include "harness/Terminal.h"

#include "harness/Keys.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <sstream>
#include <stdexcept>
#include <sys/ioctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace e2e {

namespace {

std::vector<std::string> BuildEnvironment(const LaunchOptions& o) {
    std::map<std::string, std::optional<std::string>> env = {
        {"LANG", "C.UTF-8"}, {"ESCDELAY", "25"}, {"PATH", "/usr/bin:/bin"}, {"HOME", "/tmp"}};
    if (o.term)
        env["TERM"] = *o.term;
    for (const auto& [k, v] : o.env)
        env[k] = v;
    std::vector<std::string> out;
    for (const auto& [k, v] : env)
        if (v && k != "LINES" && k != "COLUMNS")
            out.push_back(k + "=" + *v);
    return out;
}

[[noreturn]] void ExecChild(const LaunchOptions& o, const std::vector<std::string>& env) {
    // The harness may run with signals blocked or ignored; the program must start as a supervisor starts it.
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    for (int s = 1; s < NSIG; ++s)
        signal(s, SIG_DFL);
    closefrom(3);
    std::vector<char*> argv{const_cast<char*>(o.program.c_str())};
    for (const auto& a : o.args)
        argv.push_back(const_cast<char*>(a.c_str()));
    argv.push_back(nullptr);
    std::vector<char*> envp;
    for (const auto& e : env)
        envp.push_back(const_cast<char*>(e.c_str()));
    envp.push_back(nullptr);
    execve(o.program.c_str(), argv.data(), envp.data());
    _exit(127);
}

// A sanitizer build writes the console's reports to TARN_SANITIZER_LOG.<pid>: its standard error is the
// screen, which the console silences.
void CheckSanitizerReport(pid_t pid) {
    const char* prefix = std::getenv("TARN_SANITIZER_LOG");
    if (prefix == nullptr || pid <= 0)
        return;
    std::ifstream in(std::string(prefix) + "." + std::to_string(pid));
    if (!in)
        return;
    std::stringstream report;
    report << in.rdbuf();
    ADD_FAILURE() << "sanitizer report of " << pid << ":\n" << report.str();
}

int PollMs(Clock::duration d) {
    auto ms = std::chrono::ceil<std::chrono::milliseconds>(d).count();
    return ms < 0 ? 0 : int(std::min<long long>(ms, 1000 * 60));
}

} // namespace

Clock::duration Scaled(Clock::duration budget) {
    static const double factor = [] {
        const char* text = std::getenv("TARN_E2E_TIME_SCALE");
        const double value = text != nullptr ? std::strtod(text, nullptr) : 1.0;
        return value >= 1.0 && value <= 100.0 ? value : 1.0;
    }();
    return std::chrono::duration_cast<Clock::duration>(budget * factor);
}

std::string ExitStatus::Describe() const {
    if (exited)
        return "exit status " + std::to_string(code);
    if (signaled)
        return std::string("killed by signal ") + strsignal(signal);
    return "not ended";
}

Terminal::Terminal(const LaunchOptions& o) : screen_(o.rows, o.cols), term_(o.term) {
    if (access(o.program.c_str(), X_OK) != 0)
        throw std::runtime_error("cannot execute " + o.program);
    const std::vector<std::string> env = BuildEnvironment(o);
    struct winsize ws {};
    ws.ws_row = static_cast<unsigned short>(o.rows);
    ws.ws_col = static_cast<unsigned short>(o.cols);
    started_ = lastOutput_ = Clock::now();
    pid_ = forkpty(&master_, nullptr, nullptr, &ws);
    if (pid_ < 0)
        throw std::runtime_error(std::string("forkpty: ") + strerror(errno));
    if (pid_ == 0)
        ExecChild(o, env);
    fcntl(master_, F_SETFL, fcntl(master_, F_GETFL) | O_NONBLOCK);
    fcntl(master_, F_SETFD, FD_CLOEXEC);
    pidfd_ = int(syscall(SYS_pidfd_open, pid_, 0));
}

Terminal::~Terminal() {
    if (!exit_ && pid_ > 0) {
        kill(pid_, SIGKILL);
        Reap(true);
    }
    CheckSanitizerReport(pid_);
    if (pidfd_ >= 0)
        close(pidfd_);
    if (master_ >= 0)
        close(master_);
}

void Terminal::Send(std::string_view bytes) {
    size_t done = 0;
    while (done < bytes.size()) {
        ssize_t n = write(master_, bytes.data() + done, bytes.size() - done);
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0 && errno == EAGAIN) {
            Pump(10ms); // the program is not reading; drain its output so it can make progress
            continue;
        }
        if (n < 0)
            throw std::runtime_error(std::string("write to pty: ") + strerror(errno));
        done += size_t(n);
    }
}

void Terminal::Key(const std::string& name) {
    Send(KeyBytes(term_.value_or(""), name));
}

bool Terminal::Pump(Clock::duration timeout) {
    bool got = false;
    const auto deadline = Clock::now() + timeout;
    for (;;) {
        pollfd fds[2];
        nfds_t n = 0;
        int pidIndex = -1;
        if (!eof_)
            fds[n++] = {master_, POLLIN, 0};
        if (pidfd_ >= 0 && !exit_) {
            pidIndex = int(n);
            fds[n++] = {pidfd_, POLLIN, 0};
        }
        if (n == 0) {
            if (!exit_ && !got) // no pidfd: nothing to wait on but time
                poll(nullptr, 0, std::min(20, PollMs(deadline - Clock::now())));
            return got;
        }
        // Once something arrived, only drain what is already there.
        int r = poll(fds, n, got ? 0 : PollMs(deadline - Clock::now()));
        if (r < 0 && errno == EINTR)
            continue;
        if (r <= 0)
            return got;
        if (!eof_ && fds[0].revents != 0) {
            char buf[65536];
            ssize_t len = read(master_, buf, sizeof buf);
            if (len > 0) {
                output_.append(buf, size_t(len));
                screen_.Feed(std::string_view(buf, size_t(len)));
                lastOutput_ = Clock::now();
                got = true;
                continue;
            }
            if (len == 0 || (len < 0 && errno == EIO))
                eof_ = true; // every holder of the slave side has gone
        }
        if (pidIndex >= 0 && (fds[pidIndex].revents & POLLIN)) {
            Reap(false);
            return got; // the caller decides what the end means
        }
    }
}

bool Terminal::WaitFor(const std::function<bool()>& done, Clock::duration timeout) {
    const auto deadline = Clock::now() + Scaled(timeout);
    for (;;) {
        if (done())
            return true;
        auto left = deadline - Clock::now();
        if (left <= Clock::duration::zero())
            return false;
        // Nothing more can arrive once the program is gone and its output drained.
        if (!Pump(left) && eof_ && !Running())
            return done();
    }
}

bool Terminal::WaitForText(std::string_view text, Clock::duration timeout) {
    return WaitFor([&] { return screen_.Contains(text); }, timeout);
}

bool Terminal::WaitForTextGone(std::string_view text, Clock::duration timeout) {
    return WaitFor([&] { return !screen_.Contains(text); }, timeout);
}

bool Terminal::WaitForTextSettled(std::string_view text, Clock::duration quiet, Clock::duration timeout) {
    return WaitForText(text, timeout) && WaitQuiet(quiet, timeout);
}

bool Terminal::WaitQuiet(Clock::duration quiet, Clock::duration timeout) {
    // A slower build also pauses longer in the middle of drawing a window.
    quiet = Scaled(quiet);
    const auto from = Clock::now();
    const auto deadline = from + Scaled(timeout);
    for (;;) {
        const auto until = std::max(lastOutput_, from) + quiet;
        const auto now = Clock::now();
        if (now >= until)
            return true;
        if (now >= deadline)
            return false;
        if (!Pump(std::min(until, deadline) - now) && eof_)
            return true;
    }
}

void Terminal::Reap(bool block) {
    if (exit_ || pid_ <= 0)
        return;
    int status = 0;
    ExitStatus es;
    pid_t r;
    do
        r = wait4(pid_, &status, block ? 0 : WNOHANG, &es.usage);
    while (r < 0 && errno == EINTR);
    if (r != pid_)
        return;
    if (WIFEXITED(status)) {
        es.exited = true;
        es.code = WEXITSTATUS(status);
    } else if (WIFSIGNALED(status)) {
        es.signaled = true;
        es.signal = WTERMSIG(status);
    }
    exit_ = es;
}

bool Terminal::Running() {
    Reap(false);
    return !exit_;
}

std::optional<ExitStatus> Terminal::WaitExit(Clock::duration timeout) {
    const auto deadline = Clock::now() + Scaled(timeout);
    while (Running()) {
        auto left = deadline - Clock::now();
        if (left <= Clock::duration::zero())
            return std::nullopt;
        // Without a pidfd nothing signals the end itself: re-check at least every 20 ms.
        Pump(pidfd_ >= 0 ? left : std::min<Clock::duration>(left, 20ms));
    }
    while (Pump(0ms)) { // the last output written before the end
    }
    return exit_;
}

void Terminal::Signal(int sig) {
    if (!exit_ && pid_ > 0)
        kill(pid_, sig);
}

void Terminal::Resize(int rows, int cols) {
    screen_.Resize(rows, cols);
    struct winsize ws {};
    ws.ws_row = static_cast<unsigned short>(rows);
    ws.ws_col = static_cast<unsigned short>(cols);
    ioctl(master_, TIOCSWINSZ, &ws);
}

struct termios Terminal::Modes() const {
    struct termios t {};
    tcgetattr(master_, &t);
    return t;
}

} // namespace e2e
