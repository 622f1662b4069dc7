// A progress sink that keeps what a sequence showed: "step text: Done." / "...: Failed." and free text.
#pragma once

#include "network/ProgressSink.h"

#include <string>
#include <vector>

class RecordingProgress : public Tarn::ProgressSink {
public:
    bool Step(const std::string& text, const std::function<bool()>& action) override {
        bool ok = action();
        lines.push_back(text + (ok ? " Done." : " Failed."));
        return ok;
    }
    void Append(const std::string& text) override { lines.push_back(text); }

    std::vector<std::string> lines;
};
