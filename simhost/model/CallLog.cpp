// Call log and failure injection shared by the tools and the console's sim backends.
#include "simhost/model/CallLog.h"

#include <algorithm>
#include <fcntl.h>
#include <sstream>
#include <unistd.h>

namespace SimHost {

void AppendCallLog(const std::string& dir, const std::vector<std::string>& words) {
    std::string path = dir + "/var/log/simhost-calls.log";
    int fd = open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0644);
    if (fd < 0)
        return;
    std::string text = Json(words).dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
    ssize_t n = write(fd, text.data(), text.size());
    (void)n;
    close(fd);
}

bool IsFailing(const Json& state, const std::vector<std::string>& words) {
    const Json* failing = nullptr;
    if (state.contains("simulation") && state["simulation"].is_object() &&
        state["simulation"].contains("failing"))
        failing = &state["simulation"]["failing"];
    if (!failing || !failing->is_array())
        return false;
    for (const auto& entry : *failing) {
        if (!entry.is_string())
            continue;
        std::vector<std::string> want;
        std::istringstream in(entry.get<std::string>());
        for (std::string word; in >> word;)
            want.push_back(word);
        if (!want.empty() && want.size() <= words.size() &&
            std::equal(want.begin(), want.end(), words.begin()))
            return true;
    }
    return false;
}

} // namespace SimHost
