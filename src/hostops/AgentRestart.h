// Restarting the management agents, optionally with a live core of stewd taken meanwhile, reporting
// progress as markup: finished steps dark grey, the running one black.
#pragma once

#include <functional>
#include <string>

namespace Tarn {

// The step texts, from the string catalogue.
struct AgentRestartTexts {
    std::string collecting; // the live core
    std::string stopping;
    std::string starting;
    std::string done;
};

// The growing progress markup. It opens the dark-grey colour once; every finished step adds a line.
class RestartProgress {
public:
    explicit RestartProgress(std::string done) : done_(std::move(done)) {}
    // The finished steps and `step` below them in black.
    std::string Running(const std::string& step) const;
    void Finished(const std::string& step);
    // The last step: the progress closes its colour.
    void FinishedLast(const std::string& step);
    const std::string& Text() const { return text_; }

private:
    std::string done_;
    std::string text_ = "{color:dark-grey}";
};

// Logs and reports the restart, starts the live core when asked, then stops and starts the agents through
// svcctl.sh, calling `show` with the progress before each command and at the end. The commands' results do
// not change the progress: "Done." follows each of them.
void RestartAgents(bool collectLiveCore, const AgentRestartTexts& texts,
                   const std::function<void(const std::string&)>& show);

} // namespace Tarn
