// The pager run: its arguments, and LESSSECURE set for it and put back afterwards.
#include "screens/LogViewer.h"

#include "platform/HostRoot.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <optional>
#include <vector>

namespace Tarn {
namespace {

struct Seen {
    std::string path;
    std::vector<std::string> argv;
    std::optional<std::string> lessSecure;
};

int Record(Seen& seen, const char* path, const char* const argv[], int rc) {
    seen.path = path;
    for (const char* const* a = argv; *a != nullptr; ++a)
        seen.argv.emplace_back(*a);
    const char* value = std::getenv("LESSSECURE");
    seen.lessSecure = value ? std::optional<std::string>(value) : std::nullopt;
    return rc;
}

TEST(LogViewer, PagerRunsSecureOnTheFileAndVariableComesBack) {
    Platform::UseSimulatedHost("/tmp/host-x");
    for (std::optional<std::string> before :
         {std::optional<std::string>{}, std::optional<std::string>{"0"}, std::optional<std::string>{""}}) {
        SCOPED_TRACE(before.value_or("(unset)"));
        if (before)
            setenv("LESSSECURE", before->c_str(), 1);
        else
            unsetenv("LESSSECURE");
        Seen seen;
        int rc = RunPager("/tmp/host-x/var/log/stewd.log", [&](const char* path, const char* const argv[]) {
            return Record(seen, path, argv, 3);
        });
        EXPECT_EQ(rc, 3);
        EXPECT_EQ(seen.path, "/tmp/host-x/bin/less");
        EXPECT_EQ(seen.argv, (std::vector<std::string>{"less", "-cfP", "<Q> Quit </> RegExp Search <H> Help",
                                                       "/tmp/host-x/var/log/stewd.log"}));
        EXPECT_EQ(seen.lessSecure, std::optional<std::string>("1"));
        // An unset variable comes back set, to the empty string.
        const char* after = std::getenv("LESSSECURE");
        ASSERT_NE(after, nullptr);
        EXPECT_EQ(std::string(after), before.value_or(""));
    }
    unsetenv("LESSSECURE");
}

} // namespace
} // namespace Tarn
