// Store: concurrent writers never lose a change, a killed writer never leaves a broken state, and a
// missing or corrupt state file is an error that names the file (library and CLI).
#include "simhost/model/Store.h"
#include "SimHostTesting.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <random>
#include <thread>

using SimHost::Json;
using namespace SimHostTesting;

namespace {

std::string NewStore(const TempDir& tmp, const Json& state) {
    std::filesystem::create_directories(tmp.Path() + "/etc/simhost");
    SimHost::Save(tmp.Path(), state);
    return tmp.Path();
}

TEST(SimHostStore, TwoProcessesWritingAtOnceBothLand) {
    TempDir tmp;
    std::string dir = NewStore(tmp, {{"n", 0}, {"child", 0}, {"parent", 0}});
    constexpr int kEach = 60;
    pid_t child = fork();
    ASSERT_GE(child, 0);
    const char* who = child == 0 ? "child" : "parent";
    for (int i = 0; i < kEach; ++i)
        SimHost::Transact(dir, [&](Json& s) {
            s["n"] = s["n"].get<int>() + 1;
            s[who] = s[who].get<int>() + 1;
        });
    if (child == 0)
        _exit(0);
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    Json s = SimHost::Load(dir);
    EXPECT_EQ(s["n"], 2 * kEach);
    EXPECT_EQ(s["child"], kEach);
    EXPECT_EQ(s["parent"], kEach);
}

TEST(SimHostStore, WriterKilledMidChangeLeavesPreviousValidState) {
    TempDir tmp;
    // A large document makes each write long enough that kills land inside it.
    std::string dir = NewStore(tmp, {{"n", 0}, {"pad", std::string(400000, 'x')}});
    std::mt19937 random(12345);
    int last = 0;
    for (int round = 0; round < 25; ++round) {
        int done[2];
        ASSERT_EQ(pipe(done), 0);
        pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            close(done[0]);
            for (;;) {
                SimHost::Transact(dir, [](Json& s) { s["n"] = s["n"].get<int>() + 1; });
                char one = 1;
                (void)!write(done[1], &one, 1);
            }
        }
        close(done[1]);
        // Every other round waits for one finished change first, so that the state is seen to move on.
        char one;
        bool moved = round % 2 == 0 || read(done[0], &one, 1) == 1;
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 20000));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        close(done[0]);
        ASSERT_TRUE(moved);
        Json s;
        ASSERT_NO_THROW(s = SimHost::Load(dir)) << "round " << round;
        EXPECT_EQ(s["pad"].get<std::string>().size(), 400000u);
        EXPECT_GE(s["n"].get<int>(), last); // never goes back to an older state
        last = s["n"].get<int>();
    }
    EXPECT_GT(last, 0);
}

TEST(SimHostStore, MissingOrCorruptStateNamesTheFile) {
    // No file at all, empty, truncated, not an object.
    for (const char* text : {static_cast<const char*>(nullptr), "", "{\"n\": 1, \"dns\": {", "[1, 2]"}) {
        SCOPED_TRACE(text ? text : "(missing)");
        TempDir tmp;
        std::string dir = tmp.Path();
        std::filesystem::create_directories(dir + "/etc/simhost");
        std::string path = SimHost::StatePath(dir);
        if (text)
            std::ofstream(path) << text;

        try {
            SimHost::Load(dir);
            ADD_FAILURE() << "Load accepted a bad state";
        } catch (const SimHost::StoreError& e) {
            EXPECT_NE(std::string(e.what()).find(path), std::string::npos) << e.what();
        }
        EXPECT_THROW(SimHost::Transact(dir, [](Json& s) { s["n"] = 2; }), SimHost::StoreError);
        if (text) { // a failed transaction leaves the broken file for inspection, unchanged
            std::ifstream in(path);
            EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), text);
        }

        Result shown = RunProgram(BuildDir() + "/simhost", {"simhost", "show", dir});
        EXPECT_NE(shown.code, 0);
        EXPECT_NE(shown.err.find(path), std::string::npos) << shown.err;
    }
}

} // namespace
