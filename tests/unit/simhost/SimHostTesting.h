// Helpers for the simulated-host tests: a temporary directory, the build directory and running a
// built program with its output captured.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace SimHostTesting {

// A fresh directory under the system temp dir, removed with everything in it.
class TempDir {
public:
    TempDir() {
        std::string pattern = (std::filesystem::temp_directory_path() / "simhost-test-XXXXXX").string();
        path_ = mkdtemp(pattern.data());
    }
    ~TempDir() {
        std::error_code ec;
        std::filesystem::remove_all(path_, ec);
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    const std::string& Path() const { return path_; }

private:
    std::string path_;
};

// TARN_BUILD_DIR (set by ctest), else the folder of the test program, which the build puts at the top.
inline std::string BuildDir() {
    if (const char* dir = std::getenv("TARN_BUILD_DIR"); dir && *dir)
        return dir;
    return std::filesystem::read_symlink("/proc/self/exe").parent_path().string();
}

struct Result {
    int code = -1; // exit code; -1 when the program did not exit normally
    std::string out, err;
};

inline std::string Drain(int fd) {
    std::string text;
    char buf[4096];
    for (ssize_t n; (n = read(fd, buf, sizeof buf)) > 0;)
        text.append(buf, static_cast<size_t>(n));
    close(fd);
    return text;
}

// Runs `path` with argument vector `argv` (element 0 included) and an environment without PATH, as the
// console does. Output is small in these tests, so reading one stream after the other cannot block.
inline Result RunProgram(const std::string& path, const std::vector<std::string>& argv) {
    int out[2], err[2];
    if (pipe(out) != 0 || pipe(err) != 0)
        return {};
    pid_t pid = fork();
    if (pid == 0) {
        dup2(out[1], 1);
        dup2(err[1], 2);
        close(out[0]), close(out[1]), close(err[0]), close(err[1]);
        std::vector<char*> args;
        for (const auto& a : argv)
            args.push_back(const_cast<char*>(a.c_str()));
        args.push_back(nullptr);
        char env0[] = "PYTHONHOME=/";
        char* envp[] = {env0, nullptr};
        execve(path.c_str(), args.data(), envp);
        _exit(127);
    }
    close(out[1]);
    close(err[1]);
    Result r;
    r.out = Drain(out[0]);
    r.err = Drain(err[0]);
    int status = 0;
    waitpid(pid, &status, 0);
    r.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return r;
}

} // namespace SimHostTesting
