// Which keyboard layout the keyboard dialog marks, and which one Enter applies.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace Tarn {

// Index of the layout whose name equals `configured` byte for byte (the first of duplicates); -1 when the
// configured layout is not offered, so that nothing is marked and Enter changes nothing.
int MarkedLayoutIndex(const std::vector<std::string>& layouts, const std::string& configured);

// The name Enter applies for the marked index; none when nothing is marked.
std::optional<std::string> LayoutToApply(const std::vector<std::string>& layouts, int marked);

} // namespace Tarn
