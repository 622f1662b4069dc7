// Whole numbers of host.json read into C++ integers. The JSON library converts any number with a plain cast,
// so a fraction, a float beyond the range (1e+28) or an integer too large would arrive truncated or
// undefined; these readers refuse them with a JSON error, which every reader of the state already turns into
// "invalid simulated host state <file>: ...".
#pragma once

#include "simhost/model/Store.h"

#include <cstdint>
#include <limits>
#include <string>
#include <utility>

namespace SimHost {

// `value` as a T; `name` is the key, for the message.
template <typename T> T WholeNumber(const Json& value, const std::string& name) {
    if (value.is_number_unsigned()) {
        const auto v = value.get<std::uint64_t>();
        if (std::in_range<T>(v))
            return static_cast<T>(v);
    } else if (value.is_number_integer()) {
        const auto v = value.get<std::int64_t>();
        if (std::in_range<T>(v))
            return static_cast<T>(v);
    }
    std::string found = value.dump();
    if (found.size() > 40)
        found = found.substr(0, 40) + "...";
    throw Json::out_of_range::create(406,
                                     name + " must be a whole number from " +
                                         std::to_string(std::numeric_limits<T>::min()) + " to " +
                                         std::to_string(std::numeric_limits<T>::max()) + ", not " + found,
                                     &value);
}

// The member `key` of `object` as a T, or `fallback` when there is none.
template <typename T> T WholeNumber(const Json& object, const char* key, T fallback) {
    if (object.is_object() && !object.contains(key))
        return fallback;
    return WholeNumber<T>(object.at(key), key); // at() refuses a value that is not an object
}

} // namespace SimHost
