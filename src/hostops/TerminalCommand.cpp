// The interactive variant of the command runner, on the platform spawn primitive.
#include "hostops/TerminalCommand.h"

#include "core/Log.h"
#include "platform/Spawn.h"

#include <cerrno>
#include <sys/wait.h>

extern char** environ;

namespace Tarn {

int RunOnTerminal(const char* path, const char* const argv[]) {
    pid_t pid = Platform::Spawn(path, const_cast<char* const*>(argv), environ, 0, 1, 2);
    if (pid < 0) {
        LogErrno("posix_spawn");
        return -1;
    }
    int status = 0;
    while (waitpid(pid, &status, 0) < 0) {
        if (errno != EINTR) {
            LogErrno("waitpid");
            return -1;
        }
    }
    if (!WIFEXITED(status)) {
        Log(LOG_ERR, "Run Command did not terminate normally");
        return -1;
    }
    return WEXITSTATUS(status);
}

} // namespace Tarn
