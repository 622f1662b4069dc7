// Running a host program as a child process and waiting for it: the only way the console starts children.
// Program paths are real file-system paths; callers map host paths with Platform::HostPath.
#pragma once

#include <cstdint>
#include <string>

namespace Tarn {

// Every wrapper keeps at most this many bytes of each captured stream, in a buffer one byte larger.
inline constexpr int32_t kCaptureCapacity = 255;

// Runs `path` with the null-terminated `argv` (argv[0] is the name the child sees) and the one-entry
// environment "PYTHONHOME=/". Optional captures: on entry *len is the buffer's capacity, on return the
// number of bytes read (negative after a read error); nothing is NUL-terminated. Optional `stdinText` is
// written to the child's standard input, which is then closed. With `timeoutSeconds` > 0 the child is
// killed once that time has passed. Output is read only after the child has ended, so a child that fills
// a pipe blocks until its time-out.
// Returns the exit code 0-255, or -1 on any failure (no pipe, no start, killed, ended by a signal).
int RunProcess(const char* path, const char* const argv[], char* stdoutBuf, int32_t* stdoutLen,
               char* stderrBuf, int32_t* stderrLen, const char* stdinText, int32_t stdinLen,
               int32_t timeoutSeconds);

// "sh -c line" through the host's /bin/sh; nothing captured, no time-out.
int RunShellCommand(const std::string& line);

// Runs with both streams captured and logs success or the failure with both outputs.
int RunLoggedCommand(const char* path, const char* const argv[]);

} // namespace Tarn
