// Host programs with C++ signatures: a command is its host path and arguments, its result the exit code and
// what it wrote. Built on RunProcess, with the capture limit and the kelp-cmd user fallback inside.
#pragma once

#include <string>
#include <vector>

namespace Tarn {

struct Command {
    std::string program{};           // host path ("/bin/kelp-cmd"), mapped through the host root
    std::vector<std::string> argv{}; // argv[0] is the name the child sees
    bool capture = false;            // keep up to kCaptureCapacity bytes of each stream
    std::string input{};             // written to the child's standard input when not empty
    int timeoutSeconds = 0;          // 0: none
    // kelp-cmd only (argv "kelp-cmd", "-U", user, command ...): when the tool answers 255 (it could not act
    // as that user), run once more as the service account.
    bool kelpUserFallback = false;
};

struct CommandResult {
    int exitCode = -1; // -1: not started, killed or ended by a signal
    std::string out{};
    std::string err{};
    bool Succeeded() const { return exitCode == 0; }
};

CommandResult Run(const Command& command);

} // namespace Tarn
