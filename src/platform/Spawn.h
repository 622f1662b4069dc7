// The fork-and-exec primitive: the one place a child process is created.
#pragma once

#include <sys/types.h>

namespace Platform {

// Starts the program at `path` (a real file-system path: callers map host paths with HostPath) with the
// null-terminated `argv` and `envp`, giving it exactly three descriptors: `stdinFd`, `stdoutFd` and
// `stderrFd` become its 0, 1 and 2; every other descriptor is closed. The child starts with an empty signal
// mask and every signal at its default action, whatever the caller has blocked or ignored.
// Returns the child's pid, or -1 with errno set (a missing program fails here with ENOENT).
pid_t Spawn(const char* path, char* const argv[], char* const envp[], int stdinFd, int stdoutFd,
            int stderrFd);

} // namespace Platform
