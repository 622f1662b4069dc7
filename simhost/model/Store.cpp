// Locked, atomic access to host.json.
#include "simhost/model/Store.h"

#include "platform/TextFile.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace SimHost {
namespace {

std::string ErrnoText(const std::string& what, const std::string& path) {
    return what + " " + path + ": " + std::strerror(errno);
}

// RAII flock on DIR/etc/simhost/host.json.lock.
class FileLock {
public:
    FileLock(const std::string& dir, int operation) {
        std::string path = StatePath(dir) + ".lock";
        fd_ = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
        if (fd_ < 0)
            throw StoreError(ErrnoText("cannot open lock file", path));
        while (flock(fd_, operation) != 0) {
            if (errno != EINTR) {
                int saved = errno;
                close(fd_);
                errno = saved;
                throw StoreError(ErrnoText("cannot lock", path));
            }
        }
    }
    ~FileLock() { close(fd_); } // closing releases the lock
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

private:
    int fd_ = -1;
};

Json ReadUnlocked(const std::string& dir) {
    std::string path = StatePath(dir);
    std::string text;
    if (!Platform::ReadTextFile(path, text))
        throw StoreError("cannot read simulated host state " + path + ": " + std::strerror(errno));
    Json state = Json::parse(text, nullptr, false);
    if (state.is_discarded() || !state.is_object())
        throw StoreError("corrupt simulated host state " + path + ": not a JSON object");
    return state;
}

void WriteUnlocked(const std::string& dir, const Json& state) {
    std::string path = StatePath(dir);
    std::string tmp = path + ".tmp." + std::to_string(getpid());
    std::string text = state.dump(2) + "\n";
    int fd = open(tmp.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (fd < 0)
        throw StoreError(ErrnoText("cannot write", tmp));
    size_t done = 0;
    while (done < text.size()) {
        ssize_t n = write(fd, text.data() + done, text.size() - done);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0) {
            std::string err = ErrnoText("cannot write", tmp);
            close(fd);
            unlink(tmp.c_str());
            throw StoreError(err);
        }
        done += static_cast<size_t>(n);
    }
    if (fsync(fd) != 0 || close(fd) != 0) {
        unlink(tmp.c_str());
        throw StoreError(ErrnoText("cannot flush", tmp));
    }
    if (rename(tmp.c_str(), path.c_str()) != 0) {
        std::string err = ErrnoText("cannot replace", path);
        unlink(tmp.c_str());
        throw StoreError(err);
    }
    std::string folder = path.substr(0, path.rfind('/'));
    int dfd = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (dfd >= 0) {
        fsync(dfd);
        close(dfd);
    }
}

} // namespace

std::string StatePath(const std::string& dir) {
    return dir + "/etc/simhost/host.json";
}

Json Load(const std::string& dir) {
    FileLock lock(dir, LOCK_SH);
    return ReadUnlocked(dir);
}

Json Transact(const std::string& dir, const std::function<void(Json&)>& change) {
    FileLock lock(dir, LOCK_EX);
    Json state = ReadUnlocked(dir);
    change(state);
    WriteUnlocked(dir, state);
    return state;
}

void Save(const std::string& dir, const Json& state) {
    FileLock lock(dir, LOCK_EX);
    WriteUnlocked(dir, state);
}

} // namespace SimHost
