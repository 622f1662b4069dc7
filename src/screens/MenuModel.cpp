// System Customization menu data.
#include "screens/MenuModel.h"

#include "common/TextFile.h"
#include "screens/MenuTable.h"
#include "ui/TextIds.h"

namespace Tarn {

std::vector<MenuEntry> BuildMenuEntries(const MenuFlags& flags) {
    std::vector<MenuEntry> entries;
    for (const MenuRow& row : MenuTable()) {
        if (row.listed != nullptr && !row.listed(flags))
            continue;
        const bool enabled = row.id != TextId::Blank && (row.enabled == nullptr || row.enabled(flags));
        entries.push_back({row.id, enabled});
    }
    return entries;
}

const std::vector<LogFile>& LogFiles() {
    static const std::vector<LogFile> files = {
        {"Syslog", "/var/log/syslog.log"},
        {"Tessel", "/var/log/tessel.log"},
        {"Config", "/var/log/sysboot.log"},
        {"Management Agent (stewd)", "/var/log/stewd.log"},
        {"Steward Center Agent (plexa)", "/var/log/plexa.log"},
        {"High Availibility Agent (haagd)", "/var/log/haagd.log"},
        {"Orvane Corla Observation log (obed)", "/var/log/obed.log"},
    };
    return files;
}

std::vector<int> NumberLogs(const std::vector<bool>& exists) {
    std::vector<int> numbers(exists.size(), 0);
    int next = 1;
    for (size_t i = 0; i < exists.size(); ++i)
        if (exists[i])
            numbers[i] = next++;
    return numbers;
}

std::string LogListText(const std::vector<int>& numbers) {
    std::string text;
    const auto& files = LogFiles();
    for (size_t i = 0; i < numbers.size() && i < files.size(); ++i) {
        if (numbers[i] == 0)
            continue;
        text += "{color:white}<" + std::to_string(numbers[i]) + "> {color:light-grey}" + files[i].label +
                "{/color}\n";
    }
    return text;
}

int LogForDigit(const std::vector<int>& numbers, int digit) {
    for (size_t i = 0; i < numbers.size(); ++i)
        if (numbers[i] != 0 && numbers[i] == digit)
            return static_cast<int>(i);
    return -1;
}

std::vector<std::string> ParseSupportLines(const std::string& fileText) {
    std::vector<std::string> lines;
    for (auto& line : Common::SplitLines(fileText))
        if (line.empty() || line[0] != '#')
            lines.push_back(std::move(line));
    return lines;
}

std::vector<std::string> ExpandSupportLines(const std::vector<std::string>& lines,
                                            const std::map<InfoType, std::string>& facts) {
    std::vector<std::string> expanded;
    for (const std::string& line : lines) {
        if (line.empty() || line[0] != '$') {
            expanded.push_back(line);
            continue;
        }
        std::string name = line.substr(1);
        while (!name.empty() && (name.back() == ' ' || name.back() == '\t' || name.back() == '\r'))
            name.pop_back();
        std::optional<InfoType> key = TextArea::FindInfoType(name);
        if (!key)
            continue;
        auto fact = facts.find(*key);
        if (fact != facts.end() && !fact->second.empty())
            expanded.push_back(fact->second);
    }
    return expanded;
}

namespace {

struct PageShape {
    bool above;
    bool below;
    size_t rows; // content lines shown
};

// The marks take a row each, so fewer content lines fit on a page that shows them.
PageShape ShapeOf(size_t count, size_t first, size_t pageRows) {
    if (pageRows < 3)
        pageRows = 3;
    PageShape shape{first > 0, false, 0};
    shape.rows = pageRows - (shape.above ? 1 : 0);
    shape.below = count > first + shape.rows;
    if (shape.below)
        --shape.rows;
    return shape;
}

} // namespace

size_t NextSupportPage(const std::vector<std::string>& lines, size_t first, size_t pageRows) {
    PageShape shape = ShapeOf(lines.size(), first, pageRows);
    return shape.below ? first + shape.rows : first;
}

size_t PreviousSupportPage(size_t first, size_t pageRows) {
    if (pageRows < 3)
        pageRows = 3;
    // The previous page ends just above `first`; it shows the "<Page Down>" mark, and the "<Page Up>" mark
    // too unless it is the first page.
    if (first <= pageRows - 1)
        return 0;
    return first - (pageRows - 2);
}

std::string SupportPage(const std::vector<std::string>& lines, size_t first, size_t pageRows) {
    std::string text;
    const PageShape shape = ShapeOf(lines.size(), first, pageRows);
    const bool above = shape.above, below = shape.below;
    const size_t rows = shape.rows;
    if (above)
        text += "{align:right}<Page Up>{/align}\n";
    for (size_t i = first; i < lines.size() && i < first + rows; ++i)
        text += "{color:light-grey}" + lines[i] + "{/color}\n";
    if (below)
        text += "{align:right}<Page Down>{/align}\n";
    return text;
}

} // namespace Tarn
