// Host selection from the process environment; the one place that creates the default simulated host.
#include "platform/Backend.h"

#include "platform/HostRoot.h"
#include "platform/Spawn.h"
#include "platform/linux/Sandbox.h"

#include <BuildConfig.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace Platform {
namespace {

// The simhost program: next to the console in the build tree, in the package's private directory once
// installed. Naming the build-tree path when neither exists gives the likelier hint.
std::string FindSimHostProgram(const std::string& consoleDir) {
    const std::string installed = consoleDir + "/" + BuildConfig::kSimHostDirFromConsole + "/simhost";
    for (const std::string& program : {consoleDir + "/simhost", installed})
        if (access(program.c_str(), X_OK) == 0)
            return program;
    return consoleDir + "/simhost";
}

// Creating the host through the simhost program keeps its file-system code out of the console; simhost
// finds the tools and the PAM module it installs next to itself.
void CreateDefaultSimHost(const std::string& dir) {
    char exe[PATH_MAX];
    ssize_t n = readlink("/proc/self/exe", exe, sizeof exe - 1);
    if (n <= 0)
        throw std::runtime_error(std::string("cannot find the console's own directory: ") +
                                 std::strerror(errno));
    std::string self(exe, static_cast<size_t>(n));
    std::string program = FindSimHostProgram(self.substr(0, self.rfind('/')));

    std::string init = "init", target = dir;
    char* argv[] = {program.data(), init.data(), target.data(), nullptr};
    char* envp[] = {nullptr};
    int null = open("/dev/null", O_RDWR | O_CLOEXEC);
    pid_t pid = Spawn(program.c_str(), argv, envp, null, null, 2);
    int spawnErrno = errno;
    if (null >= 0)
        close(null);
    if (pid < 0)
        throw std::runtime_error("cannot run " + program + ": " + std::strerror(spawnErrno));
    int status = 0;
    while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
    }
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        throw std::runtime_error(program + " init failed");
}

} // namespace

std::string SelectHostFromEnvironment() {
    HostEnvironment env{std::getenv("TARN_HOST"), std::getenv("XDG_STATE_HOME"), std::getenv("HOME")};
    std::string error = SelectHost(env, CreateDefaultSimHost);
    if (error.empty() && !IsSimulatedHost()) {
        std::string refusal = Linux::SandboxRefusal();
        if (!refusal.empty())
            return "TARN_HOST=linux " + refusal;
    }
    return error;
}

} // namespace Platform
