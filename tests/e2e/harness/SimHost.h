// A simulated host in a fresh temporary directory, created by `simhost init`, and read access to the files
// in which it records what the console did.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace e2e {

class SimHost {
public:
    // Runs `$TARN_BUILD_DIR/simhost init DIR --scenario NAME`; throws with simhost's output on failure.
    explicit SimHost(const std::string& scenario = "default");
    // Removes the directory, unless TARN_E2E_KEEP is set (then its path is kept for inspection).
    ~SimHost();
    SimHost(const SimHost&) = delete;
    SimHost& operator=(const SimHost&) = delete;

    const std::string& Dir() const { return dir_; }
    std::string Path(const std::string& relative) const { return dir_ + "/" + relative; }
    // The value for TARN_HOST.
    std::string TarnHostValue() const { return "sim:" + dir_; }

    // A file's text; empty when it does not exist.
    std::string ReadFile(const std::string& relative) const;
    void WriteFile(const std::string& relative, const std::string& text) const;
    std::vector<std::string> SyslogLines() const;
    // Syslog lines that contain `text`.
    std::vector<std::string> SyslogMatching(const std::string& text) const;
    // Each tool invocation's argv, oldest first.
    std::vector<std::vector<std::string>> ToolCalls() const;
    nlohmann::json HostJson() const;
    std::string PidFile() const { return ReadFile("var/run/tarn.pid"); }

private:
    std::string dir_;
};

} // namespace e2e
