// The simulated host's state cache: a read after the console's own change takes the state it just wrote
// without opening host.json again, and a change made by another process is still seen.
#include "support/ActiveTestHost.h"

#include "platform/ChangeBatch.h"
#include "platform/sim/SimState.h"

#include "support/StateReadWatch.h"

#include <gtest/gtest.h>

TEST(SimState, AReadAfterAChangeUsesTheWrittenStateUntilAnotherWriterChangesIt) {
    ActiveTestHost host(TestHost::Layout::Folders);
    host.WriteState(TestHost::Json::parse(R"({"schema": 1, "dns": {"hostname": "host01"}})"));
    StateReadWatch counter(host);
    Platform::Sim::Change([](TestHost::Json& s) { s["dns"]["hostname"] = "host02"; });
    counter.Reads();
    EXPECT_EQ((*Platform::Sim::Load())["dns"]["hostname"], "host02");
    EXPECT_EQ(counter.Reads(), 0);

    host.ChangeState([](TestHost::Json& s) { s["dns"]["hostname"] = "host-three"; });
    counter.Reads();
    EXPECT_EQ((*Platform::Sim::Load())["dns"]["hostname"], "host-three");
    EXPECT_EQ(counter.Reads(), 1);
}

// Within a batch the changes after the first start from the state just written; a change by another writer in
// between is read, not overwritten; the users written meanwhile stay in the file.
TEST(SimState, ABatchReadsTheStateOnceUnlessAnotherWriterCameInBetween) {
    ActiveTestHost host(TestHost::Layout::Folders);
    host.WriteState(TestHost::Json::parse(
        R"({"schema": 1, "dns": {"hostname": "host01"}, "users": [{"name": "root", "password": "Kq9Vb7Rt"}]})"));
    StateReadWatch counter(host);
    {
        Platform::ChangeBatch batch;
        for (const char* name : {"a", "b", "c"})
            Platform::Sim::Change([&](TestHost::Json& s) { s["dns"][name] = true; });
        EXPECT_EQ(counter.Reads(), 1);
        host.ChangeState([](TestHost::Json& s) { s["dns"]["other"] = true; });
        counter.Reads();
        Platform::Sim::Change([](TestHost::Json& s) { s["dns"]["d"] = true; });
        EXPECT_EQ(counter.Reads(), 1);
    }
    Platform::Sim::Change([](TestHost::Json& s) { s["dns"]["e"] = true; });
    EXPECT_EQ(counter.Reads(), 1) << "after the batch every change reads the file";
    const TestHost::Json state = host.State();
    for (const char* key : {"a", "b", "c", "other", "d", "e"})
        EXPECT_TRUE(state["dns"].contains(key)) << key;
    EXPECT_EQ(state["users"][0]["password"], "Kq9Vb7Rt");
}
