// Text helpers for command lines and for text that host tools return.
#pragma once

#include <string>
#include <vector>

namespace Tarn {

// The elements up to the null entry, joined with one blank each ("" when argv[0] is null).
std::string JoinArgv(const char* const argv[]);

// The strings joined with "," (no trailing comma; "" for an empty list).
std::string JoinWithCommas(const std::vector<std::string>& items);

// Drops leading and trailing white space and turns every inner run of white space into one blank.
std::string CollapseWhitespace(const std::string& text);

} // namespace Tarn
