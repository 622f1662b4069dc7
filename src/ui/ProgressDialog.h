// The progress dialog: runs a script of blocking steps while showing each step's text, then "Done." or
// "Failed." and a line break; at the end the footer changes and the dialog waits for Enter. The text is
// drawn before each step blocks, so the operator sees what the console is waiting for.
#pragma once

#include "ui/DialogSize.h"
#include "ui/Window.h"

#include <functional>
#include <string>

namespace Tarn {

class TextArea;

// The progress text itself, apart from drawing.
class ProgressText {
public:
    // "text " then, once the step is over, "Done." or "Failed." and a line break.
    void Begin(const std::string& text) { text_ += text + " "; }
    void End(bool ok, const char* done = "Done.", const char* failed = "Failed.") {
        text_ += std::string(ok ? done : failed) + "\n";
    }
    void Append(const std::string& text) { text_ += text; }
    const std::string& Text() const { return text_; }

private:
    std::string text_;
};

class ProgressDialog : public Dialog {
public:
    // The script runs the steps; it is called once the dialog is on screen.
    using Script = std::function<void(ProgressDialog&)>;

    ProgressDialog(Frame* parent, DialogSize size, const std::string& title, const std::string& text,
                   Script script, std::string endFooter = kEnterOkFooter);

    // Shows `text`, runs `action` (which blocks), then shows "Done." or "Failed."; returns the action's
    // result. A step whose result is false counts as a failure of the whole run.
    bool Step(const std::string& text, const std::function<bool()>& action, const char* done = "Done.",
              const char* failed = "Failed.");
    // Adds text without a step (addresses found, a warning) and shows it.
    void Append(const std::string& text);
    // Replaces the text in the top pane (a closing message) and shows it.
    void SetText(const std::string& text);
    const std::string& Progress() const { return progress_.Text(); }

    // Runs the dialog modally: true when every step succeeded. TarnTimeout passes through.
    bool Run();
    // Runs the script, swaps the footer and waits for Enter: 1 when every step succeeded.
    int Foreground() override;

private:
    void Show();

    Script script_;
    std::string endFooter_;
    ProgressText progress_;
    TextArea* area_ = nullptr;
    bool failed_ = false;
};

} // namespace Tarn
