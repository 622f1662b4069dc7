// RunProcess and the two generic wrappers around it.
#include "hostops/CommandRunner.h"

#include "core/Log.h"
#include "hostops/CommandText.h"
#include "platform/HostRoot.h"
#include "platform/Spawn.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Tarn {
namespace {

using Clock = std::chrono::steady_clock;
constexpr int kPollMicroseconds = 20000;

// Both ends of one pipe; each end can be given up early.
class Pipe {
public:
    Pipe() {
        if (pipe2(fds_, O_CLOEXEC) != 0) {
            LogErrno("pipe2");
            fds_[0] = fds_[1] = -1;
        }
    }
    ~Pipe() {
        CloseRead();
        CloseWrite();
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    bool Ok() const { return fds_[0] >= 0; }
    int Read() const { return fds_[0]; }
    int Write() const { return fds_[1]; }
    void CloseRead() { CloseEnd(0); }
    void CloseWrite() { CloseEnd(1); }

private:
    void CloseEnd(int i) {
        if (fds_[i] >= 0)
            close(fds_[i]);
        fds_[i] = -1;
    }
    int fds_[2];
};

// A child that exits without reading its input must not take the console down with SIGPIPE: the signal is
// blocked while talking to the child and a pending one is discarded afterwards.
class SigpipeBlocked {
public:
    SigpipeBlocked() {
        sigemptyset(&pipeSet_);
        sigaddset(&pipeSet_, SIGPIPE);
        pthread_sigmask(SIG_BLOCK, &pipeSet_, &saved_);
    }
    ~SigpipeBlocked() {
        if (!sigismember(&saved_, SIGPIPE)) {
            timespec zero{};
            while (sigtimedwait(&pipeSet_, nullptr, &zero) >= 0 || errno == EINTR) {
            }
        }
        pthread_sigmask(SIG_SETMASK, &saved_, nullptr);
    }
    SigpipeBlocked(const SigpipeBlocked&) = delete;
    SigpipeBlocked& operator=(const SigpipeBlocked&) = delete;

private:
    sigset_t pipeSet_, saved_;
};

// One output stream of the child: the first `capacity` bytes go to the caller's buffer, the rest is read
// and dropped so that the child never blocks on a full pipe.
struct OutputStream {
    int fd = -1;
    char* buffer = nullptr; // null: nothing kept
    int32_t capacity = 0;
    int32_t done = 0;
    int32_t error = 0; // a read error's result, kept as the length
    bool open = false;

    bool Wanted() const { return buffer != nullptr && error == 0 && done < capacity; }

