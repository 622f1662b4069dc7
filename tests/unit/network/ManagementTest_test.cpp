// The management network test's rules (default targets, row validation, step texts), the restart's IPv6
// lines, and the hostname step against a simulated host: resolution through answering name servers only,
// the hosts file set aside and restored.
#include "NetworkHost.h"

#include "network/HostnameCheck.h"
#include "network/RestartText.h"
#include "network/TestStep.h"
#include "network/TestTargets.h"
#include "platform/Resolver.h"

#include <chrono>
#include <filesystem>
#include <thread>

using namespace Tarn;

TEST(TestTargets, DefaultsFillRowsInOrderSkippingUnsetAddresses) {
    struct Case {
        const char* name;
        TestCandidates candidates;
        std::vector<std::string> rows;
        std::string hostname;
    };
    const Case cases[] = {
        {"gateway then servers, three at most",
         {"192.0.2.1", {"192.0.2.53", "192.0.2.54", "192.0.2.55"}, false, "", {}, "host01", "example.test"},
         {"192.0.2.1", "192.0.2.53", "192.0.2.54"},
         "host01.example.test"},
        {"unset gateway and server skipped",
         {"0.0.0.0", {"", "192.0.2.53"}, false, "", {}, "host01", ""},
         {"192.0.2.53", "", ""},
         "host01"},
        {"IPv6 candidates only with IPv6 on",
         {"", {"192.0.2.53"}, false, "2001:db8::1", {"2001:db8::53"}, "", "example.test"},
         {"192.0.2.53", "", ""},
         ""},
        {"IPv6 gateway before IPv6 servers, :: skipped",
         {"192.0.2.1", {}, true, "::", {"2001:db8::53", "2001:db8::54"}, "h", "d"},
         {"192.0.2.1", "2001:db8::53", "2001:db8::54"},
         "h.d"},
        {"nothing configured", {"0.0.0.0", {}, true, "::", {}, "", ""}, {"", "", ""}, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        TestTargets t = DefaultTestTargets(c.candidates);
        EXPECT_EQ(t.addresses, c.rows);
        EXPECT_EQ(t.hostname, c.hostname);
    }
}

TEST(TestTargets, FirstInvalidRow) {
    EXPECT_EQ(FirstInvalidTestAddress({"", "192.0.2.1", "fe80::1%tes0"}), -1);
    EXPECT_EQ(FirstInvalidTestAddress({"192.0.2.1", "192.0.2.256", "bad"}), 1);
    EXPECT_EQ(FirstInvalidTestAddress({"host01", "", ""}), 0);
    EXPECT_EQ(FirstInvalidTestAddress({"", "", "192.0.2.7 "}), 2);
}

TEST(TestTargets, PingCommandAndStepText) {
    EXPECT_EQ(PingCommandLine("192.0.2.1", "tes0"), "/bin/tesping -c 3 -I tes0 192.0.2.1");
    EXPECT_EQ(PingCommandLine("192.0.2.1", ""), "/bin/tesping -c 3 192.0.2.1");
    EXPECT_EQ(PingStepText("Pinging address", 1, "192.0.2.1", "tes0"), "Pinging address #1 (192.0.2.1).");
    EXPECT_EQ(PingStepText("Pinging address", 2, "fe80::1", "tes0"), "Pinging address #2 (fe80::1%tes0).");
    EXPECT_EQ(PingStepText("Pinging address", 3, "fe80::1%tes1", "tes0"),
              "Pinging address #3 (fe80::1%tes1).");
    EXPECT_EQ(PingStepText("Pinging address", 3, "2001:db8::1", "tes0"), "Pinging address #3 (2001:db8::1).");
}

TEST(RestartText, ListsTwoStaticGlobalAddressesThenEllipsis) {
    using HostCtl::Network::Ipv6Network;
    auto net = [](const char* text, int type) {
        Ipv6Network n{std::string_view(text)};
        n.SetIpv6AddressType(type);
        n.SetIpv6Scope(Ipv6Network::ScopeOf(n.GetAddress()));
        return n;
    };
    HostCtl::Network::IpConfig config;
    config.AddIpv6Network(net("fe80::5/64", Ipv6Network::TYPE_STATIC));
    config.AddIpv6Network(net("2001:db8::7/64", Ipv6Network::TYPE_AUTOCONF));
    EXPECT_EQ(RestartIpv6Lines(config, "IP address is "), "");
    config.AddIpv6Network(net("2001:db8::1/64", Ipv6Network::TYPE_STATIC));
    EXPECT_EQ(RestartIpv6Lines(config, "IP address is "), "\n   IP address is 2001:db8::1/64");
    config.AddIpv6Network(net("2001:db8::2/64", Ipv6Network::TYPE_STATIC));
    config.AddIpv6Network(net("2001:db8::3/64", Ipv6Network::TYPE_STATIC));
    EXPECT_EQ(RestartIpv6Lines(config, "IP address is "),
              "\n   IP address is 2001:db8::1/64\n   IP address is 2001:db8::2/64   ...\n");
}

class HostnameCheckTest : public NetworkHostTest {
protected:
    void SetUp() override {
        auto host = BaseHost();
        host["network"]["answering"] = {"192.0.2.54"};
        host["network"]["names"] = {{"host01.example.test", "192.0.2.10"},
                                    {"www.example.test", "192.0.2.80"}};
        host_.WriteState(host);
        host_.Write("/etc/hosts", kHosts);
    }
    static constexpr const char* kHosts = "127.0.0.1 localhost\n192.0.2.10 host01.example.test host01\n"
                                          "192.0.2.99 other.example.test\n";
};

TEST_F(HostnameCheckTest, SimulatedResolver) {
    using TesCtl::Network::ResolveHostName;
    EXPECT_TRUE(ResolveHostName("HOST01.example.test")) << "names compare without case";
    EXPECT_TRUE(ResolveHostName("other.example.test")) << "the hosts file answers first";
    EXPECT_FALSE(ResolveHostName("nowhere.example.test"));
    EXPECT_FALSE(ResolveHostName(""));
    host_.ChangeState([](Json& s) { s["network"]["answering"] = {"192.0.2.1"}; });
    EXPECT_FALSE(ResolveHostName("www.example.test")) << "no configured name server answers";
    EXPECT_TRUE(ResolveHostName("host01.example.test")) << "still in the hosts file";
    host_.ChangeState([](Json& s) {
        s["dns"]["ipv6Servers"] = {"fe80::53%tes0"};
        s["network"]["answering"] = {"fe80::53"};
    });
    EXPECT_TRUE(ResolveHostName("www.example.test")) << "an IPv6 name server answers";
}

TEST_F(HostnameCheckTest, ResolvesThroughNameServersAndRestoresHostsFile) {
    EXPECT_TRUE(ResolveThroughNameServers("host01.example.test"));
    host_.ChangeState([](Json& s) { s["network"]["answering"] = Json::array(); });
    EXPECT_FALSE(ResolveThroughNameServers("host01.example.test")) << "the hosts file must not answer";
    EXPECT_EQ(host_.Read("/etc/hosts"), kHosts);
    EXPECT_FALSE(std::filesystem::exists(host_.Path("/etc/hosts.backup")));
}

TEST_F(HostnameCheckTest, MissingHostsFileIsLoggedAndLeftAlone) {
    std::filesystem::remove(host_.Path("/etc/hosts"));
    EXPECT_TRUE(ResolveThroughNameServers("host01.example.test"));
    EXPECT_TRUE(host_.LoggedPrefix("failed to backup /etc/hosts: "));
    EXPECT_FALSE(host_.LoggedPrefix("failed to restore /etc/hosts: ")) << "nothing was set aside";
    EXPECT_FALSE(std::filesystem::exists(host_.Path("/etc/hosts")));

    host_.Write("/etc/hosts", kHosts);
    ASSERT_TRUE(BackupHostsFile());
    std::filesystem::remove(host_.Path("/etc/hosts.backup"));
    EXPECT_FALSE(RestoreHostsFile());
    EXPECT_TRUE(host_.LoggedPrefix("failed to restore /etc/hosts: "));
}

TEST_F(HostnameCheckTest, StepsRunOnWorkersAndOutliveTheirCaller) {
    // A ping that answers for one address only, and is slow for another.
    host_.Script("/bin/tesping",
                 "case \"$*\" in *192.0.2.1) exit 0;; *192.0.2.9) sleep 0.3; exit 0;; esac; exit 1");
    auto wait = [](const std::shared_ptr<TestStep>& step) {
        while (!step->Finished())
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        return step->Succeeded();
    };
    EXPECT_TRUE(wait(TestStep::StartPing("192.0.2.1", "tes0")));
    EXPECT_FALSE(wait(TestStep::StartPing("192.0.2.2", "tes0")));
    EXPECT_TRUE(wait(TestStep::StartResolve("host01.example.test")));
    EXPECT_FALSE(wait(TestStep::Start([]() -> bool { throw std::runtime_error("boom"); })));

    auto slow = TestStep::StartPing("192.0.2.9", "tes0");
    EXPECT_FALSE(slow->Finished()) << "the caller does not wait for the worker";
    std::weak_ptr<TestStep> left = slow;
    slow.reset(); // the dialog was left with Esc: the worker keeps the step alive until it ends
    while (!left.expired())
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
}
