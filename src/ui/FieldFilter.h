// Which characters an input field lets in. The dialogs choose a filter per field instead of sorting keys
// in their own loops; editing keys (cursor movement, Delete, Backspace) pass every filter.
#pragma once

namespace Tarn {

enum class FieldFilter {
    Text,        // any printable character
    Ipv4Address, // digits and "."
    IpAddress,   // an IPv4 or IPv6 address or network: hex digits, ":", "." and "/"
    Number,      // digits only
};

// False for a printable character the filter keeps out; true for everything else.
bool FieldAccepts(FieldFilter filter, int key);

} // namespace Tarn
