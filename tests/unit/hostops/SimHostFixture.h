// A simulated host made from the default scenario with the real simulated tools, selected as the host
// root: hostops sequences run against it and are checked by what the tools recorded.
#pragma once

#include "platform/HostRoot.h"
#include "simhost/model/Init.h"
#include "simhost/model/Store.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

class SimHostFixture : public ::testing::Test {
protected:
    using Json = SimHost::Json;

    void SetUp() override {
        std::string pattern = (std::filesystem::temp_directory_path() / "tarn-hostops-XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        dir_ = pattern;
        const char* build = std::getenv("TARN_BUILD_DIR");
        SimHost::InitHost(
            dir_, "default",
            build && *build ? build : std::filesystem::read_symlink("/proc/self/exe").parent_path().string());
        Platform::UseSimulatedHost(dir_);
    }
    void TearDown() override {
        Platform::UseRealHost();
        std::error_code ignored;
        std::filesystem::remove_all(dir_, ignored);
    }

    Json State() const { return SimHost::Load(dir_); }
    void Change(const std::function<void(Json&)>& fn) const { SimHost::Transact(dir_, fn); }

    std::vector<std::string> Lines(const std::string& relative) const {
        std::ifstream in(dir_ + "/" + relative);
        std::vector<std::string> lines;
        for (std::string line; std::getline(in, line);)
            lines.push_back(line);
        return lines;
    }
    // Every tool call since the last Calls(), each as its words joined by blanks.
    std::vector<std::string> Calls() {
        std::vector<std::string> calls;
        std::vector<std::string> all = Lines("var/log/simhost-calls.log");
        for (size_t i = seenCalls_; i < all.size(); ++i) {
            std::string joined;
            for (const auto& word : Json::parse(all[i]))
                joined += (joined.empty() ? "" : " ") + word.get<std::string>();
            calls.push_back(joined);
        }
        seenCalls_ = all.size();
        return calls;
    }
    // The console's syslog messages.
    std::vector<std::string> Messages() const {
        std::vector<std::string> messages;
        for (const std::string& line : Lines("var/log/syslog.log"))
            messages.push_back(line.substr(line.find("]: ") + 3));
        return messages;
    }
    bool Logged(const std::string& message) const {
        for (const std::string& m : Messages())
            if (m == message)
                return true;
        return false;
    }

    std::string dir_;
    size_t seenCalls_ = 0;
};
