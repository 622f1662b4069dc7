// A throw-away simulated host for tests: a temporary directory made by `simhost init` from a scenario, or an
// empty one (optionally with the bare folders and shell that tests writing their own tools need). Readers and
// writers of its files, its state document, the console's syslog messages and the tool calls it recorded.
// Removed at the end unless TARN_E2E_KEEP is set. Paths are host paths: "/var/log/x" and "var/log/x" agree.
#pragma once

#include <nlohmann/json.hpp>

#include <functional>
#include <string>
#include <vector>

// TARN_BUILD_DIR (set by ctest), else the folder of the test program, which the build puts at the top.
std::string BuildDir();

class TestHost {
public:
    using Json = nlohmann::json;
    enum class Layout {
        Empty,   // nothing inside
        Folders, // bin, sbin, etc/simhost, etc/init.d, var/log, var/run; /bin/sh is bash
    };

    // `simhost init DIR --scenario NAME` with the built simhost; throws with its output on failure.
    explicit TestHost(const std::string& scenario = "default");
    explicit TestHost(Layout layout);
    ~TestHost();
    TestHost(const TestHost&) = delete;
    TestHost& operator=(const TestHost&) = delete;

    const std::string& Root() const { return root_; }
    std::string Path(const std::string& hostPath) const;
    // The value for TARN_HOST.
    std::string TarnHostValue() const { return "sim:" + root_; }

    // A file's text; empty when it does not exist.
    std::string Read(const std::string& hostPath) const;
    std::vector<std::string> Lines(const std::string& hostPath) const;
    void Write(const std::string& hostPath, const std::string& text) const;
    // An executable shell script; through the "#!" line it sees its arguments as $1... and its path as $0.
    void Script(const std::string& hostPath, const std::string& body) const;

    std::string StatePath() const { return Path("/etc/simhost/host.json"); }
    Json State() const;
    void WriteState(const Json& state) const;
    void ChangeState(const std::function<void(Json&)>& change) const;

    // The message parts of the console's syslog lines ("... TARN[pid]: message").
    std::vector<std::string> LogMessages() const;
    bool Logged(const std::string& message) const;
    bool LoggedPrefix(const std::string& prefix) const;
    // Whole syslog lines that contain `text`.
    std::vector<std::string> SyslogMatching(const std::string& text) const;

    // Each tool invocation's argv, oldest first.
    std::vector<std::vector<std::string>> ToolCalls() const;
    // The tool calls since the last NewToolCalls(), each as its words joined by blanks.
    std::vector<std::string> NewToolCalls();

private:
    std::string root_;
    size_t seenCalls_ = 0;
};

// Runs `path` with argument vector `argv` (element 0 included) and an environment without PATH, as the
// console does; standard output and error apart.
struct ProgramResult {
    int code = -1; // exit code; -1 when the program did not exit normally
    std::string out, err;
};
ProgramResult RunProgram(const std::string& path, const std::vector<std::string>& argv);
