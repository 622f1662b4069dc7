// Store access for the sim backends.
#include "platform/sim/SimState.h"

#include "platform/ChangeBatch.h"

#include "platform/HostCtlException.h"
#include "platform/HostRoot.h"
#include "simhost/model/CallLog.h"

#include <mutex>
#include <sys/stat.h>

namespace Platform::Sim {
namespace {

// A screen reads a dozen facts one host-control call at a time; parsing host.json for each would dominate
// start-up. The parsed document is kept while the file is the same one: every change renames a new file
// into place, so a different inode or time means a different state.
struct CachedState {
    std::string path;
    dev_t device = 0;
    ino_t inode = 0;
    timespec modified{};
    off_t size = -1;
    std::shared_ptr<const Json> state;
};

CachedState gCache;
// The live-core thread raises its alert while the user-interface thread may read the state.
std::mutex gCacheMutex;

bool SameFile(const CachedState& c, const std::string& path, const struct stat& st) {
    return c.size >= 0 && c.path == path && c.device == st.st_dev && c.inode == st.st_ino &&
           c.size == st.st_size && c.modified.tv_sec == st.st_mtim.tv_sec &&
           c.modified.tv_nsec == st.st_mtim.tv_nsec;
}

// The last write of the open ChangeBatch of this thread (batches nest: the outermost one keeps it).
thread_local int tBatchDepth = 0;
thread_local SimHost::LastWrite tBatchWrite;

} // namespace

std::shared_ptr<const Json> Load() {
    const std::string path = SimHost::StatePath(HostRoot());
    struct stat st {};
    bool known = stat(path.c_str(), &st) == 0;
    std::lock_guard<std::mutex> lock(gCacheMutex);
    if (known && SameFile(gCache, path, st))
        return gCache.state;
    try {
        // The console never reads the user database; the PAM module reads it on its own and wipes it.
        Json loaded = SimHost::Load(HostRoot());
        SimHost::DropUsers(loaded);
        auto state = std::make_shared<const Json>(std::move(loaded));
        // Keyed by what was seen before the read: a change in between only costs one more read later.
        if (known)
            gCache = {path, st.st_dev, st.st_ino, st.st_mtim, st.st_size, state};
        return state;
    } catch (const SimHost::StoreError& e) {
        gCache.size = -1;
        throw HostCtl::Lib::HostCtlException(e.what());
    }
}

Json Change(const std::function<void(Json&)>& change) {
    {
        std::lock_guard<std::mutex> lock(gCacheMutex);
        gCache.size = -1;
    }
    SimHost::LastWrite single;
    SimHost::LastWrite& last = tBatchDepth > 0 ? tBatchWrite : single;
    try {
        Json stored = SimHost::Transact(HostRoot(), change, &last);
        SimHost::DropUsers(stored);
        // What was just written is what the next read would parse: an apply stage that reads after its
        // change (the gateway after the addresses) reads the file once, not twice.
        if (last.known) {
            std::lock_guard<std::mutex> lock(gCacheMutex);
            gCache = {SimHost::StatePath(HostRoot()),
                      last.status.st_dev,
                      last.status.st_ino,
                      last.status.st_mtim,
                      last.status.st_size,
                      std::make_shared<const Json>(stored)};
        }
        return stored;
    } catch (const SimHost::StoreError& e) {
        throw HostCtl::Lib::HostCtlException(e.what());
    }
}

namespace {

std::vector<std::string> Recorded(const std::vector<std::string>& operation) {
    std::vector<std::string> words{"hostctl"};
    words.insert(words.end(), operation.begin(), operation.end());
    return words;
}

} // namespace

Json Operate(const std::vector<std::string>& operation, const std::function<void(Json&)>& change) {
    const auto words = Recorded(operation);
    SimHost::AppendCallLog(HostRoot(), words);
    return Change([&](Json& state) {
        if (SimHost::IsFailing(state, words))
            throw HostCtl::Lib::HostCtlException("simulated failure");
        change(state);
    });
}

void Announce(const std::vector<std::string>& operation) {
    const auto words = Recorded(operation);
    SimHost::AppendCallLog(HostRoot(), words);
    if (SimHost::IsFailing(*Load(), words))
        throw HostCtl::Lib::HostCtlException("simulated failure");
}

const Json& At(const Json& state, const char* pointer) {
    Json::json_pointer ptr(pointer);
    if (!state.contains(ptr))
        throw HostCtl::Lib::HostCtlException(
            SimHost::InvalidState(HostRoot(), std::string("missing ") + pointer));
    return state.at(ptr);
}

} // namespace Platform::Sim

namespace Platform {

ChangeBatch::ChangeBatch() {
    ++Sim::tBatchDepth;
}

ChangeBatch::~ChangeBatch() {
    // The state kept holds the users' passwords: it goes when the batch ends.
    if (--Sim::tBatchDepth == 0)
        Sim::tBatchWrite.Forget();
}

} // namespace Platform
