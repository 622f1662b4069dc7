// Temporary simulated hosts and their record files.
#include "harness/SimHost.h"

#include "harness/Command.h"
#include "harness/Paths.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace e2e {

namespace {

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> out;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        if (!line.empty())
            out.push_back(line);
    return out;
}

} // namespace

SimHost::SimHost(const std::string& scenario) {
    std::string pattern = std::filesystem::temp_directory_path().string() + "/tarn-e2e-XXXXXX";
    if (!mkdtemp(pattern.data()))
        throw std::runtime_error("mkdtemp failed for " + pattern);
    dir_ = pattern;
    CommandResult r = RunCommand({BuildDir() + "/simhost", "init", dir_, "--scenario", scenario});
    if (r.status != 0)
        throw std::runtime_error("simhost init " + dir_ + " --scenario " + scenario + " failed (" +
                                 std::to_string(r.status) + "): " + r.output);
}

SimHost::~SimHost() {
    if (std::getenv("TARN_E2E_KEEP"))
        return;
    std::error_code ec;
    std::filesystem::remove_all(dir_, ec);
}

std::string SimHost::ReadFile(const std::string& relative) const {
    std::ifstream in(Path(relative), std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

void SimHost::WriteFile(const std::string& relative, const std::string& text) const {
    std::filesystem::create_directories(std::filesystem::path(Path(relative)).parent_path());
    std::ofstream out(Path(relative), std::ios::binary | std::ios::trunc);
    out << text;
    if (!out)
        throw std::runtime_error("cannot write " + Path(relative));
}

std::vector<std::string> SimHost::SyslogLines() const {
    return Lines(ReadFile("var/log/syslog.log"));
}

std::vector<std::string> SimHost::SyslogMatching(const std::string& text) const {
    std::vector<std::string> out;
    for (auto& line : SyslogLines())
        if (line.find(text) != std::string::npos)
            out.push_back(line);
    return out;
}

std::vector<std::vector<std::string>> SimHost::ToolCalls() const {
    std::vector<std::vector<std::string>> calls;
    for (auto& line : Lines(ReadFile("var/log/simhost-calls.log")))
        calls.push_back(nlohmann::json::parse(line).get<std::vector<std::string>>());
    return calls;
}

nlohmann::json SimHost::HostJson() const {
    return nlohmann::json::parse(ReadFile("etc/simhost/host.json"));
}

} // namespace e2e
