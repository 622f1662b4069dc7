// Start-up decisions: VT argument, terminal type, pid-file single-instance rule.
#include "core/StartupRules.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace Tarn {
namespace {

TEST(StartupRules, VtArgument) {
    struct {
        const char* argument;
        int vt;
    } cases[] = {
        {"1", 1},    {"63", 63}, {"2", 2},
        {"0", -1},   {"64", -1}, {"-3", -1},
        {"abc", -1}, {"", -1},   {"99999999999999999999", -1},
        {"07", 7},   {" 5", 5},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.argument);
        EXPECT_EQ(ParseVtArgument(c.argument), c.vt);
    }
    EXPECT_EQ(ParseVtArgument(nullptr), -1);
}

TEST(StartupRules, TerminalType) {
    struct {
        const char* name;
        bool linuxConsole;
        const char* term;
        bool ssh;
        const char* expectTerm;
        bool expectLocal;
    } cases[] = {
        {"real console overrides TERM", true, "xterm", false, "linux", true},
        {"real console without TERM", true, nullptr, false, "linux", true},
        {"linux elsewhere is vt102", false, "linux", false, "vt102", false},
        {"unset is vt102", false, nullptr, false, "vt102", false},
        {"local xterm", false, "xterm", false, "xterm", true},
        {"xterm through ssh", false, "xterm", true, "xterm", false},
        {"other terminal kept", false, "xterm-256color", false, "xterm-256color", false},
        {"linux through ssh", false, "linux", true, "vt102", false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        TerminalChoice choice = ChooseTerminalType(c.linuxConsole, c.term, c.ssh);
        EXPECT_EQ(choice.term, c.expectTerm);
        EXPECT_EQ(choice.localConsole, c.expectLocal);
    }
}

class PidFile : public ::testing::Test {
protected:
    void SetUp() override {
        char dirTemplate[] = "/tmp/tarn-pidfile-XXXXXX";
        ASSERT_NE(mkdtemp(dirTemplate), nullptr);
        dir_ = dirTemplate;
        path_ = dir_ + "/tarn.pid";
    }
    void TearDown() override {
        std::remove(path_.c_str());
        rmdir(dir_.c_str());
    }
    void Write(const std::string& content) { std::ofstream(path_) << content; }
    std::string Read() const {
        std::ifstream in(path_);
        std::stringstream s;
        s << in.rdbuf();
        return s.str();
    }
    static pid_t DeadPid() {
        pid_t child = fork();
        if (child == 0)
            _exit(0);
        int status = 0;
        waitpid(child, &status, 0);
        return child;
    }
    std::string dir_;
    std::string path_;
};

TEST_F(PidFile, OverwrittenUnlessItNamesALiveProcess) {
    const pid_t self = 4242;
    struct {
        std::string content;
        PidFileOutcome outcome;
        std::string after;
    } cases[] = {
        {"garbage", PidFileOutcome::Claimed, "4242"},
        {"0", PidFileOutcome::Claimed, "4242"},
        {"-17", PidFileOutcome::Claimed, "4242"},
        {"", PidFileOutcome::Claimed, "4242"},
        {std::to_string(DeadPid()), PidFileOutcome::Claimed, "4242"},
        {std::to_string(getpid()), PidFileOutcome::OtherInstance, std::to_string(getpid())},
        {std::to_string(getpid()) + "\n", PidFileOutcome::OtherInstance, std::to_string(getpid()) + "\n"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE("content '" + c.content + "'");
        Write(c.content);
        EXPECT_EQ(ClaimPidFile(path_, self), c.outcome);
        EXPECT_EQ(Read(), c.after);
    }
}

TEST_F(PidFile, MissingFileIsCreated) {
    EXPECT_EQ(ClaimPidFile(path_, 77), PidFileOutcome::Claimed);
    EXPECT_EQ(Read(), "77");
}

TEST_F(PidFile, OwnPidIsNotAnotherInstance) {
    Write(std::to_string(getpid()));
    EXPECT_EQ(ClaimPidFile(path_, getpid()), PidFileOutcome::Claimed);
    EXPECT_EQ(Read(), std::to_string(getpid()));
}

TEST_F(PidFile, UnwritableDirectoryIsSilent) {
    EXPECT_EQ(ClaimPidFile(dir_ + "/missing/tarn.pid", 77), PidFileOutcome::Claimed);
}

} // namespace
} // namespace Tarn
