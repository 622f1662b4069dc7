// A throw-away simulated host: a temporary directory selected as the host root for the object's lifetime,
// with helpers to write its files, read them back and read the console's syslog messages.
#pragma once

#include "platform/HostRoot.h"

#include <nlohmann/json.hpp>

#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

class TempHost {
public:
    using Json = nlohmann::json;

    TempHost() {
        std::string pattern = (std::filesystem::temp_directory_path() / "tarn-host-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr)
            throw std::runtime_error("mkdtemp failed");
        root_ = pattern;
        for (const char* sub : {"bin", "sbin", "etc/simhost", "etc/init.d", "var/log", "var/run"})
            std::filesystem::create_directories(root_ + "/" + sub);
        // The host's shell understands "let", which the bryn-opsagent version test uses.
        std::filesystem::create_symlink("/bin/bash", root_ + "/bin/sh");
        Platform::UseSimulatedHost(root_);
    }
    ~TempHost() {
        Platform::UseRealHost();
        std::error_code ignored;
        std::filesystem::remove_all(root_, ignored);
    }
    TempHost(const TempHost&) = delete;
    TempHost& operator=(const TempHost&) = delete;

    const std::string& Root() const { return root_; }
    std::string Path(const std::string& hostPath) const { return root_ + hostPath; }
    std::string StatePath() const { return Path("/etc/simhost/host.json"); }

    void Write(const std::string& hostPath, const std::string& text) const {
        std::filesystem::create_directories(std::filesystem::path(Path(hostPath)).parent_path());
        std::ofstream(Path(hostPath)) << text;
    }
    // An executable shell script; through the "#!" line it sees its arguments as $1... and its path as $0.
    void Script(const std::string& hostPath, const std::string& body) const {
        Write(hostPath, "#!/bin/sh\n" + body + "\n");
        std::filesystem::permissions(Path(hostPath), std::filesystem::perms::owner_all);
    }
    std::string Read(const std::string& hostPath) const {
        std::stringstream text;
        text << std::ifstream(Path(hostPath)).rdbuf();
        return text.str();
    }
    std::vector<std::string> Lines(const std::string& hostPath) const {
        std::vector<std::string> lines;
        std::istringstream in(Read(hostPath));
        for (std::string line; std::getline(in, line);)
            lines.push_back(line);
        return lines;
    }

    void WriteState(const Json& state) const { Write("/etc/simhost/host.json", state.dump(2)); }
    Json State() const { return Json::parse(Read("/etc/simhost/host.json")); }
    void ChangeState(const std::function<void(Json&)>& change) const {
        Json state = State();
        change(state);
        WriteState(state);
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
    // Whether some logged message starts with `prefix`.
    bool LoggedPrefix(const std::string& prefix) const {
        for (const std::string& m : LogMessages())
            if (m.rfind(prefix, 0) == 0)
                return true;
        return false;
    }

private:
    std::string root_;
};
