// The host-control command run: host paths, exit statuses, a program that cannot start.
#include "support/ActiveTestHost.h"

#include "platform/HostCtlException.h"
#include "platform/TesCtlExec.h"

#include <gtest/gtest.h>

namespace {

TEST(TesCtlExec, AbsoluteWordsAreHostPaths) {
    ActiveTestHost host{TestHost::Layout::Folders};
    EXPECT_EQ(TesCtl::Util::HostCommandWords("/bin/sh  /sbin/svcctl.sh stop -d /var/log/"),
              (std::vector<std::string>{host.Path("/bin/sh"), host.Path("/sbin/svcctl.sh"), "stop", "-d",
                                        host.Path("/var/log/")}));
}

TEST(TesCtlExec, ExitStatusesSignalsAndMissingPrograms) {
    ActiveTestHost host{TestHost::Layout::Folders};
    // The script records its argument next to itself, then exits 0 for "stop" and 3 otherwise.
    host.Script("/sbin/svcctl.sh",
                "echo \"$1\" > \"$(dirname \"$0\")/ran\"; [ \"$1\" = stop ] && exit 0; exit 3");
    EXPECT_EQ(TesCtl::Util::TesCtl_Exec("/bin/sh /sbin/svcctl.sh stop", false, true, false), 0);
    EXPECT_EQ(host.Read("/sbin/ran"), "stop\n");
    EXPECT_EQ(TesCtl::Util::TesCtl_Exec("/bin/sh /sbin/svcctl.sh start"), 3);
    host.Script("/sbin/die", "kill -9 $$");
    EXPECT_EQ(TesCtl::Util::TesCtl_Exec("/sbin/die"), 128 + 9);
    EXPECT_THROW(TesCtl::Util::TesCtl_Exec("/sbin/absent"), HostCtl::Lib::HostCtlException);
    EXPECT_THROW(TesCtl::Util::TesCtl_Exec("   "), HostCtl::Lib::HostCtlException);
}

} // namespace
