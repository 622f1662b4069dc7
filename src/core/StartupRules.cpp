// Pure start-up rules: VT argument, terminal type, pid file.
#include "core/StartupRules.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace Tarn {

int ParseVtArgument(const char* argument) {
    // Only a plain decimal number: no sign, no blanks, nothing after it.
    if (argument == nullptr || *argument < '0' || *argument > '9')
        return -1;
    char* end = nullptr;
    errno = 0;
    long vt = std::strtol(argument, &end, 10);
    if (errno != 0 || *end != '\0')
        return -1;
    return (vt >= 1 && vt <= 63) ? static_cast<int>(vt) : -1;
}

TerminalChoice ChooseTerminalType(bool linuxConsole, const char* term, bool sshClient) {
    TerminalChoice choice;
    if (linuxConsole) {
        choice.term = "linux";
        choice.localConsole = true;
        return choice;
    }
    if (term != nullptr) {
        choice.term = term;
        // A remote terminal that claims to be a Linux console cannot take its palette sequences.
        if (choice.term == "linux")
            choice.term = "vt102";
        else if (choice.term == "xterm" && !sshClient)
            choice.localConsole = true;
        return choice;
    }
    choice.term = "vt102";
    return choice;
}

namespace {
// A positive decimal pid read from the start of the file, or 0.
pid_t ReadPid(const std::string& path) {
    FILE* file = std::fopen(path.c_str(), "r");
    if (file == nullptr)
        return 0;
    long pid = 0;
    int fields = std::fscanf(file, "%ld", &pid);
    std::fclose(file);
    return (fields == 1 && pid > 0 && pid <= INT32_MAX) ? static_cast<pid_t>(pid) : 0;
}
} // namespace

PidFileOutcome ClaimPidFile(const std::string& path, pid_t self) {
    pid_t other = ReadPid(path);
    // Our own pid in the file (a restart that got the same pid) is no other instance.
    if (other > 0 && other != self && kill(other, 0) == 0)
        return PidFileOutcome::OtherInstance;
    FILE* file = std::fopen(path.c_str(), "w");
    if (file == nullptr)
        return PidFileOutcome::Claimed;
    std::fprintf(file, "%d", static_cast<int>(self));
    std::fflush(file);
    std::fclose(file);
    return PidFileOutcome::Claimed;
}

} // namespace Tarn
