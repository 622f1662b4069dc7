// System Customization menu data.
#include "screens/MenuModel.h"

#include "common/TextFile.h"
#include "screens/MenuTable.h"
#include "ui/Markup.h"
#include "ui/TextIds.h"

#include <algorithm>

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

constexpr size_t kFewestPageRows = 3; // a mark above, a line, a mark below
constexpr int kUnlimitedRows = 1 << 16;

std::string Shown(const std::string& line) {
    return "{color:light-grey}" + line + "{/color}";
}

size_t RowsOf(const std::string& line, int width) {
    const size_t rows = Markup::Layout(Shown(line), std::max(width, 1), kUnlimitedRows).size();
    return std::max<size_t>(rows, 1);
}

// How many lines from `first` fill at most `budget` rows; at least one, cut, when a single line is taller.
size_t LinesFitting(const SupportPaging& p, size_t first, size_t budget) {
    size_t used = 0, count = 0;
    for (size_t i = first; i < p.lines.size(); ++i, ++count) {
        used += RowsOf(p.lines[i], p.width);
        if (used > budget)
            break;
    }
    return first < p.lines.size() ? std::max<size_t>(count, 1) : 0;
}

struct PageShape {
    bool above;
    bool below;
    size_t count; // lines shown
};

PageShape ShapeOf(const SupportPaging& p, size_t first) {
    const size_t rows = std::max(p.rows, kFewestPageRows);
    PageShape shape{first > 0, false, 0};
    const size_t budget = rows - (shape.above ? 1 : 0);
    shape.count = LinesFitting(p, first, budget);
    if (first + shape.count < p.lines.size()) {
        shape.below = true; // its mark takes a row from the lines
        shape.count = LinesFitting(p, first, budget - 1);
    }
    return shape;
}

} // namespace

size_t NextSupportPage(const SupportPaging& paging, size_t first) {
    const PageShape shape = ShapeOf(paging, first);
    return shape.below ? first + shape.count : first;
}

size_t PreviousSupportPage(const SupportPaging& paging, size_t first) {
    // Pages start at the top and take as many lines as fit, so the previous page is found by paging down from
    // the top: paging up then retraces exactly the pages paged down through.
    size_t page = 0;
    for (;;) {
        const size_t next = NextSupportPage(paging, page);
        if (next == page || next >= first)
            return page;
        page = next;
    }
}

std::string SupportPage(const SupportPaging& paging, size_t first) {
    std::string text;
    const PageShape shape = ShapeOf(paging, first);
    if (shape.above)
        text += "{align:right}<Page Up>{/align}\n";
    for (size_t i = first; i < first + shape.count; ++i)
        text += Shown(paging.lines[i]) + "\n";
    if (shape.below)
        text += "{align:right}<Page Down>{/align}\n";
    return text;
}

} // namespace Tarn
