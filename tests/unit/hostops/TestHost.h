// A throw-away simulated host root for the command and reporting tests: scripts in DIR/bin, log files in
// DIR/var/log, selected as the host root for the test's lifetime.
#pragma once

#include "platform/HostRoot.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace TestHost {

class Dir {
public:
    Dir() {
        std::string pattern = (std::filesystem::temp_directory_path() / "tarn-hostops-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr)
            throw std::runtime_error("mkdtemp failed");
        root_ = pattern;
        for (const char* sub : {"bin", "sbin", "etc/init.d", "var/log", "var/run"})
            std::filesystem::create_directories(root_ / sub);
        // The host's shell understands "let", which the bryn-opsagent version test uses.
        std::filesystem::create_symlink("/bin/bash", root_ / "bin/sh");
        Platform::UseSimulatedHost(root_.string());
    }
    ~Dir() {
        Platform::UseRealHost();
        std::error_code ignored;
        std::filesystem::remove_all(root_, ignored);
    }
    Dir(const Dir&) = delete;
    Dir& operator=(const Dir&) = delete;

    std::string Path(const std::string& hostPath) const { return root_.string() + hostPath; }

    // Writes an executable shell script at the host path. Through the "#!" line the script sees the
    // arguments after argv[0] as $1..., and its own path as $0.
    void Script(const std::string& hostPath, const std::string& body) const {
        std::filesystem::create_directories(std::filesystem::path(Path(hostPath)).parent_path());
        Write(hostPath, "#!/bin/sh\n" + body + "\n");
        std::filesystem::permissions(Path(hostPath), std::filesystem::perms::owner_all);
    }

    void Write(const std::string& hostPath, const std::string& text) const {
        std::ofstream(Path(hostPath)) << text;
    }

    std::string Read(const std::string& hostPath) const {
        std::ifstream in(Path(hostPath));
        std::stringstream text;
        text << in.rdbuf();
        return text.str();
    }

    std::vector<std::string> Lines(const std::string& hostPath) const {
        std::vector<std::string> lines;
        std::istringstream in(Read(hostPath));
        for (std::string line; std::getline(in, line);)
            lines.push_back(line);
        return lines;
    }

    // The message parts of the console's syslog lines ("... TARN[pid]: message").
    std::vector<std::string> LogMessages() const {
        std::vector<std::string> messages;
        for (const std::string& line : Lines("/var/log/syslog.log")) {
            size_t at = line.find("]: ");
            messages.push_back(at == std::string::npos ? line : line.substr(at + 3));
        }
        return messages;
    }

    bool Logged(const std::string& message) const {
        for (const std::string& m : LogMessages())
            if (m == message)
                return true;
        return false;
    }

private:
    std::filesystem::path root_;
};

} // namespace TestHost
