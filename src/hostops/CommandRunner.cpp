// RunProcess and the two generic wrappers around it.
#include "hostops/CommandRunner.h"

#include "core/Log.h"
#include "hostops/CommandText.h"
#include "platform/HostRoot.h"
#include "platform/Spawn.h"

#include <cerrno>
#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Tarn {
namespace {

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
// blocked while writing and a pending one is discarded afterwards.
void WriteInput(int fd, const char* text, int32_t length) {
    sigset_t pipeSet, saved;
    sigemptyset(&pipeSet);
    sigaddset(&pipeSet, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &pipeSet, &saved);
    bool brokenPipe = false;
    int32_t done = 0;
    while (done < length) {
        ssize_t n = write(fd, text + done, static_cast<size_t>(length - done));
        if (n < 0) {
            if (errno == EAGAIN || errno == EINTR)
                continue;
            brokenPipe = errno == EPIPE;
            break;
        }
        if (n == 0)
            break;
        done += static_cast<int32_t>(n);
    }
    if (brokenPipe && !sigismember(&saved, SIGPIPE)) {
        timespec zero{};
        while (sigtimedwait(&pipeSet, nullptr, &zero) < 0 && errno == EINTR) {
        }
    }
    pthread_sigmask(SIG_SETMASK, &saved, nullptr);
}

void ReadOutput(int fd, char* buffer, int32_t* length) {
    int32_t capacity = *length;
    int32_t done = 0;
    while (done < capacity) {
        ssize_t n = read(fd, buffer + done, static_cast<size_t>(capacity - done));
        if (n < 0) {
            if (errno == EAGAIN || errno == EINTR)
                continue;
            *length = static_cast<int32_t>(n);
            return;
        }
        if (n == 0)
            break;
        done += static_cast<int32_t>(n);
    }
    *length = done;
}

int WaitForChild(pid_t pid, int32_t timeoutSeconds) {
    int status = -1;
    if (timeoutSeconds <= 0) {
        while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
        }
        return status;
    }
    // The budget is a 32-bit product on purpose: it wraps exactly like the host's own runner.
    auto budget = static_cast<int32_t>(static_cast<int64_t>(timeoutSeconds) * 1000000);
    for (;;) {
        if (waitpid(pid, &status, WNOHANG) != 0)
            break;
        usleep(kPollMicroseconds);
        budget -= kPollMicroseconds;
        if (budget <= 0) {
            Log(LOG_WARNING, "Killing process because %d seconds timeout expired", timeoutSeconds);
            kill(pid, SIGKILL);
            // Deliberately not reaped: the status stays -1 and the run counts as failed.
            break;
        }
    }
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

    if (stdinText != nullptr && stdinLen > 0)
        WriteInput(input.Write(), stdinText, stdinLen);
    input.CloseWrite();

    int status = WaitForChild(pid, timeoutSeconds);

    if (stdoutBuf != nullptr && stdoutLen != nullptr)
        ReadOutput(output.Read(), stdoutBuf, stdoutLen);
    if (stderrBuf != nullptr && stderrLen != nullptr)
        ReadOutput(errors.Read(), stderrBuf, stderrLen);

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
