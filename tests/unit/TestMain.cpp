// gtest main for every unit test program, with one guard: code under test that calls exit() (the console
// exits on resize and on terminating signals) would end the program with status 0 and skip the remaining
// tests unnoticed. An at-exit check turns any exit before the run finished into a failure.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace {
bool gRunFinished = false;

void CheckFinished() {
    if (!gRunFinished) {
        std::fputs("\nFATAL: the test program exited before all tests ran (exit() called under test)\n",
                   stdout);
        std::fflush(stdout);
        _exit(3);
    }
}
} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // Real-host backends refuse to read the machine from a test outside the namespace sandbox.
    setenv("TARN_TEST_GUARD", "1", 0);
    // Child processes forked by tests run their own exit paths; only the parent is guarded.
    static const pid_t parent = getpid();
    std::atexit([] {
        if (getpid() == parent)
            CheckFinished();
    });
    int result = RUN_ALL_TESTS();
    gRunFinished = true;
    return result;
}
