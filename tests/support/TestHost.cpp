// Temporary simulated hosts and their record files.
#include "support/TestHost.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace fs = std::filesystem;

std::string BuildDir() {
    if (const char* dir = std::getenv("TARN_BUILD_DIR"); dir && *dir)
        return dir;
    return fs::read_symlink("/proc/self/exe").parent_path().string();
}

namespace {

std::string NewDirectory() {
    std::string pattern = (fs::temp_directory_path() / "tarn-host-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr)
        throw std::runtime_error("mkdtemp failed for " + pattern);
    return pattern;
}

std::string Drain(int fd) {
    std::string text;
    char buf[4096];
    for (ssize_t n; (n = read(fd, buf, sizeof buf)) > 0;)
        text.append(buf, static_cast<size_t>(n));
    close(fd);
    return text;
}

} // namespace

TestHost::TestHost(const std::string& scenario) : root_(NewDirectory()) {
    ProgramResult r = RunProgram(BuildDir() + "/simhost", {"simhost", "init", root_, "--scenario", scenario});
    if (r.code != 0) {
        std::error_code ignored;
        fs::remove_all(root_, ignored);
        throw std::runtime_error("simhost init " + root_ + " --scenario " + scenario + " failed (" +
                                 std::to_string(r.code) + "): " + r.out + r.err);
    }
}

TestHost::TestHost(Layout layout) : root_(NewDirectory()) {
    if (layout == Layout::Empty)
        return;
    for (const char* sub : {"bin", "sbin", "etc/simhost", "etc/init.d", "var/log", "var/run"})
        fs::create_directories(root_ + "/" + sub);
    // The host's shell understands "let", which the bryn-opsagent version test uses.
    fs::create_symlink("/bin/bash", root_ + "/bin/sh");
}

TestHost::~TestHost() {
    if (std::getenv("TARN_E2E_KEEP"))
        return;
    std::error_code ignored;
    fs::remove_all(root_, ignored);
}

std::string TestHost::Path(const std::string& hostPath) const {
    return hostPath.starts_with('/') ? root_ + hostPath : root_ + "/" + hostPath;
}

std::string TestHost::Read(const std::string& hostPath) const {
    std::ostringstream text;
    text << std::ifstream(Path(hostPath), std::ios::binary).rdbuf();
    return text.str();
}

std::vector<std::string> TestHost::Lines(const std::string& hostPath) const {
    std::vector<std::string> lines;
    std::istringstream in(Read(hostPath));
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

void TestHost::Write(const std::string& hostPath, const std::string& text) const {
    fs::create_directories(fs::path(Path(hostPath)).parent_path());
    std::ofstream out(Path(hostPath), std::ios::binary | std::ios::trunc);
    out << text;
    if (!out)
        throw std::runtime_error("cannot write " + Path(hostPath));
}

void TestHost::Script(const std::string& hostPath, const std::string& body) const {
    Write(hostPath, "#!/bin/sh\n" + body + "\n");
    fs::permissions(Path(hostPath), fs::perms::owner_all);
}

TestHost::Json TestHost::State() const {
    return Json::parse(Read("/etc/simhost/host.json"));
}

void TestHost::WriteState(const Json& state) const {
    Write("/etc/simhost/host.json", state.dump(2));
}

void TestHost::ChangeState(const std::function<void(Json&)>& change) const {
    Json state = State();
    change(state);
    WriteState(state);
}

std::vector<std::string> TestHost::LogMessages() const {
    std::vector<std::string> messages;
    for (const std::string& line : Lines("/var/log/syslog.log")) {
        size_t at = line.find("]: ");
        messages.push_back(at == std::string::npos ? line : line.substr(at + 3));
    }
    return messages;
}

bool TestHost::Logged(const std::string& message) const {
    for (const std::string& m : LogMessages())
        if (m == message)
            return true;
    return false;
}

bool TestHost::LoggedPrefix(const std::string& prefix) const {
    for (const std::string& m : LogMessages())
        if (m.starts_with(prefix))
            return true;
    return false;
}

std::vector<std::string> TestHost::SyslogMatching(const std::string& text) const {
    std::vector<std::string> out;
    for (const std::string& line : Lines("/var/log/syslog.log"))
        if (line.find(text) != std::string::npos)
            out.push_back(line);
    return out;
}

std::vector<std::vector<std::string>> TestHost::ToolCalls() const {
    std::vector<std::vector<std::string>> calls;
    for (const std::string& line : Lines("/var/log/simhost-calls.log"))
        if (!line.empty())
            calls.push_back(Json::parse(line).get<std::vector<std::string>>());
    return calls;
}

std::vector<std::string> TestHost::NewToolCalls() {
    std::vector<std::vector<std::string>> all = ToolCalls();
    std::vector<std::string> calls;
    for (size_t i = seenCalls_; i < all.size(); ++i) {
        std::string joined;
        for (const std::string& word : all[i])
            joined += (joined.empty() ? "" : " ") + word;
        calls.push_back(joined);
    }
    seenCalls_ = all.size();
    return calls;
}

// Output is small in these tests, so reading one stream after the other cannot block.
ProgramResult RunProgram(const std::string& path, const std::vector<std::string>& argv) {
    int out[2], err[2];
    if (pipe(out) != 0 || pipe(err) != 0)
        return {};
    pid_t pid = fork();
    if (pid == 0) {
        dup2(out[1], 1);
        dup2(err[1], 2);
        close(out[0]), close(out[1]), close(err[0]), close(err[1]);
        std::vector<char*> args;
        for (const auto& a : argv)
            args.push_back(const_cast<char*>(a.c_str()));
        args.push_back(nullptr);
        char env0[] = "PYTHONHOME=/";
        char* envp[] = {env0, nullptr};
        execve(path.c_str(), args.data(), envp);
        _exit(127);
    }
    close(out[1]);
    close(err[1]);
    ProgramResult r;
    r.out = Drain(out[0]);
    r.err = Drain(err[0]);
    int status = 0;
    waitpid(pid, &status, 0);
    r.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return r;
}
