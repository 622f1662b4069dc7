// Troubleshooting Mode Options: the local shell and SSH switched on and off, their time-outs, the console's
// idle time-out and the restart of the management agents. Titles and state lines follow the services'
// state as their init scripts report it, read when the window opens and after every toggle.
#pragma once

#include "ui/ListSummaryWindow.h"

namespace Tarn {

class TroubleShootingWindow : public ListSummaryWindow {
public:
    explicit TroubleShootingWindow(Frame* parent);

protected:
    SummaryPane Pane(int index) override;
    bool Open(int index) override;
    void Reload() override;

private:
    // Whether the Corla Shell and SSH run, as their init scripts say.
    void ReadStates();
    std::vector<SummaryEntry> Entries() const;

    bool shellEnabled_ = false;
    bool sshEnabled_ = false;
};

} // namespace Tarn
