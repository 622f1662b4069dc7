// Keyboard layout marking.
#include "screens/KeyboardLayouts.h"

namespace Tarn {

int MarkedLayoutIndex(const std::vector<std::string>& layouts, const std::string& configured) {
    for (size_t i = 0; i < layouts.size(); ++i)
        if (layouts[i] == configured)
            return static_cast<int>(i);
    return -1;
}

std::optional<std::string> LayoutToApply(const std::vector<std::string>& layouts, int marked) {
    if (marked < 0 || static_cast<size_t>(marked) >= layouts.size())
        return std::nullopt;
    return layouts[static_cast<size_t>(marked)];
}

} // namespace Tarn