    void ReadSome() {
        char scratch[4096];
        bool keep = Wanted();
        char* into = keep ? buffer + done : scratch;
        size_t room = keep ? static_cast<size_t>(capacity - done) : sizeof scratch;
        ssize_t n = read(fd, into, room);
        if (n < 0) {
            if (errno == EAGAIN || errno == EINTR)
                return;
            if (keep)
                error = static_cast<int32_t>(n);
            open = false;
        } else if (n == 0) {
            open = false;
        } else if (keep) {
            done += static_cast<int32_t>(n);
        }
    }
    void Report(int32_t* length) const {
        if (length != nullptr && buffer != nullptr)
            *length = error != 0 ? error : done;
    }
};

// When the time-out kills the child. The budget is a 32-bit product on purpose (it wraps exactly like the
// host's own runner), spent in 20 ms steps; at least one step always passes.
Clock::time_point KillTime(Clock::time_point start, int32_t timeoutSeconds) {
    auto budget = static_cast<int32_t>(static_cast<int64_t>(timeoutSeconds) * 1000000);
    int64_t steps =
        budget <= 0 ? 1 : (static_cast<int64_t>(budget) + kPollMicroseconds - 1) / kPollMicroseconds;
    return start + std::chrono::microseconds(steps * kPollMicroseconds);
}

int PollTimeout(bool timed, Clock::time_point killAt, bool pidfd) {
    int ms = -1;
    if (timed) {
        auto left = std::chrono::ceil<std::chrono::milliseconds>(killAt - Clock::now()).count();
        ms = static_cast<int>(std::max<int64_t>(0, left));
    }
    // Without a process descriptor the child's end is noticed by asking every 20 ms.
    if (!pidfd && (ms < 0 || ms > kPollMicroseconds / 1000))
        ms = kPollMicroseconds / 1000;
    return ms;
}

void SetNonBlocking(int fd) {
    int flags = fcntl(fd, F_GETFL);
    if (flags >= 0)
        fcntl(fd, F_SETFL, flags | O_NONBLOCK);
}

// Talks to the running child: feeds its input, reads both outputs while it runs, and waits for its end or
// the time-out. Returns the wait status, or -1 when the child was killed or the wait failed.
int Communicate(pid_t pid, Pipe& input, const char* stdinText, int32_t stdinLen, OutputStream (&outs)[2],
                int32_t timeoutSeconds) {
    SigpipeBlocked noSigpipe;
    int pidfd = static_cast<int>(syscall(SYS_pidfd_open, pid, 0));
    const bool timed = timeoutSeconds > 0;
    const Clock::time_point killAt = KillTime(Clock::now(), timeoutSeconds);
    const int inputFd = input.Write();
    int32_t written = 0;
    bool feeding = inputFd >= 0 && stdinText != nullptr && stdinLen > 0;
    int status = -1;
    bool running = true;
    for (;;) {
        if (running) {
            int rc = waitpid(pid, &status, WNOHANG);
            if (rc != 0) {
                running = false;
                if (rc < 0)
                    status = -1;
            }
        }
        // Once the child has ended, only what the caller keeps is still read (until full or end of file).
        bool reading = false;
        for (const OutputStream& o : outs)
            reading = reading || (o.open && (running || o.Wanted()));
        if (!running && !reading)
            break;
        if (running && timed && Clock::now() >= killAt) {
            Log(LOG_WARNING, "Killing process because %d seconds timeout expired", timeoutSeconds);
            kill(pid, SIGKILL);
            // Reaped so that no zombie stays behind; the run still counts as failed.
            while (waitpid(pid, nullptr, 0) < 0 && errno == EINTR) {
            }
            running = false;
            status = -1;
            continue;
        }

        pollfd fds[4];
        nfds_t count = 0;
        int streamAt[2] = {-1, -1};
        for (int i = 0; i < 2; ++i) {
            if (outs[i].open && (running || outs[i].Wanted())) {
                streamAt[i] = static_cast<int>(count);
                fds[count++] = {outs[i].fd, POLLIN, 0};
            }
        }
        int inputAt = -1;
        if (feeding && running) {
            inputAt = static_cast<int>(count);
            fds[count++] = {inputFd, POLLOUT, 0};
        }
        // Readable once the child has ended; the wait at the top of the loop collects it.
        if (running && pidfd >= 0)
            fds[count++] = {pidfd, POLLIN, 0};
        int rc = poll(fds, count, running ? PollTimeout(timed, killAt, pidfd >= 0) : -1);
        if (rc < 0 && errno != EINTR) {
            LogErrno("poll");
            break;
        }
        if (rc <= 0)
            continue;
        for (int i = 0; i < 2; ++i)
            if (streamAt[i] >= 0 && fds[streamAt[i]].revents != 0)
                outs[i].ReadSome();
        if (inputAt >= 0 && fds[inputAt].revents != 0) {
            ssize_t n = write(inputFd, stdinText + written, static_cast<size_t>(stdinLen - written));
            if (n > 0)
                written += static_cast<int32_t>(n);
            else if (n == 0 || (errno != EAGAIN && errno != EINTR))
                feeding = false; // any other error ends the writing
            if (written >= stdinLen)
                feeding = false;
            if (!feeding)
                input.CloseWrite(); // the child sees end of input
        }
    }
    if (pidfd >= 0)
        close(pidfd);
    return status;
}

} // namespace

int RunProcess(const char* path, const char* const argv[], char* stdoutBuf, int32_t* stdoutLen,
               char* stderrBuf, int32_t* stderrLen, const char* stdinText, int32_t stdinLen,
               int32_t timeoutSeconds) {
    Pipe input, output, errors;
    if (!input.Ok() || !output.Ok() || !errors.Ok())
        return -1;

    static const char* const kEnvironment[] = {"PYTHONHOME=/", nullptr};
    pid_t pid = Platform::Spawn(path, const_cast<char* const*>(argv), const_cast<char* const*>(kEnvironment),
                                input.Read(), output.Write(), errors.Write());
    if (pid < 0) {
        LogErrno("posix_spawn");
        return -1;
    }
    input.CloseRead();
    output.CloseWrite();
    errors.CloseWrite();

    if (stdinText == nullptr || stdinLen <= 0)
        input.CloseWrite(); // the child sees end of input at once
    for (int fd : {input.Write(), output.Read(), errors.Read()})
        if (fd >= 0)
            SetNonBlocking(fd);
    OutputStream outs[2] = {
        {output.Read(), stdoutLen != nullptr ? stdoutBuf : nullptr, stdoutLen != nullptr ? *stdoutLen : 0},
        {errors.Read(), stderrLen != nullptr ? stderrBuf : nullptr, stderrLen != nullptr ? *stderrLen : 0}};
    outs[0].open = outs[1].open = true;

    int status = Communicate(pid, input, stdinText, stdinLen, outs, timeoutSeconds);
    input.CloseWrite();
    outs[0].Report(stdoutLen);
    outs[1].Report(stderrLen);

    // -1 (killed, or the wait failed) has its low bits set too, so it lands here as well.
    if ((status & 0x7f) != 0) {
        Log(LOG_ERR, "Run Command did not terminate normally");
        return -1;
    }
    return (status >> 8) & 0xff;
}

int RunShellCommand(const std::string& line) {
    const char* argv[] = {"sh", "-c", line.c_str(), nullptr};
    std::string shell = Platform::HostPath("/bin/sh");
    return RunProcess(shell.c_str(), argv, nullptr, nullptr, nullptr, nullptr, nullptr, 0, 0);
}

int RunLoggedCommand(const char* path, const char* const argv[]) {
    std::string command = JoinArgv(argv);
    char out[kCaptureCapacity + 1] = {};
    char err[kCaptureCapacity + 1] = {};
    int32_t outLen = kCaptureCapacity;
    int32_t errLen = kCaptureCapacity;
    int rc = RunProcess(path, argv, out, &outLen, err, &errLen, nullptr, 0, 0);
    out[outLen > 0 ? outLen : 0] = '\0';
    err[errLen > 0 ? errLen : 0] = '\0';
    if (rc == 0)
        Log(LOG_INFO, "Command \"%s\" succeeded", command.c_str());
    else
        Log(LOG_ERR, "Command \"%s\" failed (rc=%d): (stdout=%s, stderr=%s)", command.c_str(), rc, out, err);
    return rc;
}

} // namespace Tarn
