// Where a host-changing sequence shows its progress: a step's text, then "Done." or "Failed."; free text in
// between. The progress dialog is one; tests record the calls.
#pragma once

#include <functional>
#include <string>

namespace Tarn {

class ProgressSink {
public:
    virtual ~ProgressSink() = default;
    // Shows `text`, runs `action` (which blocks), shows "Done." or "Failed." by its result and returns it.
    virtual bool Step(const std::string& text, const std::function<bool()>& action) = 0;
    virtual void Append(const std::string& text) = 0;
};

// A sink on any dialog with the same two operations.
template <class Dialog> class ProgressOn : public ProgressSink {
public:
    explicit ProgressOn(Dialog& dialog) : dialog_(dialog) {}
    bool Step(const std::string& text, const std::function<bool()>& action) override {
        return dialog_.Step(text, action);
    }
    void Append(const std::string& text) override { dialog_.Append(text); }

private:
    Dialog& dialog_;
};

} // namespace Tarn
