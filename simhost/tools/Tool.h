// Shared shape of the simulated host's tools: one call (host directory, tool name, arguments) handled by a
// function that prints like the real tool and returns its exit code.
#pragma once

#include "simhost/model/JsonNumber.h"
#include "simhost/model/Store.h"

#include <optional>
#include <string>
#include <vector>

namespace SimHost::Tools {

struct Call {
    std::string dir;               // the simulated host's root
    std::string name;              // the tool's name, e.g. "kelp-cmd", "svcctl.sh", "CorlaShell"
    std::vector<std::string> args; // the arguments after the name
};

using Handler = int (*)(const Call&);

int KelpCmd(const Call& call);
int CorlaCli(const Call& call);
int AdvCfg(const Call& call);
int HaltGuests(const Call& call);
int Reboot(const Call& call);
int Poweroff(const Call& call);
int Tesping(const Call& call);
int SvcCtl(const Call& call);
int CfgSave(const Call& call);
int ResetCfg(const Call& call);
int InitScript(const Call& call);
int TesBacktrace(const Call& call);
int BrynCfgKswitch(const Call& call);

// Every name the multi-call program answers to.
std::vector<std::string> ToolNames();

// Answers one call (already recorded in the call log): "simulated failure" when the state lists it, the
// tool's own answer otherwise, a broken state as a message naming the file. Returns the exit code.
int RunCall(const Call& call);

// Value of option `flag` ("-v") in `args`, "" when absent.
std::string Option(const std::vector<std::string>& args, const std::string& flag);

// `text` as a whole number from `low` to `high` (digits only); nullopt for anything else.
std::optional<int> CountArgument(const std::string& text, int low, int high);

// Finds the element of `array` whose "name" equals `name`; nullptr when none.
Json* FindNamed(Json& array, const std::string& name);

// Prints "<tool>: <text>" on standard error and returns `code`.
int Complain(const Call& call, const std::string& text, int code = 1);

} // namespace SimHost::Tools
