// The start-up sequence in its fixed order, the root run and the normal end.
#include "core/Startup.h"

#include "core/EventLoop.h"
#include "core/Log.h"
#include "core/Session.h"
#include "core/StartupRules.h"
#include "core/Terminal.h"
#include "platform/HostCtlException.h"
#include "platform/HostRoot.h"
#include "platform/SysInfo.h"
#include "platform/Syslog.h"
#include "platform/SystemInfo.h"

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <curses.h>
#include <fcntl.h>
#include <linux/kd.h>
#include <linux/vt.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace Tarn {
namespace {
#ifdef NDEBUG
constexpr const char* kCompilationOption = "release";
#else
constexpr const char* kCompilationOption = "debug";
#endif

// Standard error stays silent for the whole run, child processes included.
void SilenceStandardError() {
    int fd = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (fd < 0)
        return;
    dup2(fd, 2);
    close(fd);
}

void ChooseTerminal() {
    char keyboardType = 0;
    bool linuxConsole = ioctl(1, KDGKBTYPE, &keyboardType) == 0;
    TerminalChoice choice = ChooseTerminalType(linuxConsole, std::getenv("TERM"), std::getenv("SSH_CLIENT"));
    SetLocalConsole(choice.localConsole);
    setenv("TERM", choice.term.c_str(), 1);
    setenv("TERMINFO", "/usr/share/terminfo", 0);
}

// Logging identity with the product information attached to the log.
void OpenLog() {
    Platform::SyslogOpen("TARN");
    Log(LOG_INFO, "Starting TARN");
    try {
        Platform::SystemVersion version = Platform::ReadSystemVersion();
        Log(LOG_INFO, "Product: %s %s, build %s, %s", version.productName.c_str(),
            version.productVersion.c_str(), version.build.c_str(), kCompilationOption);
    } catch (const HostCtl::Lib::HostCtlException& e) {
        Log(LOG_INFO, "Product: unknown (%s), %s", e.what(), kCompilationOption);
    }
}

void WritePidFile() {
    std::string path = Platform::HostPath("/var/run/tarn.pid");
    if (ClaimPidFile(path, getpid()) == PidFileOutcome::OtherInstance)
        Log(LOG_ERR, "Attempt to run multiple TARN instances, not updating %s", path.c_str());
}

void SwitchTerminal(int vt, termios* saved) {
    int fd = open(Platform::HostPath("/dev/console").c_str(), O_RDWR | O_CLOEXEC);
    if (fd >= 0) {
        // The wait follows only a failed activation; that is how it has always behaved.
        if (ioctl(fd, VT_ACTIVATE, vt) == -1)
            ioctl(fd, VT_WAITACTIVE, vt);
        close(fd);
    }
    if (saved != nullptr) {
        // Ctrl-Z does nothing on the console.
        saved->c_cc[VSUSP] = 0;
        tcsetattr(1, TCSANOW, saved);
    }
}

// The host decides whether login and the menu offer the keyboard layout choice; unreadable means no.
void LoadKeyboardChoice() {
    bool offered = false;
    try {
        offered = TesCtl::System::SystemInfoImpl().IsKeyboardChoiceOffered();
    } catch (const HostCtl::Lib::HostCtlException& e) {
        Log(LOG_ERR, "Reading the keyboard choice setting failed: %s", e.what());
    }
    SetKeyboardChoice(offered);
}

void SetLocale() {
    // Where en_US is not installed, the C locale's character set is enough for curses to draw UTF-8; taking
    // only that category spares loading a dozen locale files at every start.
    if (std::setlocale(LC_ALL, "en_US.UTF-8") == nullptr)
        std::setlocale(LC_CTYPE, "C.UTF-8");
}

void RunRoot(const RootRunner& runRoot) {
    try {
        runRoot();
    } catch (const HostCtl::Lib::HostCtlException& e) {
        Log(LOG_ERR, "TARN aborted by exception: %s", e.what());
    }
}
} // namespace

int RunConsole(int argc, char** argv, const RootRunner& runRoot) {
    int vt = -1;
    if (argc > 1) {
        vt = ParseVtArgument(argv[1]);
        if (vt < 0)
            Log(LOG_ERR, "Invalid VT specified for TARN: %s", argv[1]);
    }
    StartSignalThread();
    LoadIdleTimeout();
    SilenceStandardError();
    termios saved{};
    bool haveSaved = tcgetattr(1, &saved) == 0;
    ChooseTerminal();
    OpenLog();
    WritePidFile();
    LoadKeyboardChoice();
    if (vt > 0)
        SwitchTerminal(vt, haveSaved ? &saved : nullptr);
    SetLocale();

    Terminal terminal;
    if (!terminal.Open()) {
        const char* term = std::getenv("TERM");
        Log(LOG_ERR, "Unable to set up terminal type %s", term);
        // Standard error is silenced by now; the terminal itself is where the person starting us looks.
        dprintf(1, "tarn: cannot use terminal type \"%s\": no usable terminal description\n",
                term ? term : "");
        return 1;
    }
    InitColors();
    DefineKeys();
    refresh();
    try {
        RunRoot(runRoot);
    } catch (...) {
        // Not handled here: restore the terminal before the runtime reports it.
        terminal.Release();
        throw;
    }
    terminal.Close();
    return 0;
}

} // namespace Tarn
