// tesping -c COUNT [-I IFACE] ADDRESS: answers from the simulated network's "answering" list and never
// sends a packet. Output follows the usual ping summary; exit 0 when replies came, 1 when none did.
#include "Tool.h"

#include <algorithm>
#include <chrono>
#include <iostream>
#include <thread>

namespace SimHost::Tools {

namespace {
constexpr int kMaxCount = 1000;
} // namespace

int Tesping(const Call& call) {
    const auto& a = call.args;
    if (a.empty() || a.back().empty() || a.back()[0] == '-')
        return Complain(call, "usage: tesping -c COUNT [-I IFACE] ADDRESS", 2);
    std::string address = a.back();
    std::string bare = address.substr(0, address.find('%')); // fe80::1%tes0 answers as fe80::1
    std::string iface = Option(a, "-I");
    // Replies come at once, so a huge count would only flood the caller: take what a person would type.
    int count = 3;
    if (std::find(a.begin(), a.end() - 1, "-c") != a.end() - 1) {
        const std::string c = Option(a, "-c");
        const std::optional<int> n = CountArgument(c, 1, kMaxCount);
        if (!n)
            return Complain(
                call, "bad number of packets to transmit: " + c + " (1-" + std::to_string(kMaxCount) + ")",
                2);
        count = *n;
    }

    Json state = Load(call.dir);
    if (!iface.empty()) {
        Json nics = state.value("tesnics", Json::array());
        Json* nic = FindNamed(nics, iface);
        if (!nic || !nic->value("enabled", false))
            return Complain(call, "unknown or disabled interface " + iface, 2);
    }
    const Json& network = state.value("network", Json::object());
    Json answering = network.value("answering", Json::array());
    bool answers = std::find(answering.begin(), answering.end(), Json(bare)) != answering.end();
    int delayMs = WholeNumber(state.value("simulation", Json::object()), "pingDelayMs", 0);

    std::cout << "PING " << address << " (" << bare << "): 56 data bytes\n";
    for (int seq = 0; seq < count; ++seq) {
        if (delayMs > 0)
            std::this_thread::sleep_for(std::chrono::milliseconds(delayMs));
        if (answers)
            std::cout << "64 bytes from " << bare << ": icmp_seq=" << seq << " ttl=64 time=0.2" << seq
                      << "5 ms\n";
    }
    std::cout << "\n--- " << address << " ping statistics ---\n"
              << count << " packets transmitted, " << (answers ? count : 0) << " packets received, "
              << (answers ? "0" : "100") << "% packet loss\n";
    if (answers)
        std::cout << "round-trip min/avg/max = 0.205/0.215/0.225 ms\n";
    return answers ? 0 : 1;
}

} // namespace SimHost::Tools
