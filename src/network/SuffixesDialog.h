// The custom DNS suffixes dialog: one free-text row, returned as typed.
#pragma once

#include <optional>
#include <string>

namespace Tarn {

class Frame;

class SuffixesDialog {
public:
    SuffixesDialog(Frame* parent, std::string suffixes) : parent_(parent), suffixes_(std::move(suffixes)) {}
    std::optional<std::string> Ask();

private:
    Frame* parent_;
    std::string suffixes_;
};

} // namespace Tarn
