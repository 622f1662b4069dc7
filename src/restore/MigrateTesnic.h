// Migrating a tesnic onto the standard switch of a chosen port group, with the network virtualisation
// agent stopped meanwhile and told about the move. See docs/restore.md.
#pragma once

#include <string>
#include <vector>

namespace Tarn {

struct MigrationChoices {
    std::vector<std::string> tesnics;    // every kernel interface
    std::vector<std::string> portGroups; // port groups of standard switches
};

// What can be chosen; lists stay empty when the host cannot be read (logged).
MigrationChoices ReadMigrationChoices();

// Moves `tesnic` onto `portGroup`. Empty on success, else the reason for the operator.
std::string MigrateTesnic(const std::string& tesnic, const std::string& portGroup);

} // namespace Tarn
