// Scripts, PAM files and sample texts of a new simulated host. Scripts use nothing but /bin/sh builtins:
// the console starts them with an environment that has no PATH, and they must never leave DIR.
#include "simhost/model/HostFiles.h"

namespace SimHost {
namespace {

// A script `hostPath` (e.g. "/sbin/svcctl.sh") that finds DIR from its own location, `depth` levels up,
// and hands its arguments to the multi-call tool, which records and answers the call.
std::string ForwardingScript(const std::string& hostPath, int depth, const std::string& usage) {
    std::string up;
    for (int i = 0; i < depth; ++i)
        up += "/..";
    return "#!/bin/sh\n"
           "# " +
           usage +
           "\n"
           "# Simulated host: the work is done by the host's multi-call tool, found relative to this file.\n"
           "case $0 in */*) here=${0%/*} ;; *) here=. ;; esac\n"
           "root=$(cd \"$here" +
           up +
           "\" && pwd -P) || exit 1\n"
           "exec \"$root/sbin/" +
           kScriptTool + "\" " + hostPath + " \"$@\"\n";
}

std::string PamFile(const std::string& dir) {
    std::string module = dir + "/lib/security/pam_simhost.so root=" + dir + "\n";
    std::string text;
    for (const char* type : {"auth", "account", "password", "session"})
        text += std::string(type) + " required " + module;
    return text;
}

std::string HostsFile(const Json& state) {
    std::string text = "127.0.0.1\tlocalhost.localdomain localhost\n::1\tlocalhost.localdomain localhost\n";
    const Json& dns = state.value("dns", Json::object());
    std::string host = dns.value("hostname", "");
    std::string fqdn = host + "." + dns.value("domain", "");
    for (const auto& nic : state.value("tesnics", Json::array())) {
        if (nic.value("name", "") != state.value("management", ""))
            continue;
        std::string address = nic.value("running", Json::object()).value("address", "0.0.0.0");
        if (!host.empty() && address != "0.0.0.0")
            text += address + "\t" + fqdn + " " + host + "\n";
    }
    return text;
}

const char* const kSupport = "# Support information shown by the console, one entry per line.\n"
                             "Orvane Support\n"
                             "\n"
                             "Web: https://support.orvane.example/\n"
                             "Phone: +1 555 0100 (24x7)\n"
                             "\n"
                             "Serial number: ACME9-2024-000123\n"
                             "Service tag: 7QX2K93\n"
                             "Asset tag: LAB-RACK4-U12\n"
                             "\n"
                             "$ipmi\n"
                             "Remote console: https://bmc.host01.example.test/\n"
                             "\n"
                             "Before calling, collect a support bundle from the host's\n"
                             "management interface and note the build number shown\n"
                             "on the welcome screen.\n";

struct SampleLog {
    const char* path;
    const char* text;
};

const SampleLog kSampleLogs[] = {
    {"var/log/tessel.log",
     "2024-05-02T08:14:01.512Z cpu0:1)Boot: 1843: Tessel 8.0.2 build-22380479 starting\n"
     "2024-05-02T08:14:02.004Z cpu0:1)Memory: 4096: 8388608 pages of 4096 bytes\n"
     "2024-05-02T08:14:03.771Z cpu1:2104)nicx0: link up, 10000 Mbps, full duplex\n"
     "2024-05-02T08:14:03.772Z cpu1:2104)nicx1: link up, 10000 Mbps, full duplex\n"
     "2024-05-02T08:14:03.790Z cpu2:2104)nicx3: link down\n"
     "2024-05-02T08:14:05.118Z cpu0:2211)kSwitch0: port 33554436 (tes0) connected to Management Network\n"},
    {"var/log/sysboot.log", "2024-05-02T08:14:10Z sysboot: loading configuration bundle state.tgz\n"
                            "2024-05-02T08:14:11Z sysboot: restoring network settings for tes0\n"
                            "2024-05-02T08:14:12Z sysboot: starting services: stewd plexa\n"
                            "2024-05-02T08:14:15Z sysboot: boot complete\n"},
    {"var/log/stewd.log",
     "2024-05-02T08:14:13.001Z info stewd[2301] Starting management agent, build 22380479\n"
     "2024-05-02T08:14:13.420Z info stewd[2301] Inventory loaded: 1 virtual machine\n"
     "2024-05-02T08:14:14.002Z info stewd[2301] Listening on port 443\n"
     "2024-05-02T09:02:41.877Z warning stewd[2301] Session for user root timed out\n"},
    {"var/log/plexa.log", "2024-05-02T08:14:14.500Z info plexa[2388] Steward Center Agent starting\n"
                          "2024-05-02T08:14:15.010Z info plexa[2388] Not connected to a center: waiting\n"},
    {"var/log/haagd.log",
     "2024-05-02T08:14:16.000Z info haagd[2412] High availability agent installed, not configured\n"},
};

} // namespace

std::vector<HostFile> HostTextFiles(const std::string& dir, const Json& state) {
    std::vector<HostFile> files = {
        {"sbin/svcctl.sh", ForwardingScript("/sbin/svcctl.sh", 1, "svcctl.sh stop|start: management agents"),
         true},
        {"sbin/cfgsave.sh", ForwardingScript("/sbin/cfgsave.sh", 1, "cfgsave.sh 0: save the configuration"),
         true},
        {"sbin/resetCfg.py",
         ForwardingScript("/sbin/resetCfg.py", 1, "resetCfg.py --reset-only: software defaults"), true},
        {"etc/pam.d/tarn", PamFile(dir)},
        {"etc/pam.d/other", "auth required pam_deny.so\naccount required pam_deny.so\n"
                            "password required pam_deny.so\nsession required pam_deny.so\n"},
        {"etc/hosts", HostsFile(state)},
        {"etc/orvane/support", kSupport},
        {"var/run/orvane/show-tarn-login", ""},
    };
    for (const char* service : {"CorlaShell", "SSH", "bryn-opsagent"})
        files.push_back({std::string("etc/init.d/") + service,
                         ForwardingScript(std::string("/etc/init.d/") + service, 2,
                                          std::string(service) + " status|start|stop|restart"),
                         true});
    for (const char* log : {"syslog.log", "obed.log", "audit.log", "simhost-calls.log"})
        files.push_back({std::string("var/log/") + log, ""});
    for (const auto& sample : kSampleLogs)
        files.push_back({sample.path, sample.text});
    return files;
}

} // namespace SimHost
