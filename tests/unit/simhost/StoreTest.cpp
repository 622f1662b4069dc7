// Store: concurrent writers never lose a change, a killed writer never leaves a broken state or a stray temp
// file, the state is private yet readable without write permission, and a missing, corrupt or wrongly typed
// state file is an error that names the file (library and CLI).
#include "simhost/model/Store.h"
#include "support/TestHost.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <grp.h>
#include <random>
#include <thread>

using SimHost::Json;

namespace {

std::string NewStore(const TestHost& tmp, const Json& state) {
    std::filesystem::create_directories(tmp.Root() + "/etc/simhost");
    SimHost::Save(tmp.Root(), state);
    return tmp.Root();
}

TEST(SimHostStore, TwoProcessesWritingAtOnceBothLand) {
    TestHost tmp(TestHost::Layout::Empty);
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
    TestHost tmp(TestHost::Layout::Empty);
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
    // The killed writers' temp files go with the next change.
    SimHost::Transact(dir, [](Json& s) { s["n"] = 0; });
    for (const auto& entry : std::filesystem::directory_iterator(dir + "/etc/simhost"))
        EXPECT_EQ(entry.path().filename().string().find(".tmp."), std::string::npos) << entry.path();
}

// The state holds passwords: only its owner reads it. A reader without write permission still can, with
// or without a lock file to share.
TEST(SimHostStore, StateIsPrivateAndReadableWithoutWritePermission) {
    TestHost tmp(TestHost::Layout::Empty);
    std::string dir = NewStore(tmp, {{"n", 1}});
    SimHost::Transact(dir, [](Json& s) { s["n"] = 2; });
    for (const char* file : {"host.json", "host.json.lock"})
        EXPECT_EQ(std::filesystem::status(dir + "/etc/simhost/" + file).permissions() &
                      std::filesystem::perms::all,
                  std::filesystem::perms::owner_read | std::filesystem::perms::owner_write)
            << file;
    if (geteuid() != 0)
        GTEST_SKIP() << "needs root to read as another user";
    // Opened up for the other user here; only reading is granted.
    namespace fs = std::filesystem;
    for (const std::string& path : {dir, dir + "/etc", dir + "/etc/simhost"})
        fs::permissions(path, fs::perms::owner_all | fs::perms::others_read | fs::perms::others_exec);
    for (bool lockFile : {true, false}) {
        SCOPED_TRACE(lockFile ? "lock file present" : "no lock file");
        fs::permissions(dir + "/etc/simhost/host.json", fs::perms::others_read, fs::perm_options::add);
        if (lockFile)
            fs::permissions(dir + "/etc/simhost/host.json.lock", fs::perms::others_read,
                            fs::perm_options::add);
        else
            fs::remove(dir + "/etc/simhost/host.json.lock");
        pid_t child = fork();
        if (child == 0) {
            if (setgroups(0, nullptr) != 0 || setgid(65534) != 0 || setuid(65534) != 0)
                _exit(3);
            try {
                _exit(SimHost::Load(dir)["n"] == 2 ? 0 : 1);
            } catch (const std::exception& e) {
                fprintf(stderr, "%s\n", e.what());
                _exit(2);
            }
        }
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "exit " << WEXITSTATUS(status);
    }
}

TEST(SimHostStore, WronglyTypedStateNamesTheFile) {
    TestHost tmp(TestHost::Layout::Empty);
    std::string dir = NewStore(tmp, {{"power", 5}});
    const std::string path = SimHost::StatePath(dir);
    try {
        SimHost::Transact(dir, [](Json& s) { s["power"]["state"] = "off"; });
        ADD_FAILURE() << "a number took a member";
    } catch (const SimHost::StoreError& e) {
        EXPECT_NE(std::string(e.what()).find(path), std::string::npos) << e.what();
    }
    EXPECT_EQ(SimHost::Load(dir)["power"], 5) << "nothing written";

    // A string JSON cannot carry fails before any file is opened: no descriptor or temp file is left (a
    // long-lived writer once ran out of descriptors this way).
    auto entries = [](const std::string& folder) {
        return std::distance(std::filesystem::directory_iterator(folder), {});
    };
    const auto fds = entries("/proc/self/fd"), files = entries(dir + "/etc/simhost");
    for (int i = 0; i < 3; ++i)
        EXPECT_THROW(SimHost::Transact(dir, [](Json& s) { s["name"] = "bad \xff byte"; }),
                     SimHost::StoreError);
    EXPECT_EQ(entries("/proc/self/fd"), fds);
    EXPECT_EQ(entries(dir + "/etc/simhost"), files);
    EXPECT_EQ(SimHost::Load(dir)["power"], 5);
    for (const char* command : {"power", "power-on"}) {
        ProgramResult r = RunProgram(BuildDir() + "/simhost", {"simhost", command, dir});
        EXPECT_EQ(r.code, 1) << command;
        EXPECT_NE(r.err.find("invalid simulated host state " + path), std::string::npos) << r.err;
    }
}

TEST(SimHostStore, MissingOrCorruptStateNamesTheFile) {
    // No file at all, empty, truncated, not an object.
    for (const char* text : {static_cast<const char*>(nullptr), "", "{\"n\": 1, \"dns\": {", "[1, 2]"}) {
        SCOPED_TRACE(text ? text : "(missing)");
        TestHost tmp(TestHost::Layout::Empty);
        std::string dir = tmp.Root();
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

        ProgramResult shown = RunProgram(BuildDir() + "/simhost", {"simhost", "show", dir});
        EXPECT_NE(shown.code, 0);
        EXPECT_NE(shown.err.find(path), std::string::npos) << shown.err;
    }
}

TEST(SimHostCli, HelpAndInitRefusingAnExistingHostWithoutForce) {
    const std::string simhost = BuildDir() + "/simhost";
    ProgramResult help = RunProgram(simhost, {"simhost", "--help"});
    EXPECT_EQ(help.code, 0);
    EXPECT_NE(help.out.find("usage: simhost init DIR"), std::string::npos) << help.out;
    EXPECT_TRUE(help.err.empty());

    TestHost tmp(TestHost::Layout::Empty);
    const std::string dir = tmp.Root() + "/h";
    ASSERT_EQ(RunProgram(simhost, {"simhost", "init", dir}).code, 0);
    SimHost::Transact(dir, [](Json& s) { s["marker"] = true; });
    ProgramResult again = RunProgram(simhost, {"simhost", "init", dir, "--scenario", "dhcp"});
    EXPECT_EQ(again.code, 1);
    EXPECT_NE(again.err.find("--force"), std::string::npos) << again.err;
    EXPECT_TRUE(SimHost::Load(dir).contains("marker")) << "the host was kept";
    EXPECT_EQ(RunProgram(simhost, {"simhost", "init", dir, "--force", "--scenario", "dhcp"}).code, 0);
    EXPECT_FALSE(SimHost::Load(dir).contains("marker")) << "re-initialised on request";
    EXPECT_EQ(RunProgram(simhost, {"simhost", "init", dir, "--force", "--force"}).code, 2);
}

} // namespace
