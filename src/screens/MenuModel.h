// The System Customization menu's data as plain values: which entries exist and can be chosen, the log
// table and its numbering, and paging of the support information. GeneralWindow draws from these.
#pragma once

#include "ui/TextArea.h"

#include <map>
#include <string>
#include <vector>

namespace Tarn {

struct MenuEntry {
    unsigned id;  // catalogue id of the label; 3 is a blank separator
    bool enabled; // can be chosen
};

struct MenuFlags {
    bool lockdownAvailable = false;
    bool managementInterface = false;
    bool keyboardChoice = false;
    bool networkBoot = false;
};

std::vector<MenuEntry> BuildMenuEntries(const MenuFlags& flags);

struct LogFile {
    const char* label;
    const char* path; // host path
};

// The seven logs offered for viewing, in menu order.
const std::vector<LogFile>& LogFiles();

// For each row of LogFiles(), its number (1..) when the file exists, 0 when it does not.
std::vector<int> NumberLogs(const std::vector<bool>& exists);

// The log list markup: "{color:white}<1> {color:light-grey}Syslog{/color}\n" per existing file.
std::string LogListText(const std::vector<int>& numbers);

// Index into LogFiles() of the file numbered `digit`, or -1.
int LogForDigit(const std::vector<int>& numbers, int digit);

// Support information: lines of the file, "#" lines skipped, "$" lines kept for substitution.
std::vector<std::string> ParseSupportLines(const std::string& fileText);

// Support lines with every "$key" line resolved: a line that is "$" and an information key name (e.g.
// "$corlaversion") becomes that host fact; a key without a known fact, or a name that is no key, drops the
// line. The support file thus carries host-specific facts without being rewritten per host.
std::vector<std::string> ExpandSupportLines(const std::vector<std::string>& lines,
                                            const std::map<InfoType, std::string>& facts);

// Support information paged in an area `width` cells wide and `rows` high: each line takes the rows it wraps
// onto, and the "<Page Up>"/"<Page Down>" marks take a row each where more lies above or below.
struct SupportPaging {
    const std::vector<std::string>& lines;
    size_t rows;
    int width;
};

// One page from line `first`, marks included.
std::string SupportPage(const SupportPaging& paging, size_t first);

// Paging positions: the first line of the next page (unchanged on the last page) and of the previous one
// (0 at the top), so that paging down and back up returns to the same lines.
size_t NextSupportPage(const SupportPaging& paging, size_t first);
size_t PreviousSupportPage(const SupportPaging& paging, size_t first);

} // namespace Tarn
