// posix_spawn with three descriptors, a clean signal state and a caller-given environment.
#include "platform/Spawn.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

namespace Platform {
namespace {

// Owns a descriptor duplicated to 3 or above, so that the dup2 onto 0, 1 and 2 never overwrites a source
// that is itself one of the targets.
class HighFd {
public:
    explicit HighFd(int fd) : fd_(fcntl(fd, F_DUPFD_CLOEXEC, 3)) {}
    ~HighFd() {
        if (fd_ >= 0)
            close(fd_);
    }
    HighFd(const HighFd&) = delete;
    HighFd& operator=(const HighFd&) = delete;
    int Get() const { return fd_; }

private:
    int fd_;
};

class FileActions {
public:
    FileActions() { ok_ = posix_spawn_file_actions_init(&actions_) == 0; }
    ~FileActions() {
        if (ok_)
            posix_spawn_file_actions_destroy(&actions_);
    }
    FileActions(const FileActions&) = delete;
    FileActions& operator=(const FileActions&) = delete;
    bool Ok() const { return ok_; }
    posix_spawn_file_actions_t* Get() { return &actions_; }

private:
    posix_spawn_file_actions_t actions_;
    bool ok_;
};

class Attributes {
public:
    Attributes() { ok_ = posix_spawnattr_init(&attr_) == 0; }
    ~Attributes() {
        if (ok_)
            posix_spawnattr_destroy(&attr_);
    }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;
    bool Ok() const { return ok_; }
    posix_spawnattr_t* Get() { return &attr_; }

private:
    posix_spawnattr_t attr_;
    bool ok_;
};

} // namespace

pid_t Spawn(const char* path, char* const argv[], char* const envp[], int stdinFd, int stdoutFd,
            int stderrFd) {
    HighFd in(stdinFd), out(stdoutFd), err(stderrFd);
    if (in.Get() < 0 || out.Get() < 0 || err.Get() < 0)
        return -1;

    FileActions actions;
    Attributes attr;
    if (!actions.Ok() || !attr.Ok()) {
        errno = ENOMEM;
        return -1;
    }
    int rc = posix_spawn_file_actions_adddup2(actions.Get(), in.Get(), 0);
    if (rc == 0)
        rc = posix_spawn_file_actions_adddup2(actions.Get(), out.Get(), 1);
    if (rc == 0)
        rc = posix_spawn_file_actions_adddup2(actions.Get(), err.Get(), 2);
    if (rc == 0)
        rc = posix_spawn_file_actions_addclosefrom_np(actions.Get(), 3);

    // The console blocks its signals in every thread; a child must not inherit that mask.
    sigset_t empty, all;
    sigemptyset(&empty);
    sigfillset(&all);
    if (rc == 0)
        rc = posix_spawnattr_setsigmask(attr.Get(), &empty);
    if (rc == 0)
        rc = posix_spawnattr_setsigdefault(attr.Get(), &all);
    if (rc == 0)
        rc = posix_spawnattr_setflags(attr.Get(), POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);

    pid_t pid = -1;
    if (rc == 0)
        rc = posix_spawn(&pid, path, actions.Get(), attr.Get(), argv, envp);
    if (rc != 0) {
        errno = rc;
        return -1;
    }
    return pid;
}

} // namespace Platform
