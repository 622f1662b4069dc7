// Strips the Linux-console palette sequences (ESC ] P nrrggbb, ESC ] R) from a byte stream before it reaches
// libvterm, which would take them as unterminated strings, and reports them as palette events instead.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace e2e {

class PaletteFilter {
public:
    // index 0..15 and 8-bit components for ESC ] P; reset for ESC ] R.
    struct Handlers {
        std::function<void(int index, uint8_t r, uint8_t g, uint8_t b)> set;
        std::function<void()> reset;
    };

    explicit PaletteFilter(Handlers handlers) : handlers_(std::move(handlers)) {}

    // Returns the bytes to pass on. A sequence split across calls is held back until it is complete (or
    // proves not to be one of ours, in which case the held bytes are passed on unchanged).
    std::string Feed(std::string_view bytes);

private:
    Handlers handlers_;
    std::string pending_;
};

} // namespace e2e
