// Hosts-file editing; the file is replaced atomically so a reader never sees half of it.
#include "platform/HostsFile.h"

#include "common/TextFile.h"
#include "platform/HostCtlException.h"
#include "platform/HostRoot.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <strings.h>
#include <vector>

namespace TesCtl::Network {
namespace {

[[noreturn]] void Fail(const std::string& what, const std::string& path) {
    throw HostCtl::Lib::HostCtlException(what + " " + path + ": " + std::strerror(errno));
}

// The line without `name`; `changed` is set when it was there. A line left with an address and no name is
// returned empty with `drop` set.
std::string RemoveName(const std::string& line, const std::string& name, bool& changed, bool& drop) {
    drop = false;
    auto hash = line.find('#');
    std::string body = line.substr(0, hash);
    std::string comment = hash == std::string::npos ? "" : line.substr(hash);
    std::vector<std::string> fields = Common::SplitWords(body);
    if (fields.size() < 2)
        return line;
    std::string out = fields[0];
    size_t kept = 0;
    bool removed = false;
    for (size_t i = 1; i < fields.size(); ++i) {
        if (strcasecmp(fields[i].c_str(), name.c_str()) == 0) {
            removed = true;
            continue;
        }
        out += ' ' + fields[i];
        ++kept;
    }
    if (!removed)
        return line;
    changed = true;
    drop = kept == 0;
    if (!comment.empty())
        out += ' ' + comment;
    return out;
}

} // namespace

HostsFile::HostsFile() : path_(Platform::HostPath("/etc/hosts")) {}

bool HostsFile::RemoveEntryByHostName(const std::string& name) {
    std::string text;
    if (!Common::ReadTextFile(path_, text))
        Fail("Cannot read", path_);
    std::string result;
    bool changed = false;
    for (const std::string& line : Common::SplitLines(text)) {
        bool drop = false;
        std::string kept = RemoveName(line, name, changed, drop);
        if (!drop)
            result += kept + '\n';
    }
    if (!changed)
        return false;
    std::string temp = path_ + ".tmp";
    if (!Common::WriteTextFile(temp, result))
        Fail("Cannot write", temp);
    if (std::rename(temp.c_str(), path_.c_str()) != 0)
        Fail("Cannot replace", path_);
    return true;
}

} // namespace TesCtl::Network
