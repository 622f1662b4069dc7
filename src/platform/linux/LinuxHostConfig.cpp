// Parsing tarn's real-host configuration file.
#include "platform/linux/LinuxHostConfig.h"

#include "platform/linux/TextLines.h"

#include <algorithm>

namespace Platform::Linux {
namespace {

// A kernel link name: 1-15 bytes, no '/', no white space, not "." or "..".
bool ValidLinkName(std::string_view name) {
    if (name.empty() || name.size() > 15 || name == "." || name == "..")
        return false;
    return std::none_of(name.begin(), name.end(),
                        [](char c) { return c == '/' || c == ' ' || c == '\t' || c == ':'; });
}

} // namespace

LinuxHostConfig ParseLinuxHostConfig(std::string_view text) {
    LinuxHostConfig config;
    int number = 0;
    for (std::string_view line : SplitLines(text)) {
        ++number;
        line = Trim(line.substr(0, line.find('#')));
        if (line.empty())
            continue;
        const std::string where = "line " + std::to_string(number) + ": ";
        size_t eq = line.find('=');
        if (eq == std::string_view::npos) {
            config.problems.push_back(where + "no '='");
            continue;
        }
        std::string_view key = Trim(line.substr(0, eq));
        std::string_view value = Trim(line.substr(eq + 1));
        if (key != "management" && key != "nic") {
            config.problems.push_back(where + "unknown key \"" + std::string(key) + "\"");
            continue;
        }
        if (!ValidLinkName(value)) {
            config.problems.push_back(where + "\"" + std::string(value) + "\" is no link name");
            continue;
        }
        if (key == "management")
            config.management = value;
        else if (std::find(config.nics.begin(), config.nics.end(), value) == config.nics.end())
            config.nics.emplace_back(value);
    }
    return config;
}

} // namespace Platform::Linux
