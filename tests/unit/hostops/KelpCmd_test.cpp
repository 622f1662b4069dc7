// kelp-cmd wrappers: fallback to the service account, boolean queries, host actions.
#include "TestHost.h"

#include "hostops/Accounts.h"
#include "hostops/KelpCmd.h"

namespace {

// A kelp-cmd that records each argv as one line and answers with the exit code in DIR/kelp-rc for every
// user but "tarn", and with 0 for "tarn".
void InstallKelpCmd(const TestHost::Dir& host, int rcForUser) {
    host.Write("/kelp-rc", std::to_string(rcForUser));
    host.Script("/bin/kelp-cmd", "echo \"$*\" >> " + host.Path("/calls") + "\n" +
                                     "[ \"$2\" = tarn ] && exit 0\nexit $(cat " + host.Path("/kelp-rc") +
                                     ")");
}

TEST(RunKelpCmdWithFallback, RetriesAsServiceAccountOnlyOn255) {
    struct Case {
        int rc;
        int expected;
        std::vector<std::string> calls;
    } cases[] = {
        {255, 0, {"-U alice vm/list", "-U tarn vm/list"}},
        {1, 1, {"-U alice vm/list"}},
        {0, 0, {"-U alice vm/list"}},
    };
    for (const Case& c : cases) {
        TestHost::Dir host;
        InstallKelpCmd(host, c.rc);
        std::string path = host.Path("/bin/kelp-cmd");
        const char* argv[] = {"kelp-cmd", "-U", "alice", "vm/list", nullptr};
        EXPECT_EQ(
            Tarn::RunKelpCmdWithFallback(path.c_str(), argv, nullptr, nullptr, nullptr, nullptr, nullptr, 0),
            c.expected);
        EXPECT_EQ(host.Lines("/calls"), c.calls) << c.rc;
        EXPECT_EQ(host.Logged("Unable to execute command kelp-cmd vm/list using user alice. Using user tarn"),
                  c.rc == 255);
    }
}

TEST(RunKelpCmdWithFallback, RetryCapturesTheSecondAnswer) {
    TestHost::Dir host;
    host.Script("/bin/kelp-cmd", "echo \"as $2\"; [ \"$2\" = tarn ] && exit 0; exit 255");
    std::string path = host.Path("/bin/kelp-cmd");
    const char* argv[] = {"kelp-cmd", "-U", "alice", "q", nullptr};
    char out[300] = {};
    int32_t outLen = 255;
    EXPECT_EQ(Tarn::RunKelpCmdWithFallback(path.c_str(), argv, out, &outLen, nullptr, nullptr, nullptr, 0),
              0);
    EXPECT_EQ(std::string(out, outLen), "as tarn\n");
}

TEST(KelpCmdGetBool, OnlyLeadingLowerCaseTrueCounts) {
    struct Case {
        const char* output;
        int rc;
        bool expected;
    } cases[] = {
        {"true", 0, true}, {"true\n", 0, true}, {"trueish and more", 0, true},
        {"true", 3, true}, {"True", 0, false},  {" true", 0, false},
        {"tru", 0, false}, {"", 0, false},      {"false\n", 0, false},
    };
    for (const Case& c : cases) {
        TestHost::Dir host;
        host.Write("/answer", c.output);
        host.Script("/bin/kelp-cmd", "echo \"$*\" >> " + host.Path("/calls") + "\ncat " +
                                         host.Path("/answer") + "\nexit " + std::to_string(c.rc));
        EXPECT_EQ(Tarn::KelpCmdGetBool("hostsvc/get/flag"), c.expected) << '"' << c.output << '"';
        EXPECT_EQ(host.Lines("/calls"), std::vector<std::string>{"-U tarn hostsvc/get/flag"});
        EXPECT_TRUE(host.Logged("kelp-cmd invocation: get hostsvc/get/flag"));
        bool failureLogged = false;
        for (const std::string& m : host.LogMessages())
            failureLogged |= m.rfind("kelp-cmd invocation failure: ", 0) == 0;
        EXPECT_EQ(failureLogged, c.rc != 0);
    }
}

TEST(KelpCmdActions, RunAsLoggedInUser) {
    TestHost::Dir host;
    InstallKelpCmd(host, 255);
    host.Script("/bin/haltGuests", "echo \"$*\" >> " + host.Path("/calls"));
    Tarn::SetLoggedInUser("bob");
    Tarn::RefreshManagementService();
    Tarn::StopAllVirtualMachines(false);
    Tarn::StopAllVirtualMachines(true);
    Tarn::SetLoggedInUser("");
    std::vector<std::string> expected = {
        "-U bob internalsvc/refresh",
        "-U tarn internalsvc/refresh",
        "-U bob hostsvc/autostartmanager/autostop",
        "-U tarn hostsvc/autostartmanager/autostop",
        "--terminate",
        "-U bob hostsvc/autostartmanager/autostop",
        "-U tarn hostsvc/autostartmanager/autostop",
        "",
    };
    EXPECT_EQ(host.Lines("/calls"), expected);
}

} // namespace
