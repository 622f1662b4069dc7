// The host-control command run: host paths, exit statuses, a program that cannot start.
#include "platform/HostCtlException.h"
#include "platform/HostRoot.h"
#include "platform/TesCtlExec.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

namespace {

class TesCtlExecTest : public testing::Test {
protected:
    void SetUp() override {
        dir_ = fs::temp_directory_path() / ("tesctl-exec-" + std::to_string(getpid()));
        fs::create_directories(dir_ / "sbin");
        fs::create_directories(dir_ / "bin");
        fs::create_symlink("/bin/sh", dir_ / "bin/sh");
        Platform::UseSimulatedHost(dir_.string());
    }
    void TearDown() override {
        Platform::UseRealHost();
        fs::remove_all(dir_);
    }
    void Script(const std::string& name, const std::string& body) {
        std::ofstream(dir_ / name) << "#!/bin/sh\n" << body << "\n";
        fs::permissions(dir_ / name, fs::perms::owner_all);
    }
    fs::path dir_;
};

TEST_F(TesCtlExecTest, AbsoluteWordsAreHostPaths) {
    auto words = TesCtl::Util::HostCommandWords("/bin/sh  /sbin/svcctl.sh stop -d /var/log/");
    ASSERT_EQ(words.size(), 5u);
    EXPECT_EQ(words[0], (dir_ / "bin/sh").string());
    EXPECT_EQ(words[1], (dir_ / "sbin/svcctl.sh").string());
    EXPECT_EQ(words[2], "stop");
    EXPECT_EQ(words[3], "-d");
    EXPECT_EQ(words[4], (dir_ / "var/log/").string());
}

TEST_F(TesCtlExecTest, ExitStatusesAndTheHostsOwnScript) {
    // The script records where it ran and its argument, then exits with a status of its choosing.
    Script("sbin/svcctl.sh", "echo \"$1\" > \"$(dirname \"$0\")/ran\"; [ \"$1\" = stop ] && exit 0; exit 3");
    EXPECT_EQ(TesCtl::Util::TesCtl_Exec("/bin/sh /sbin/svcctl.sh stop", false, true, false), 0);
    std::ifstream ran(dir_ / "sbin/ran");
    std::string arg;
    ran >> arg;
    EXPECT_EQ(arg, "stop");
    EXPECT_EQ(TesCtl::Util::TesCtl_Exec("/bin/sh /sbin/svcctl.sh start"), 3);
}

TEST_F(TesCtlExecTest, SignalledChildAndMissingProgram) {
    Script("sbin/die", "kill -9 $$");
    EXPECT_EQ(TesCtl::Util::TesCtl_Exec("/sbin/die"), 128 + 9);
    EXPECT_THROW(TesCtl::Util::TesCtl_Exec("/sbin/absent"), HostCtl::Lib::HostCtlException);
    EXPECT_THROW(TesCtl::Util::TesCtl_Exec("   "), HostCtl::Lib::HostCtlException);
}

} // namespace
