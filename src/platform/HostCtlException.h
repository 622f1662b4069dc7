// The one exception type of the host-control layer: every backend failure arrives as this, with a message.
#pragma once

#include <stdexcept>
#include <string>

namespace HostCtl::Lib {

class HostCtlException : public std::runtime_error {
public:
    explicit HostCtlException(const std::string& message) : std::runtime_error(message) {}
};

} // namespace HostCtl::Lib
