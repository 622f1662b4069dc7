// Asking systemd-networkd for its description of a link, when it manages that link.
#pragma once

#include <optional>
#include <string>

namespace Platform::Linux {

// The JSON of `networkctl --json=short status NAME` when networkd keeps state for the link with `index`;
// nothing when it does not (no state file) or the query fails (`error` says why).
std::optional<std::string> DescribeNetworkdLink(int index, const std::string& name, std::string& error);

} // namespace Platform::Linux
