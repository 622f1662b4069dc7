// kelp-cmd wrappers: fallback to the service account, boolean queries.
#include "support/ActiveTestHost.h"

#include "hostops/KelpCmd.h"

#include <gtest/gtest.h>

namespace {

// A kelp-cmd that records each argv as one line, prints the user it ran as and exits with `rcForUser` for
// every user but "tarn", and with 0 for "tarn".
void InstallKelpCmd(const TestHost& host, int rcForUser) {
    host.Script("/bin/kelp-cmd", "echo \"$*\" >> " + host.Path("/calls") + "\necho \"as $2\"\n" +
                                     "[ \"$2\" = tarn ] && exit 0\nexit " + std::to_string(rcForUser));
}

TEST(RunKelpCmdWithFallback, RetriesAsServiceAccountOnlyOn255) {
    struct Case {
        int rc;
        int expected;
        std::vector<std::string> calls;
        const char* answer; // the captured output is the last run's
    } cases[] = {{255, 0, {"-U alice vm/list", "-U tarn vm/list"}, "as tarn\n"},
                 {1, 1, {"-U alice vm/list"}, "as alice\n"},
                 {0, 0, {"-U alice vm/list"}, "as alice\n"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.rc);
        ActiveTestHost host{TestHost::Layout::Folders};
        InstallKelpCmd(host, c.rc);
        const char* argv[] = {"kelp-cmd", "-U", "alice", "vm/list", nullptr};
        char out[300] = {};
        int32_t outLen = 255;
        EXPECT_EQ(Tarn::RunKelpCmdWithFallback(host.Path("/bin/kelp-cmd").c_str(), argv, out, &outLen,
                                               nullptr, nullptr, nullptr, 0),
                  c.expected);
        EXPECT_EQ(std::string(out, static_cast<size_t>(outLen)), c.answer);
        EXPECT_EQ(host.Lines("/calls"), c.calls);
        EXPECT_EQ(host.Logged("Unable to execute command kelp-cmd vm/list using user alice. Using user tarn"),
                  c.rc == 255);
    }
}

TEST(KelpCmdGetBool, OnlyLeadingLowerCaseTrueCounts) {
    struct Case {
        const char* output;
        int rc;
        bool expected;
    } cases[] = {{"true\n", 0, true},  {"trueish and more", 0, true}, {"true", 3, true},
                 {"True", 0, false},   {" true", 0, false},           {"tru", 0, false},
                 {"false\n", 0, false}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.output);
        ActiveTestHost host{TestHost::Layout::Folders};
        host.Write("/answer", c.output);
        host.Script("/bin/kelp-cmd", "echo \"$*\" >> " + host.Path("/calls") + "\ncat " +
                                         host.Path("/answer") + "\nexit " + std::to_string(c.rc));
        EXPECT_EQ(Tarn::KelpCmdGetBool("hostsvc/get/flag"), c.expected);
        EXPECT_EQ(host.Lines("/calls"), std::vector<std::string>{"-U tarn hostsvc/get/flag"});
        EXPECT_TRUE(host.Logged("kelp-cmd invocation: get hostsvc/get/flag"));
        EXPECT_EQ(host.LoggedPrefix("kelp-cmd invocation failure: "), c.rc != 0);
    }
}

// The actions run as the logged-in user, then as the service account, are the power and troubleshooting
// end-to-end tests' call lists.

} // namespace
