// The simulated host's tools under any argument vector: each call ends with an exit code, its failures as
// messages, never a crash, an exception that escapes or a descriptor left open.
// Every input starts from the default scenario's state in a private host directory. The state is written
// again only when a call replaced it (each write is a rename, so a new inode), and the directory is rebuilt
// now and then so call logs and written cores do not pile up over millions of runs.
#include "simhost/model/Scenarios.h"
#include "simhost/model/Store.h"
#include "simhost/tools/Tool.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

using namespace SimHost::Tools;

std::vector<std::string> gNames;
std::string gDir;
SimHost::Json gInitial;
struct stat gWritten {};
bool gFresh = false;
unsigned gRuns = 0;

// Descriptors the process holds; a count, since a call may leak one and close a lower one.
long OpenDescriptors() {
    std::error_code ec;
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd", ec), {});
}

void RemoveHost() {
    std::error_code ec;
    std::filesystem::remove_all(gDir, ec);
}

void ResetHost() {
    const bool rebuild = gRuns++ % 1000 == 0;
    if (rebuild) {
        RemoveHost();
        std::filesystem::create_directories(gDir + "/etc/simhost");
        std::filesystem::create_directories(gDir + "/var/log");
    }
    if (rebuild || !gFresh) {
        SimHost::Save(gDir, gInitial);
        gFresh = stat(SimHost::StatePath(gDir).c_str(), &gWritten) == 0;
    }
}

bool StateReplaced() {
    struct stat now {};
    return stat(SimHost::StatePath(gDir).c_str(), &now) != 0 || now.st_ino != gWritten.st_ino ||
           now.st_ctim.tv_sec != gWritten.st_ctim.tv_sec || now.st_ctim.tv_nsec != gWritten.st_ctim.tv_nsec;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    // tmpfs when there is one: every call fsyncs the state.
    std::string base = access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp";
    std::string pattern = base + "/fuzz-simhost-XXXXXX";
    gDir = mkdtemp(pattern.data());
    gInitial = SimHost::ScenarioState("default");
    gNames = ToolNames();
    std::atexit(RemoveHost);
    // The tools print like their real counterparts; libFuzzer reports on standard error.
    int null = open("/dev/null", O_WRONLY);
    dup2(null, STDOUT_FILENO);
    close(null);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 1 || size > 512)
        return 0;
    Call call{gDir, gNames[data[0] % gNames.size()], {}};
    std::string word;
    for (size_t i = 1; i < size; ++i) {
        if (data[i] == '\n') {
            call.args.push_back(word);
            word.clear();
        } else {
            word += static_cast<char>(data[i]);
        }
    }
    call.args.push_back(word);
    ResetHost();
    const long openBefore = OpenDescriptors();
    RunCall(call); // an exception other than the state's own errors ends the run
    gFresh = !StateReplaced();
    // A descriptor left open shows here at once, not a thousand calls later as a failing open.
    if (OpenDescriptors() != openBefore)
        std::abort();
    return 0;
}
