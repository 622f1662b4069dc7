// RunProcess and its generic wrappers against real children.
#include "TestHost.h"

#include "hostops/CommandRunner.h"

#include <chrono>
#include <cstring>
#include <filesystem>

namespace {

using Clock = std::chrono::steady_clock;

int RunChild(const TestHost::Dir& host, const std::string& hostPath, int32_t timeout = 0) {
    std::string path = host.Path(hostPath);
    const char* argv[] = {"child", nullptr};
    return Tarn::RunProcess(path.c_str(), argv, nullptr, nullptr, nullptr, nullptr, nullptr, 0, timeout);
}

TEST(RunProcess, ExitCodesPassThrough) {
    TestHost::Dir host;
    for (int code : {0, 1, 7, 255}) {
        host.Script("/bin/child", "exit " + std::to_string(code));
        EXPECT_EQ(RunChild(host, "/bin/child"), code) << code;
    }
}

TEST(RunProcess, FailuresGiveMinusOne) {
    TestHost::Dir host;
    // Ended by a signal.
    host.Script("/bin/child", "kill -TERM $$");
    EXPECT_EQ(RunChild(host, "/bin/child"), -1);
    EXPECT_TRUE(host.Logged("Run Command did not terminate normally"));
    // No such program: nothing started.
    EXPECT_EQ(RunChild(host, "/bin/missing"), -1);
}

TEST(RunProcess, TimeoutKillsChild) {
    TestHost::Dir host;
    host.Script("/bin/child", "exec sleep 10");
    auto start = Clock::now();
    EXPECT_EQ(RunChild(host, "/bin/child", 1), -1);
    auto elapsed = Clock::now() - start;
    EXPECT_GE(elapsed, std::chrono::milliseconds(900));
    EXPECT_LT(elapsed, std::chrono::seconds(5));
    auto messages = host.LogMessages();
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(messages[0], "Killing process because 1 seconds timeout expired");
    EXPECT_EQ(messages[1], "Run Command did not terminate normally");
}

TEST(RunProcess, ChildWithinTimeoutKeepsItsExitCode) {
    TestHost::Dir host;
    host.Script("/bin/child", "sleep 0.2; exit 4");
    EXPECT_EQ(RunChild(host, "/bin/child", 2), 4);
    EXPECT_TRUE(host.LogMessages().empty());
}

TEST(RunProcess, ZeroTimeoutWaitsForTheChild) {
    TestHost::Dir host;
    host.Script("/bin/child", "sleep 1.2; exit 3");
    auto start = Clock::now();
    EXPECT_EQ(RunChild(host, "/bin/child", 0), 3);
    EXPECT_GE(Clock::now() - start, std::chrono::milliseconds(1100));
}

TEST(RunProcess, CapturesAtMostCapacity) {
    TestHost::Dir host;
    host.Script("/bin/child", "head -c 300 /dev/zero | tr '\\0' o; head -c 10 /dev/zero | tr '\\0' e >&2");
    std::string path = host.Path("/bin/child");
    const char* argv[] = {"child", nullptr};
    char out[256], err[256];
    std::memset(out, '#', sizeof out);
    int32_t outLen = 255, errLen = 255;
    EXPECT_EQ(Tarn::RunProcess(path.c_str(), argv, out, &outLen, err, &errLen, nullptr, 0, 0), 0);
    EXPECT_EQ(outLen, 255);
    EXPECT_EQ(std::string(out, 255), std::string(255, 'o'));
    EXPECT_EQ(out[255], '#'); // nothing written past the capacity
    EXPECT_EQ(errLen, 10);
    EXPECT_EQ(std::string(err, 10), std::string(10, 'e'));
}

TEST(RunProcess, StdinReachesChild) {
    TestHost::Dir host;
    host.Script("/bin/child", "cat");
    std::string path = host.Path("/bin/child");
    const char* argv[] = {"cat", nullptr};
    const char input[] = "line one\nline two\n";
    char out[256] = {};
    int32_t outLen = 255;
    EXPECT_EQ(Tarn::RunProcess(path.c_str(), argv, out, &outLen, nullptr, nullptr, input,
                               static_cast<int32_t>(std::strlen(input)), 0),
              0);
    EXPECT_EQ(std::string(out, outLen), input);
}

TEST(RunProcess, ChildIgnoringLargeInputDoesNotKillCaller) {
    TestHost::Dir host;
    host.Script("/bin/child", "exit 5");
    std::string path = host.Path("/bin/child");
    const char* argv[] = {"child", nullptr};
    std::string input(1 << 20, 'x'); // far more than a pipe holds: the write meets a closed pipe
    EXPECT_EQ(Tarn::RunProcess(path.c_str(), argv, nullptr, nullptr, nullptr, nullptr, input.data(),
                               static_cast<int32_t>(input.size()), 0),
              5);
}

TEST(RunProcess, EnvironmentIsExactlyPythonHome) {
    TestHost::Dir host;
    std::filesystem::create_symlink("/usr/bin/env", host.Path("/bin/env"));
    setenv("TARN_TEST_LEAK", "1", 1);
    std::string path = host.Path("/bin/env");
    const char* argv[] = {"env", nullptr};
    char out[256] = {};
    int32_t outLen = 255;
    EXPECT_EQ(Tarn::RunProcess(path.c_str(), argv, out, &outLen, nullptr, nullptr, nullptr, 0, 0), 0);
    EXPECT_EQ(std::string(out, outLen), "PYTHONHOME=/\n");
    unsetenv("TARN_TEST_LEAK");
}

TEST(RunProcess, OnlyThreeDescriptorsReachChild) {
    TestHost::Dir host;
    host.Script("/bin/child", "ls /proc/self/fd | wc -l");
    std::string path = host.Path("/bin/child");
    const char* argv[] = {"child", nullptr};
    char out[256] = {};
    int32_t outLen = 255;
    ASSERT_EQ(Tarn::RunProcess(path.c_str(), argv, out, &outLen, nullptr, nullptr, nullptr, 0, 0), 0);
    // 0, 1, 2 and the directory ls itself has open.
    EXPECT_EQ(std::stoi(std::string(out, outLen)), 4);
}

TEST(RunShellCommand, RunsTheLineThroughHostShell) {
    TestHost::Dir host;
    EXPECT_EQ(Tarn::RunShellCommand("echo ran > " + host.Path("/marker") + "; exit 6"), 6);
    EXPECT_EQ(host.Read("/marker"), "ran\n");
}

TEST(RunLoggedCommand, LogsOutcomeWithCappedOutputs) {
    TestHost::Dir host;
    host.Script("/bin/ok", "echo fine");
    host.Script("/bin/bad", "head -c 300 /dev/zero | tr '\\0' o; printf oops >&2; exit 2");
    std::string ok = host.Path("/bin/ok"), bad = host.Path("/bin/bad");
    const char* okArgv[] = {"ok", "-a", "b", nullptr};
    const char* badArgv[] = {"bad", "x", nullptr};
    EXPECT_EQ(Tarn::RunLoggedCommand(ok.c_str(), okArgv), 0);
    EXPECT_EQ(Tarn::RunLoggedCommand(bad.c_str(), badArgv), 2);
    auto messages = host.LogMessages();
    ASSERT_EQ(messages.size(), 2u) << testing::PrintToString(messages);
    EXPECT_EQ(messages[0], "Command \"ok -a b\" succeeded");
    EXPECT_EQ(messages[1],
              "Command \"bad x\" failed (rc=2): (stdout=" + std::string(255, 'o') + ", stderr=oops)");
}

} // namespace
