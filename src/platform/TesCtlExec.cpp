// Blocking command run of the host-control library, on the spawn primitive.
#include "platform/TesCtlExec.h"

#include "common/TextFile.h"
#include "platform/HostCtlException.h"
#include "platform/HostRoot.h"
#include "platform/Spawn.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace TesCtl::Util {

std::vector<std::string> HostCommandWords(const std::string& commandLine) {
    std::vector<std::string> words = Common::SplitWords(commandLine);
    for (auto& word : words)
        if (word[0] == '/')
            word = Platform::HostPath(word);
    return words;
}

int TesCtl_Exec(const std::string& commandLine, bool, bool, bool) {
    std::vector<std::string> words = HostCommandWords(commandLine);
    if (words.empty())
        throw HostCtl::Lib::HostCtlException("empty command line");
    std::vector<char*> argv;
    for (auto& w : words)
        argv.push_back(w.data());
    argv.push_back(nullptr);
    char env0[] = "PYTHONHOME=/";
    char* envp[] = {env0, nullptr};

    int null = open("/dev/null", O_RDWR | O_CLOEXEC);
    if (null < 0)
        throw HostCtl::Lib::HostCtlException(std::string("cannot open /dev/null: ") + std::strerror(errno));
    pid_t pid = Platform::Spawn(argv[0], argv.data(), envp, null, null, null);
    int spawnErrno = errno;
    close(null);
    if (pid < 0)
        throw HostCtl::Lib::HostCtlException("cannot run " + words[0] + ": " + std::strerror(spawnErrno));

    int status = 0;
    while (waitpid(pid, &status, 0) < 0) {
        if (errno != EINTR)
            throw HostCtl::Lib::HostCtlException(std::string("waiting for command failed: ") +
                                                 std::strerror(errno));
    }
    if (WIFEXITED(status))
        return WEXITSTATUS(status);
    return 128 + WTERMSIG(status);
}

} // namespace TesCtl::Util
