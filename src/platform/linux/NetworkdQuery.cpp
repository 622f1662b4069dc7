// Running networkctl for one link: its output is read with a time limit, so a hung bus cannot stall the
// console's first paint for long.
#include "platform/linux/NetworkdQuery.h"

#include "platform/Spawn.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Platform::Linux {
namespace {

constexpr const char* kNetworkctl = "/usr/bin/networkctl";
constexpr int kLimitMs = 1000;

struct Fd {
    int fd = -1;
    ~Fd() {
        if (fd >= 0)
            close(fd);
    }
};

} // namespace

std::optional<std::string> DescribeNetworkdLink(int index, const std::string& name, std::string& error) {
    const std::string state = "/run/systemd/netif/links/" + std::to_string(index);
    if (access(state.c_str(), F_OK) != 0 || access(kNetworkctl, X_OK) != 0)
        return std::nullopt;
    int pipeFds[2];
    if (pipe2(pipeFds, O_CLOEXEC) != 0) {
        error = std::string("pipe: ") + std::strerror(errno);
        return std::nullopt;
    }
    Fd readEnd{pipeFds[0]}, writeEnd{pipeFds[1]}, devNull{open("/dev/null", O_RDWR | O_CLOEXEC)};
    std::string arg0 = "networkctl", arg1 = "--json=short", arg2 = "status", arg3 = name;
    char* argv[] = {arg0.data(), arg1.data(), arg2.data(), arg3.data(), nullptr};
    std::string env0 = "PYTHONHOME=/";
    char* envp[] = {env0.data(), nullptr};
    pid_t pid = Spawn(kNetworkctl, argv, envp, devNull.fd, writeEnd.fd, devNull.fd);
    if (pid < 0) {
        error = std::string("networkctl: ") + std::strerror(errno);
        return std::nullopt;
    }
    close(writeEnd.fd);
    writeEnd.fd = -1;
    std::string out;
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(kLimitMs);
    for (;;) {
        auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline -
                                                                          std::chrono::steady_clock::now());
        pollfd p{readEnd.fd, POLLIN, 0};
        if (left.count() <= 0 || poll(&p, 1, static_cast<int>(left.count())) == 0) {
            kill(pid, SIGKILL);
            error = "networkctl did not answer within " + std::to_string(kLimitMs) + " ms";
            break;
        }
        char buffer[4096];
        ssize_t n = read(readEnd.fd, buffer, sizeof buffer);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            break;
        out.append(buffer, static_cast<size_t>(n));
    }
    int status = 0;
    while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
    }
    if (!error.empty())
        return std::nullopt;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        error = "networkctl status " + name + " failed";
        return std::nullopt;
    }
    return out;
}

} // namespace Platform::Linux
