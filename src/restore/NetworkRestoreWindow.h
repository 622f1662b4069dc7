// Network Restore Options: six recovery actions, each enabled only where it makes sense for the host's
// network, with the selected entry's description and Enter hint on the right.
#pragma once

#include "restore/RestoreEntries.h"
#include "ui/ListSummaryWindow.h"

namespace Tarn {

class NetworkRestoreWindow : public ListSummaryWindow {
public:
    explicit NetworkRestoreWindow(Frame* parent);

protected:
    SummaryPane Pane(int index) override;
    bool Open(int index) override;

private:
    std::vector<RestoreEntry> entries_;
};

} // namespace Tarn
