// Line and word splitting for the small configuration and state files of a real host.
#pragma once

#include <string_view>
#include <vector>

namespace Platform::Linux {

// The lines of `text` without their line ends; a last line without a newline counts.
std::vector<std::string_view> SplitLines(std::string_view text);

// The words of `line`, separated by blanks and tabs.
std::vector<std::string_view> SplitWords(std::string_view line);

// `text` without leading and trailing blanks and tabs.
std::string_view Trim(std::string_view text);

} // namespace Platform::Linux
