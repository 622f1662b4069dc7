// Joining argument vectors and lists, and cleaning tool output.
#include "hostops/CommandText.h"

#include <cctype>

namespace Tarn {

std::string JoinArgv(const char* const argv[]) {
    std::string out;
    for (int i = 0; argv != nullptr && argv[i] != nullptr; ++i) {
        if (i > 0)
            out += ' ';
        out += argv[i];
    }
    return out;
}

std::string JoinWithCommas(const std::vector<std::string>& items) {
    std::string out;
    for (size_t i = 0; i < items.size(); ++i) {
        if (i > 0)
            out += ',';
        out += items[i];
    }
    return out;
}

std::string CollapseWhitespace(const std::string& text) {
    std::string out;
    bool pendingBlank = false;
    for (char c : text) {
        if (std::isspace(static_cast<unsigned char>(c))) {
            pendingBlank = !out.empty();
            continue;
        }
        if (pendingBlank)
            out += ' ';
        pendingBlank = false;
        out += c;
    }
    return out;
}

} // namespace Tarn
