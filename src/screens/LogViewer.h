// Viewing one host log file in the pager, which gets the whole terminal until the user quits it.
#pragma once

#include <functional>
#include <string>

namespace Tarn {

// Starts a program: (path, null-terminated argv) -> exit code.
using PagerRunner = std::function<int(const char* path, const char* const argv[])>;

// The prompt line the pager shows instead of its own.
inline constexpr const char* kPagerPrompt = "<Q> Quit </> RegExp Search <H> Help";

// Runs the pager on `file` through `run` with LESSSECURE set to "1", and sets LESSSECURE back to its
// earlier value afterwards (an unset variable comes back set to the empty string). Returns the pager's
// exit code.
int RunPager(const std::string& file, const PagerRunner& run);

// The whole view: hands the terminal to HostPath("/bin/less") on `file` (a real path) and takes it back.
// The caller repaints its window afterwards.
void ViewLogFile(const std::string& file);

} // namespace Tarn
