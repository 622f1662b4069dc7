// The hostname step of the management network test: the name must be answered by the name servers, not by
// the host's own hosts file, so the file is set aside for the look-up and put back afterwards.
#pragma once

#include <string>

namespace Tarn {

// Copies /etc/hosts to /etc/hosts.backup (host paths), overwriting an older backup. False, with
// "failed to backup /etc/hosts: %s" logged, when the copy fails.
bool BackupHostsFile();
// Puts /etc/hosts.backup back in place of /etc/hosts. False, with "failed to restore /etc/hosts: %s"
// logged, when that fails.
bool RestoreHostsFile();

// Backs the hosts file up, takes `hostname` out of it, resolves the name and restores the file whatever
// happened in between. True when the name resolved. Runs on a worker thread: it touches no screen state.
bool ResolveThroughNameServers(const std::string& hostname);

} // namespace Tarn
