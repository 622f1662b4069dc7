// Command: argument vectors and capture buffers around RunProcess.
#include "hostops/Command.h"

#include "hostops/CommandRunner.h"
#include "hostops/KelpCmd.h"
#include "platform/HostRoot.h"

#include <cstdint>

namespace Tarn {
namespace {

std::string Captured(const std::vector<char>& buffer, int32_t length) {
    return length > 0 ? std::string(buffer.data(), static_cast<size_t>(length)) : std::string();
}

} // namespace

CommandResult Run(const Command& command) {
    std::vector<const char*> argv;
    for (const std::string& arg : command.argv)
        argv.push_back(arg.c_str());
    argv.push_back(nullptr);
    const std::string path = Platform::HostPath(command.program);
    // The fallback's second run may fill 256 bytes; one more keeps room for a terminator.
    std::vector<char> out(kCaptureCapacity + 2), err(kCaptureCapacity + 2);
    int32_t outLen = kCaptureCapacity, errLen = kCaptureCapacity;
    char* outBuf = command.capture ? out.data() : nullptr;
    char* errBuf = command.capture ? err.data() : nullptr;
    int32_t* outLenPtr = command.capture ? &outLen : nullptr;
    int32_t* errLenPtr = command.capture ? &errLen : nullptr;
    const char* input = command.input.empty() ? nullptr : command.input.c_str();
    const auto inputLen = static_cast<int32_t>(command.input.size());

    CommandResult result;
    if (command.kelpUserFallback)
        result.exitCode = RunKelpCmdWithFallback(path.c_str(), argv.data(), outBuf, outLenPtr, errBuf,
                                                 errLenPtr, input, inputLen);
    else
        result.exitCode = RunProcess(path.c_str(), argv.data(), outBuf, outLenPtr, errBuf, errLenPtr, input,
                                     inputLen, command.timeoutSeconds);
    if (command.capture) {
        result.out = Captured(out, outLen);
        result.err = Captured(err, errLen);
    }
    return result;
}

} // namespace Tarn
