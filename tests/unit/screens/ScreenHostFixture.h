// TempHost: a simulated host made by `simhost init` in a temporary directory and selected as the host root,
// with readers of its files and state. ScreenHostFixture adds an off-screen 80x24 curses terminal whose keys
// come from a pipe: dialogs run for real against both.
#pragma once

#include "platform/HostRoot.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

#include <curses.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>

class TempHost : public ::testing::Test {
protected:
    using Json = nlohmann::json;

    void SetUp() override {
        std::string pattern = (std::filesystem::temp_directory_path() / "tarn-screens-XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        dir_ = pattern;
        const char* build = std::getenv("TARN_BUILD_DIR");
        const std::string simhost =
            (build && *build ? std::string(build)
                             : std::filesystem::read_symlink("/proc/self/exe").parent_path().string()) +
            "/simhost";
        ASSERT_EQ(std::system((simhost + " init " + dir_ + " >/dev/null 2>&1").c_str()), 0) << simhost;
        Platform::UseSimulatedHost(dir_);
    }
    void TearDown() override {
        Platform::UseRealHost();
        std::error_code ignored;
        std::filesystem::remove_all(dir_, ignored);
    }

    std::string Read(const std::string& relative) const {
        std::stringstream text;
        text << std::ifstream(dir_ + "/" + relative).rdbuf();
        return text.str();
    }
    // Whether the console's syslog has the line "... TARN[pid]: <message>".
    bool Logged(const std::string& message) const {
        return Read("var/log/syslog.log").find("]: " + message + "\n") != std::string::npos;
    }
    Json State() const { return Json::parse(Read("etc/simhost/host.json")); }
    void EditState(const std::function<void(Json&)>& edit) const {
        Json state = State();
        edit(state);
        std::ofstream(dir_ + "/etc/simhost/host.json") << state.dump(2);
    }

    std::string dir_;
};

class ScreenHostFixture : public TempHost {
protected:
    void SetUp() override {
        TempHost::SetUp();
        ASSERT_EQ(pipe(keys_), 0);
        savedStdin_ = dup(0);
        ASSERT_GE(dup2(keys_[0], 0), 0); // the event loop polls descriptor 0
        out_ = std::fopen("/dev/null", "w");
        set_escdelay(25);
        screen_ = newterm("xterm-256color", out_, stdin);
        ASSERT_NE(screen_, nullptr);
        set_term(screen_);
        keypad(stdscr, TRUE);
        resizeterm(24, 80);
        flushinp(); // the resize queues KEY_RESIZE, which would end the program in GetKey
    }
    void TearDown() override {
        if (screen_ != nullptr) {
            endwin();
            delscreen(screen_);
        }
        if (out_ != nullptr)
            std::fclose(out_);
        if (savedStdin_ >= 0) {
            dup2(savedStdin_, 0);
            close(savedStdin_);
        }
        close(keys_[0]);
        close(keys_[1]);
        TempHost::TearDown();
    }

    // Queues keys: plain text, or a terminfo capability name such as "kcud1" with Press.
    void Type(const std::string& text) {
        ASSERT_EQ(write(keys_[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }
    void Press(const char* capability) {
        const char* sequence = tigetstr(capability);
        ASSERT_TRUE(sequence != nullptr && sequence != reinterpret_cast<char*>(-1)) << capability;
        Type(sequence);
    }

private:
    int keys_[2] = {-1, -1};
    int savedStdin_ = -1;
    FILE* out_ = nullptr;
    SCREEN* screen_ = nullptr;
};
