// Creating a simulated host directory: state, tools, scripts, PAM files, logs and markers.
#include "simhost/model/Init.h"

#include "common/TextFile.h"
#include "simhost/model/HostFiles.h"
#include "simhost/model/Scenarios.h"
#include "simhost/model/Store.h"
#include "simhost/model/ToolNames.h"

#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

namespace SimHost {
namespace {

void Fail(const std::string& what, const fs::path& path, const std::error_code& ec) {
    throw StoreError(what + " " + path.string() + ": " + ec.message());
}

void MakeDirs(const fs::path& path) {
    std::error_code ec;
    fs::create_directories(path, ec);
    if (ec)
        Fail("cannot create directory", path, ec);
}

void RemoveIfPresent(const fs::path& path) {
    std::error_code ec;
    fs::remove(path, ec);
    if (ec)
        Fail("cannot replace", path, ec);
}

// A hard link where the file system allows it, else a copy: never a symlink, so that a rebuilt or deleted
// build directory leaves existing hosts working.
void Install(const fs::path& from, const fs::path& to) {
    MakeDirs(to.parent_path());
    RemoveIfPresent(to);
    std::error_code ec;
    fs::create_hard_link(from, to, ec);
    if (!ec)
        return;
    ec.clear();
    fs::copy_file(from, to, fs::copy_options::overwrite_existing, ec);
    if (ec)
        Fail("cannot install", to, ec);
    fs::permissions(to,
                    fs::perms::owner_all | fs::perms::group_read | fs::perms::group_exec |
                        fs::perms::others_read | fs::perms::others_exec,
                    ec);
}

void Link(const fs::path& target, const fs::path& link) {
    MakeDirs(link.parent_path());
    RemoveIfPresent(link);
    std::error_code ec;
    fs::create_symlink(target, link, ec);
    if (ec)
        Fail("cannot create link", link, ec);
}

void WriteText(const fs::path& path, const std::string& text, bool executable) {
    MakeDirs(path.parent_path());
    RemoveIfPresent(path); // a hard-linked file must not be rewritten in place
    if (!Common::WriteTextFile(path.string(), text))
        throw StoreError("cannot write " + path.string());
    if (executable) {
        std::error_code ec;
        fs::permissions(path, fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec,
                        fs::perm_options::add, ec);
        if (ec)
            Fail("cannot make executable", path, ec);
    }
}

} // namespace

void InitHost(const std::string& dirText, const std::string& scenario, const std::string& buildDir) {
    Json state = ScenarioState(scenario); // an unknown scenario fails before anything is written
    fs::path tool = fs::path(buildDir) / "simhost-tool";
    if (!fs::is_regular_file(tool))
        throw StoreError("missing build: " + tool.string() + " (build the simhost-tool target)");

    std::error_code ec;
    fs::path dir = fs::absolute(dirText, ec).lexically_normal();
    if (ec)
        Fail("cannot resolve", dirText, ec);
    std::string root = dir.string();
    if (root.size() > 1 && root.back() == '/')
        root.pop_back();

    MakeDirs(dir / "etc/simhost");
    Save(root, state);

    for (const char* name : kToolPaths)
        Install(tool, dir / name);
    // The host's shell knows `let` (the agent version test uses it); dash does not, bash does.
    Link("/bin/bash", dir / "bin/sh");
    Link("/usr/bin/less", dir / "bin/less");

    fs::path pam = fs::path(buildDir) / "pam_simhost.so";
    if (fs::is_regular_file(pam))
        Install(pam, dir / "lib/security/pam_simhost.so");
    else
        MakeDirs(dir / "lib/security");

    for (const auto& file : HostTextFiles(root, state))
        WriteText(dir / file.path, file.text, file.executable);
    MakeDirs(dir / "var/run");
    MakeDirs(dir / "dev"); // no console device: the console must not switch terminals on a simulated host
}

} // namespace SimHost
