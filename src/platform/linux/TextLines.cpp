// Line and word splitting.
#include "platform/linux/TextLines.h"

namespace Platform::Linux {

std::vector<std::string_view> SplitLines(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        size_t end = text.find('\n');
        lines.push_back(text.substr(0, end));
        text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
    }
    return lines;
}

std::vector<std::string_view> SplitWords(std::string_view line) {
    std::vector<std::string_view> words;
    size_t i = 0;
    while (i < line.size()) {
        i = line.find_first_not_of(" \t\r", i);
        if (i == std::string_view::npos)
            break;
        size_t end = line.find_first_of(" \t\r", i);
        words.push_back(line.substr(i, end == std::string_view::npos ? std::string_view::npos : end - i));
        i = end == std::string_view::npos ? line.size() : end;
    }
    return words;
}

std::string_view Trim(std::string_view text) {
    size_t begin = text.find_first_not_of(" \t\r");
    if (begin == std::string_view::npos)
        return {};
    size_t end = text.find_last_not_of(" \t\r");
    return text.substr(begin, end - begin + 1);
}

} // namespace Platform::Linux
