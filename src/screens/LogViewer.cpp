// The log pager run: secure mode for the pager (no shell escapes, no other files), and the terminal lent
// to it for the duration.
#include "screens/LogViewer.h"

#include "core/TerminalHandover.h"
#include "hostops/TerminalCommand.h"
#include "platform/HostRoot.h"

#include <cstdlib>

namespace Tarn {

int RunPager(const std::string& file, const PagerRunner& run) {
    const char* previous = std::getenv("LESSSECURE");
    const std::string saved = previous != nullptr ? previous : "";
    setenv("LESSSECURE", "1", 1);
    const std::string pager = Platform::HostPath("/bin/less");
    const char* argv[] = {"less", "-cfP", kPagerPrompt, file.c_str(), nullptr};
    int rc = run(pager.c_str(), argv);
    setenv("LESSSECURE", saved.c_str(), 1);
    return rc;
}

void ViewLogFile(const std::string& file) {
    SuspendForChild();
    // A file removed since the list was drawn is passed on all the same: the pager reports it.
    RunPager(file, RunOnTerminal);
    ResumeAfterChild();
}

} // namespace Tarn
