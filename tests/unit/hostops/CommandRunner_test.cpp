// RunProcess and its generic wrappers against real children.
#include "support/ActiveTestHost.h"

#include "hostops/CommandRunner.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <sys/wait.h>

namespace {

using Clock = std::chrono::steady_clock;

struct Outcome {
    int rc;
    std::string out, err;
};

// Runs DIR/bin/child, a script with `body`; with `capture` both streams go to 255-byte buffers, and
// nothing may be written past them.
Outcome RunChild(const TestHost& host, const std::string& body, int32_t timeout = 0,
                 const std::string& input = "", bool capture = true) {
    host.Script("/bin/child", body);
    std::string path = host.Path("/bin/child");
    const char* argv[] = {"child", nullptr};
    char out[256], err[256];
    std::memset(out, '#', sizeof out);
    std::memset(err, '#', sizeof err);
    int32_t outLen = 255, errLen = 255;
    int rc =
        Tarn::RunProcess(path.c_str(), argv, capture ? out : nullptr, capture ? &outLen : nullptr,
                         capture ? err : nullptr, capture ? &errLen : nullptr,
                         input.empty() ? nullptr : input.data(), static_cast<int32_t>(input.size()), timeout);
    if (!capture)
        return {rc, "", ""};
    EXPECT_EQ(out[255], '#');
    EXPECT_EQ(err[255], '#');
    return {rc, std::string(out, static_cast<size_t>(outLen)), std::string(err, static_cast<size_t>(errLen))};
}

TEST(RunProcess, ExitCodesSignalsAndTimeouts) {
    const std::string kKilled = "Killing process because 1 seconds timeout expired";
    const std::string kAbnormal = "Run Command did not terminate normally";
    struct Case {
        const char* body;
        int32_t timeout;
        int rc;
        int minMs; // the least time the run must take
        std::vector<std::string> log;
    } cases[] = {
        {"exit 0", 0, 0, 0, {}},
        {"exit 7", 0, 7, 0, {}},
        {"exit 255", 0, 255, 0, {}},
        {"kill -TERM $$", 0, -1, 0, {kAbnormal}},
        {"exec sleep 10", 1, -1, 900, {kKilled, kAbnormal}},
        {"sleep 0.2; exit 4", 2, 4, 0, {}},
        {"sleep 1.2; exit 3", 0, 3, 1100, {}}, // a zero time-out waits as long as it takes
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.body);
        ActiveTestHost host{TestHost::Layout::Folders};
        auto start = Clock::now();
        EXPECT_EQ(RunChild(host, c.body, c.timeout, "", false).rc, c.rc);
        auto elapsed = Clock::now() - start;
        EXPECT_GE(elapsed, std::chrono::milliseconds(c.minMs));
        EXPECT_LT(elapsed, std::chrono::seconds(5));
        EXPECT_EQ(host.LogMessages(), c.log);
        errno = 0;
        EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a child left unreaped";
        EXPECT_EQ(errno, ECHILD);
    }
    ActiveTestHost host{TestHost::Layout::Folders};
    const char* argv[] = {"missing", nullptr};
    EXPECT_EQ(Tarn::RunProcess(host.Path("/bin/missing").c_str(), argv, nullptr, nullptr, nullptr, nullptr,
                               nullptr, 0, 0),
              -1);
}

TEST(RunProcess, CapturesAtMostCapacityAndFeedsStdin) {
    ActiveTestHost host{TestHost::Layout::Folders};
    Outcome big = RunChild(host, "head -c 300 /dev/zero | tr '\\0' o; head -c 10 /dev/zero | tr '\\0' e >&2");
    EXPECT_EQ(big.rc, 0);
    EXPECT_EQ(big.out, std::string(255, 'o'));
    EXPECT_EQ(big.err, std::string(10, 'e'));

    EXPECT_EQ(RunChild(host, "cat", 0, "line one\nline two\n").out, "line one\nline two\n");
    // Far more input than a pipe holds, to a child that never reads it: the caller survives the closed pipe.
    EXPECT_EQ(RunChild(host, "exit 5", 0, std::string(1 << 20, 'x'), false).rc, 5);
}

// Output is read while the child runs: far more than a pipe holds neither blocks the child until the
// time-out nor changes what is kept.
TEST(RunProcess, ChildWritingMoreThanAPipeHoldsFinishes) {
    ActiveTestHost host{TestHost::Layout::Folders};
    const std::string flood =
        "head -c 1000000 /dev/zero | tr '\\0' o; head -c 1000000 /dev/zero | tr '\\0' e >&2";
    for (bool capture : {true, false}) {
        SCOPED_TRACE(capture ? "captured" : "not captured");
        auto start = Clock::now();
        Outcome o = RunChild(host, flood + "; exit 3", 4, "", capture);
        EXPECT_EQ(o.rc, 3);
        EXPECT_LT(Clock::now() - start, std::chrono::seconds(3));
        if (capture) {
            EXPECT_EQ(o.out, std::string(255, 'o'));
            EXPECT_EQ(o.err, std::string(255, 'e'));
        }
    }
    // Input and output at once: a child echoing a megabyte while it is still being fed.
    const std::string input = std::string(1 << 20, 'i');
    Outcome echo = RunChild(host, "cat", 4, input);
    EXPECT_EQ(echo.rc, 0);
    EXPECT_EQ(echo.out, input.substr(0, 255));
    EXPECT_TRUE(host.LogMessages().empty());
}

TEST(RunProcess, ChildGetsOnlyPythonHomeAndThreeDescriptors) {
    ActiveTestHost host{TestHost::Layout::Folders};
    std::filesystem::create_symlink("/usr/bin/env", host.Path("/bin/env"));
    setenv("TARN_TEST_LEAK", "1", 1);
    const char* argv[] = {"env", nullptr};
    char out[256] = {};
    int32_t outLen = 255;
    EXPECT_EQ(
        Tarn::RunProcess(host.Path("/bin/env").c_str(), argv, out, &outLen, nullptr, nullptr, nullptr, 0, 0),
        0);
    EXPECT_EQ(std::string(out, static_cast<size_t>(outLen)), "PYTHONHOME=/\n");
    unsetenv("TARN_TEST_LEAK");
    // 0, 1, 2 and the directory ls itself has open.
    EXPECT_EQ(RunChild(host, "ls /proc/self/fd | wc -l").out, "4\n");
}

TEST(RunProcess, ShellAndLoggedWrappers) {
    ActiveTestHost host{TestHost::Layout::Folders};
    EXPECT_EQ(Tarn::RunShellCommand("echo ran > " + host.Path("/marker") + "; exit 6"), 6);
    EXPECT_EQ(host.Read("/marker"), "ran\n");

    host.Script("/bin/ok", "echo fine");
    host.Script("/bin/bad", "head -c 300 /dev/zero | tr '\\0' o; printf oops >&2; exit 2");
    const char* okArgv[] = {"ok", "-a", "b", nullptr};
    const char* badArgv[] = {"bad", "x", nullptr};
    EXPECT_EQ(Tarn::RunLoggedCommand(host.Path("/bin/ok").c_str(), okArgv), 0);
    EXPECT_EQ(Tarn::RunLoggedCommand(host.Path("/bin/bad").c_str(), badArgv), 2);
    EXPECT_EQ(host.LogMessages(), (std::vector<std::string>{"Command \"ok -a b\" succeeded",
                                                            "Command \"bad x\" failed (rc=2): (stdout=" +
                                                                std::string(255, 'o') + ", stderr=oops)"}));
}

} // namespace
