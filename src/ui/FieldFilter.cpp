// Character filters of input fields.
#include "ui/FieldFilter.h"

#include <cctype>

namespace Tarn {

bool FieldAccepts(FieldFilter filter, int key) {
    if (key < 0 || key > 255 || !std::isprint(key))
        return true; // not a character: the editing rules decide
    const bool digit = std::isdigit(key) != 0;
    switch (filter) {
    case FieldFilter::Text:
        return true;
    case FieldFilter::Ipv4Address:
        return digit || key == '.';
    case FieldFilter::IpAddress:
        return std::isxdigit(key) != 0 || key == ':' || key == '.' || key == '/';
    case FieldFilter::Number:
        return digit;
    }
    return true;
}

} // namespace Tarn
