// The simulated host's state cache: a read after the console's own change takes the state it just wrote
// without opening host.json again, and a change made by another process is still seen.
#include "support/ActiveTestHost.h"

#include "platform/sim/SimState.h"

#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <unistd.h>

namespace {

// Counts how often host.json is opened while it lives.
class OpenCounter {
public:
    explicit OpenCounter(const std::string& dir) : fd_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
        inotify_add_watch(fd_, dir.c_str(), IN_OPEN);
    }
    ~OpenCounter() { close(fd_); }
    int StateOpens() {
        int count = 0;
        alignas(inotify_event) char buffer[4096];
        for (ssize_t n; (n = read(fd_, buffer, sizeof buffer)) > 0;)
            for (char* p = buffer; p < buffer + n;) {
                auto* event = reinterpret_cast<inotify_event*>(p);
                if (event->len > 0 && std::string(event->name) == "host.json")
                    ++count;
                p += sizeof(inotify_event) + event->len;
            }
        return count;
    }

private:
    int fd_;
};

} // namespace

TEST(SimState, AReadAfterAChangeUsesTheWrittenStateUntilAnotherWriterChangesIt) {
    ActiveTestHost host(TestHost::Layout::Folders);
    host.WriteState(TestHost::Json::parse(R"({"schema": 1, "dns": {"hostname": "host01"}})"));
    OpenCounter counter(host.Path("/etc/simhost"));
    Platform::Sim::Change([](TestHost::Json& s) { s["dns"]["hostname"] = "host02"; });
    counter.StateOpens();
    EXPECT_EQ((*Platform::Sim::Load())["dns"]["hostname"], "host02");
    EXPECT_EQ(counter.StateOpens(), 0);

    host.ChangeState([](TestHost::Json& s) { s["dns"]["hostname"] = "host-three"; });
    counter.StateOpens();
    EXPECT_EQ((*Platform::Sim::Load())["dns"]["hostname"], "host-three");
    EXPECT_EQ(counter.StateOpens(), 1);
}
