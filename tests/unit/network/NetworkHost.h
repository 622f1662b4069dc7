// A simulated host with a small network: four NICs (nicx3 without link); kSwitch0 with nicx0 and the
// management port group; the distributed kDS-1 with nicx2; tes0 on the management network, static, with a
// DHCP server on the wire that would lease 192.0.2.77.
#pragma once

#include "support/ActiveTestHost.h"

#include <gtest/gtest.h>

class NetworkHostTest : public ::testing::Test {
protected:
    using Json = TestHost::Json;

    static Json BaseHost() {
        Json ip = Json::parse(R"({"dhcp": false, "ipv4None": false, "address": "192.0.2.10",
            "netmask": "255.255.255.0", "gateway": "192.0.2.1", "ipv6Enabled": true, "dhcpv6": false,
            "routerAdvertised": false, "ipv6Gateway": "", "dhcpDns": false,
            "ipv6": [{"address": "fe80::250:56ff:feaa:0", "prefix": 64, "type": 7, "scope": "link"}]})");
        Json host = Json::parse(R"({"schema": 1, "pnics": [],
          "standardSwitches": [{"name": "kSwitch0", "ports": 128, "uplinks": ["nicx0"],
            "portGroups": [{"name": "Management Network", "vlan": 0,
                            "teaming": {"uplinkOrder": ["nicx0"], "maxActive": 1}}]}],
          "distributedSwitches": [{"name": "kDS-1", "uuid": "50 1a", "uplinks": ["nicx2"],
                                   "ports": [{"key": "10", "portGroup": "dvpg-mgmt"}]}],
          "tesnics": [{"name": "tes0", "connection": {"type": 1, "portGroup": "Management Network"},
                       "mac": "00:50:56:aa:00:00", "enabled": true, "dhcpBound": false,
                       "dhcpServer": "0.0.0.0"}],
          "management": "tes0",
          "ipv6": {"enabled": true, "pendingEnabled": true},
          "dns": {"hostname": "host01", "domain": "example.test", "servers": ["192.0.2.53", "192.0.2.54"],
                  "ipv6Servers": [], "search": ["example.test"], "dhcp": false},
          "routes": {"ipv4Gateway": "192.0.2.1", "ipv6Gateway": ""},
          "network": {"answering": [], "names": {}, "dhcp": {"available": true,
            "lease": {"address": "192.0.2.77", "netmask": "255.255.255.0", "gateway": "192.0.2.1",
                      "server": "192.0.2.2", "dns": ["192.0.2.53"]}}}})");
        host["tesnics"][0]["stored"] = host["tesnics"][0]["running"] = ip;
        for (int i = 0; i < 4; ++i) {
            const std::string n = std::to_string(i);
            host["pnics"].push_back({{"name", "nicx" + n},
                                     {"pci", "0000:03:00." + n},
                                     {"label", "Acme 10G Adapter"},
                                     {"driver", "acme"},
                                     {"mac", "00:50:56:aa:00:0" + n},
                                     {"link", i != 3},
                                     {"speedMbps", 10000},
                                     {"pciReadable", true}});
        }
        return host;
    }

    ActiveTestHost host_{TestHost::Layout::Folders};
};
