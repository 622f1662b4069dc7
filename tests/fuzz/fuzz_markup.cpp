// Markup layout of any text: never more lines than the area's height, no run beyond its width, runs of a
// line in column order without overlap.
#include "FuzzCheck.h"
#include "ui/Markup.h"

#include <cstdint>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 2)
        return 0;
    const int width = data[0] % 120 + 1;
    const int height = data[1] % 40 + 1;
    std::string_view text(reinterpret_cast<const char*>(data + 2), size - 2);
    const auto lines = Tarn::Markup::Layout(text, width, height);
    FUZZ_CHECK(static_cast<int>(lines.size()) <= height);
    for (const auto& line : lines) {
        int end = 0;
        for (const auto& run : line) {
            FUZZ_CHECK(run.column >= end);
            end = run.column + Tarn::Markup::VisibleLength(run.text);
            FUZZ_CHECK(end <= width);
        }
    }
    return 0;
}
