// Whole-file reads and writes, and line/word splitting, without iostreams: the console links the C++ runtime
// statically, and the stream classes alone would pull the whole locale machinery into every start. A leaf:
// the console and the simulated host both use it, and it depends on nothing of either.
#pragma once

#include <cerrno>
#include <cstdio>
#include <string>
#include <vector>

namespace Common {

// Reads the whole file into `out`; false (errno set) when it cannot be opened or read.
inline bool ReadTextFile(const std::string& path, std::string& out) {
    std::FILE* file = std::fopen(path.c_str(), "re");
    if (file == nullptr)
        return false;
    out.clear();
    char buffer[4096];
    size_t n;
    while ((n = std::fread(buffer, 1, sizeof buffer, file)) > 0)
        out.append(buffer, n);
    bool ok = !std::ferror(file);
    int saved = errno;
    std::fclose(file);
    errno = saved;
    return ok;
}

// Writes `text` as the whole content of `path` (created or truncated); false (errno set) on failure.
inline bool WriteTextFile(const std::string& path, const std::string& text) {
    std::FILE* file = std::fopen(path.c_str(), "we");
    if (file == nullptr)
        return false;
    bool ok = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    int saved = errno;
    ok = std::fclose(file) == 0 && ok;
    if (!ok && errno == 0)
        errno = saved;
    return ok;
}

// The lines of `text` without their line breaks; a final line break does not start another line.
inline std::vector<std::string> SplitLines(const std::string& text) {
    std::vector<std::string> lines;
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find('\n', start);
        if (end == std::string::npos)
            end = text.size();
        lines.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return lines;
}

// The blank-separated words of `text` (blanks, tabs and other white space).
inline std::vector<std::string> SplitWords(const std::string& text) {
    static const char* const kBlanks = " \t\r\n\v\f";
    std::vector<std::string> words;
    size_t start = text.find_first_not_of(kBlanks);
    while (start != std::string::npos) {
        size_t end = text.find_first_of(kBlanks, start);
        words.push_back(text.substr(start, end == std::string::npos ? std::string::npos : end - start));
        start = end == std::string::npos ? end : text.find_first_not_of(kBlanks, end);
    }
    return words;
}

} // namespace Common
