// Linux-console palette sequences: recognised, stripped and turned into palette events.
#include "harness/PaletteFilter.h"

#include <cctype>

namespace e2e {

namespace {

int HexValue(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

// How a candidate starting with ESC at `s[0]` matches: 0 = not ours, -1 = could be ours but is cut short,
// n > 0 = a complete sequence of n bytes.
int Match(std::string_view s) {
    if (s.size() < 2)
        return -1;
    if (s[1] != ']')
        return 0;
    if (s.size() < 3)
        return -1;
    if (s[2] == 'R')
        return 3;
    if (s[2] != 'P')
        return 0;
    for (size_t i = 3; i < 10; ++i) {
        if (i >= s.size())
            return -1;
        if (HexValue(s[i]) < 0)
            return 0;
    }
    return 10;
}

} // namespace

std::string PaletteFilter::Feed(std::string_view bytes) {
    std::string in = pending_;
    in.append(bytes);
    pending_.clear();
    std::string out;
    out.reserve(in.size());
    size_t i = 0;
    while (i < in.size()) {
        size_t esc = in.find('\x1b', i);
        if (esc == std::string::npos) {
            out.append(in, i, std::string::npos);
            break;
        }
        out.append(in, i, esc - i);
        std::string_view rest(in.data() + esc, in.size() - esc);
        int m = Match(rest);
        if (m < 0) {
            pending_.assign(rest);
            break;
        }
        if (m == 0) {
            out.push_back('\x1b');
            i = esc + 1;
            continue;
        }
        if (rest[2] == 'R') {
            if (handlers_.reset)
                handlers_.reset();
        } else if (handlers_.set) {
            auto byte = [&](size_t at) { return uint8_t(HexValue(rest[at]) * 16 + HexValue(rest[at + 1])); };
            handlers_.set(HexValue(rest[3]), byte(4), byte(6), byte(8));
        }
        i = esc + size_t(m);
    }
    return out;
}

} // namespace e2e
