// A small simulated host in a temporary directory: host.json written by the test, syslog lines read back.
#pragma once

#include "platform/HostRoot.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

class SimHostFixture : public ::testing::Test {
protected:
    using Json = nlohmann::json;

    void SetUp() override {
        char pattern[] = "/tmp/tarn-net-XXXXXX";
        ASSERT_NE(mkdtemp(pattern), nullptr);
        dir_ = pattern;
        std::filesystem::create_directories(dir_ + "/etc/simhost");
        std::filesystem::create_directories(dir_ + "/var/log");
        Platform::UseSimulatedHost(dir_);
    }
    void TearDown() override {
        Platform::UseRealHost();
        std::filesystem::remove_all(dir_);
    }

    static Json IpConfigJson(const std::string& address, bool dhcp = false) {
        return {{"dhcp", dhcp},
                {"ipv4None", false},
                {"address", address},
                {"netmask", "255.255.255.0"},
                {"gateway", "192.0.2.1"},
                {"ipv6Enabled", true},
                {"dhcpv6", false},
                {"routerAdvertised", false},
                {"ipv6",
                 {{{"address", "fe80::250:56ff:feaa:0"}, {"prefix", 64}, {"type", 7}, {"scope", "link"}}}},
                {"ipv6Gateway", ""},
                {"dhcpDns", false}};
    }

    // Four NICs; kSwitch0 with nicx0 and the management port group; kDS-1 with nicx2; tes0 on management.
    static Json BaseHost() {
        Json pnics = Json::array();
        for (int i = 0; i < 4; ++i) {
            pnics.push_back({{"name", "nicx" + std::to_string(i)},
                             {"pci", "0000:03:00." + std::to_string(i)},
                             {"label", "Acme 10G Adapter"},
                             {"driver", "acme"},
                             {"mac", "00:50:56:aa:00:0" + std::to_string(i)},
                             {"link", i != 3},
                             {"speedMbps", 10000},
                             {"pciReadable", true}});
        }
        return {{"schema", 1},
                {"pnics", pnics},
                {"standardSwitches",
                 {{{"name", "kSwitch0"},
                   {"ports", 128},
                   {"uplinks", {"nicx0"}},
                   {"portGroups",
                    {{{"name", "Management Network"},
                      {"vlan", 0},
                      {"teaming", {{"uplinkOrder", {"nicx0"}}, {"maxActive", 1}}}}}}}}},
                {"distributedSwitches",
                 {{{"name", "kDS-1"},
                   {"uuid", "50 1a"},
                   {"uplinks", {"nicx2"}},
                   {"ports", {{{"key", "10"}, {"portGroup", "dvpg-mgmt"}}}}}}},
                {"tesnics",
                 {{{"name", "tes0"},
                   {"connection", {{"type", 1}, {"portGroup", "Management Network"}}},
                   {"mac", "00:50:56:aa:00:00"},
                   {"enabled", true},
                   {"dhcpBound", false},
                   {"dhcpServer", "0.0.0.0"},
                   {"stored", IpConfigJson("192.0.2.10")},
                   {"running", IpConfigJson("192.0.2.10")}}}},
                {"management", "tes0"},
                {"ipv6", {{"enabled", true}, {"pendingEnabled", true}}},
                {"dns",
                 {{"hostname", "host01"},
                  {"domain", "example.test"},
                  {"servers", {"192.0.2.53", "192.0.2.54"}},
                  {"ipv6Servers", Json::array()},
                  {"search", {"example.test"}},
                  {"dhcp", false}}},
                {"routes", {{"ipv4Gateway", "192.0.2.1"}, {"ipv6Gateway", ""}}},
                {"network",
                 {{"answering", Json::array()},
                  {"names", Json::object()},
                  {"dhcp",
                   {{"available", true},
                    {"lease",
                     {{"address", "192.0.2.77"},
                      {"netmask", "255.255.255.0"},
                      {"gateway", "192.0.2.1"},
                      {"server", "192.0.2.2"},
                      {"dns", {"192.0.2.53"}}}}}}}}};
    }

    void WriteHost(const Json& host) { std::ofstream(dir_ + "/etc/simhost/host.json") << host.dump(2); }
    Json ReadHost() const { return Json::parse(std::ifstream(dir_ + "/etc/simhost/host.json")); }

    std::string Syslog() const {
        std::ifstream in(dir_ + "/var/log/syslog.log");
        std::stringstream s;
        s << in.rdbuf();
        return s.str();
    }
    // A whole logged message, exactly.
    bool Logged(const std::string& message) const {
        return Syslog().find("]: " + message + "\n") != std::string::npos;
    }

    std::string dir_;
};
