// Locked, atomic access to host.json.
#include "simhost/model/Store.h"

#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace SimHost {
namespace {

std::string ErrnoText(const std::string& what, const std::string& path) {
    return what + " " + path + ": " + std::strerror(errno);
}

// The state holds passwords: its text never stays behind in freed memory.
void Wipe(std::string& text) {
    explicit_bzero(text.data(), text.capacity());
    text.clear();
}

// RAII flock on DIR/etc/simhost/host.json.lock. A shared lock needs only read access, so a user who may
// read the state but not change it can still read it; where no lock file exists and none can be made, such a
// reader goes without (every change is an atomic rename, so it still sees one whole state).
class FileLock {
public:
    FileLock(const std::string& dir, int operation) {
        std::string path = StatePath(dir) + ".lock";
        if (operation == LOCK_SH)
            fd_ = open(path.c_str(), O_RDONLY | O_CLOEXEC);
        if (fd_ < 0)
            fd_ = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
        if (fd_ < 0 && operation == LOCK_SH && (errno == EACCES || errno == EROFS))
            return;
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
    ~FileLock() {
        if (fd_ >= 0)
            close(fd_); // closing releases the lock
    }
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

private:
    int fd_ = -1;
};

// The whole file in one buffer sized up front, so that no copy of it is left by a growing string.
bool ReadWhole(const std::string& path, std::string& text) {
    int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return false;
    struct stat st {};
    if (fstat(fd, &st) == 0 && st.st_size > 0)
        text.reserve(static_cast<size_t>(st.st_size) + 1);
    char chunk[4096];
    for (;;) {
        ssize_t n = read(fd, chunk, sizeof chunk);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0) {
            int saved = errno;
            explicit_bzero(chunk, sizeof chunk);
            close(fd);
            errno = saved;
            return n == 0;
        }
        if (text.size() + static_cast<size_t>(n) > text.capacity()) { // the file grew meanwhile
            std::string larger;
            larger.reserve(2 * text.capacity() + static_cast<size_t>(n));
            larger = text;
            Wipe(text);
            text.swap(larger);
        }
        text.append(chunk, static_cast<size_t>(n));
    }
}

Json ReadUnlocked(const std::string& dir) {
    std::string path = StatePath(dir);
    std::string text;
    if (!ReadWhole(path, text)) {
        int saved = errno;
        Wipe(text);
        throw StoreError("cannot read simulated host state " + path + ": " + std::strerror(saved));
    }
    Json state = Json::parse(text, nullptr, false);
    Wipe(text);
    if (state.is_discarded() || !state.is_object())
        throw StoreError("corrupt simulated host state " + path + ": not a JSON object");
    return state;
}

// Temp files of writers that were killed mid-change. Only a writer holding the exclusive lock creates one,
// so while we hold it every one of them is stale.
void RemoveStaleTempFiles(const std::string& path) {
    std::string folder = path.substr(0, path.rfind('/'));
    std::string prefix = path.substr(folder.size() + 1) + ".tmp.";
    DIR* d = opendir(folder.c_str());
    if (d == nullptr)
        return;
    while (dirent* entry = readdir(d))
        if (std::strncmp(entry->d_name, prefix.c_str(), prefix.size()) == 0)
            unlinkat(dirfd(d), entry->d_name, 0);
    closedir(d);
}

// Closes the temp file on every way out, thrown or not.
struct FdCloser {
    int fd;
    ~FdCloser() {
        if (fd >= 0)
            close(fd);
    }
};

void WriteUnlocked(const std::string& dir, const Json& state) {
    std::string path = StatePath(dir);
    // Text first: a value JSON cannot carry (a string that is not UTF-8) fails here, before any file is
    // opened; the state on disk is untouched then, so the message names the value, not the file.
    std::string text;
    try {
        text = state.dump(2);
    } catch (const Json::exception& e) {
        throw StoreError("cannot store the change in " + path + ": " + e.what());
    }
    text.push_back('\n');
    struct WipeAtEnd {
        std::string& text;
        ~WipeAtEnd() { Wipe(text); }
    } wipeText{text};
    RemoveStaleTempFiles(path);
    std::string tmp = path + ".tmp." + std::to_string(getpid());
    // Readable by its owner only: it holds the users' passwords.
    FdCloser file{open(tmp.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600)};
    if (file.fd < 0)
        throw StoreError(ErrnoText("cannot write", tmp));
    size_t done = 0;
    while (done < text.size()) {
        ssize_t n = write(file.fd, text.data() + done, text.size() - done);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0) {
            std::string err = ErrnoText("cannot write", tmp);
            unlink(tmp.c_str());
            throw StoreError(err);
        }
        done += static_cast<size_t>(n);
    }
    const int fd = file.fd;
    file.fd = -1; // close's own result matters: a failed close may be a lost write
    const bool synced = fsync(fd) == 0;
    const bool closed = close(fd) == 0; // closed even when the sync failed
    if (!synced || !closed) {
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

Json Transact(const std::string& dir, const std::function<void(Json&)>& change, LastWrite* last) {
    FileLock lock(dir, LOCK_EX);
    struct stat now {};
    const bool unchanged = last != nullptr && last->known && stat(StatePath(dir).c_str(), &now) == 0 &&
                           SameFile(now, last->status);
    Json state = unchanged ? last->state : ReadUnlocked(dir);
    try {
        change(state);
    } catch (const Json::exception& e) {
        WipePasswords(state);
        throw StoreError(InvalidState(dir, e.what()));
    } catch (...) {
        WipePasswords(state);
        throw;
    }
    WriteUnlocked(dir, state);
    if (last != nullptr) {
        last->Forget();
        last->known = stat(StatePath(dir).c_str(), &last->status) == 0;
        if (last->known)
            last->state = state;
    }
    return state;
}

bool SameFile(const struct stat& a, const struct stat& b) {
    // Every change renames a new file into place: another inode, size or time is another state.
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino && a.st_size == b.st_size &&
           a.st_mtim.tv_sec == b.st_mtim.tv_sec && a.st_mtim.tv_nsec == b.st_mtim.tv_nsec;
}

LastWrite::~LastWrite() {
    WipePasswords(state);
}

void LastWrite::Forget() {
    WipePasswords(state);
    state = Json();
    known = false;
}

std::string InvalidState(const std::string& dir, const std::string& what) {
    return "invalid simulated host state " + StatePath(dir) + ": " + what;
}

void WipePasswords(Json& state) {
    auto users = state.find("users");
    if (users == state.end() || !users->is_array())
        return;
    for (auto& user : *users) {
        if (!user.is_object())
            continue;
        auto password = user.find("password");
        if (password != user.end() && password->is_string())
            Wipe(password->get_ref<std::string&>());
    }
}

void DropUsers(Json& state) {
    WipePasswords(state);
    state.erase("users");
}

void Save(const std::string& dir, const Json& state) {
    FileLock lock(dir, LOCK_EX);
    WriteUnlocked(dir, state);
}

} // namespace SimHost
