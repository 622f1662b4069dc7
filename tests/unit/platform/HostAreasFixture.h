// A simulated host in a temporary directory holding a small host.json, selected for the test's duration.
#pragma once

#include "platform/HostRoot.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

class HostAreasTest : public ::testing::Test {
protected:
    using Json = nlohmann::json;

    void SetUp() override {
        char pattern[] = "/tmp/tarn-hostareas-XXXXXX";
        ASSERT_NE(mkdtemp(pattern), nullptr);
        dir_ = pattern;
        std::filesystem::create_directories(dir_ + "/etc/simhost");
        Platform::UseSimulatedHost(dir_);
    }

    void TearDown() override {
        Platform::UseRealHost();
        std::filesystem::remove_all(dir_);
    }

    std::string StateFile() const { return dir_ + "/etc/simhost/host.json"; }

    // The parts of a host.json these areas read; tests patch it before writing.
    static Json BaseState() {
        return Json::parse(R"({
          "schema": 1,
          "system": { "productName": "Orvane Hypervisor", "productVersion": "8.0.2", "kernelVersion": "8.0.1",
                      "build": "22380479", "welcomeMessage": "", "alerts": [],
                      "bootOptions": { "auditMode": false }, "pxeBootEnabled": false },
          "hardware": { "vendor": "Acme Computer Corp.", "product": "Acme Server 9",
                        "cpu": { "packages": 2, "model": "Xeon Gold" },
                        "memory": { "totalPages": 8388608, "pageSize": 4096 } },
          "keyboard": { "layouts": ["Default", "French", "US Default"], "current": "US Default" },
          "advancedOptions": { "/UserVars/TarnTimeOut": { "type": "int", "value": 900 } },
          "userOptions": {},
          "vms": [],
          "firewall": { "rulesets": [ { "name": "httpClient", "enabled": false },
                                      { "name": "sshServer", "enabled": true } ] },
          "smartCards": { "slots": [ { "slot": 0, "token": null } ] }
        })");
    }

    void Write(const Json& state) const { WriteText(state.dump(2)); }

    void WriteText(const std::string& text) const {
        std::ofstream out(StateFile(), std::ios::trunc);
        out << text;
    }

    Json Read() const {
        std::ifstream in(StateFile());
        return Json::parse(in);
    }

    std::string dir_;
};
