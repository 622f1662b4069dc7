// The Configure Management Network window: six entries with their summaries on the pending model, a
// dialog behind each, and on Esc the question whether to apply the pending changes to the host.
#pragma once

#include "network/ApplyChanges.h"
#include "network/NetworkSummary.h"
#include "network/OpenManagementNetwork.h"
#include "ui/ListSummaryWindow.h"

#include <functional>
#include <map>
#include <memory>

namespace Tarn {

class NetworkWindow : public ListSummaryWindow {
public:
    // Shows the host restart an IPv6 change needs (on top of `parent`'s stack).
    using RestartHost = std::function<void(Frame* parent)>;

    // Reads the management interface at once; Outcome() tells whether the window can be shown.
    NetworkWindow(Frame* parent, RestartHost restartHost);
    ~NetworkWindow() override;

    OpenOutcome Outcome() const { return outcome_; }
    // The entries until Esc; then, with pending changes, the apply question. 1 when changes were applied.
    int Foreground() override;

protected:
    SummaryPane Pane(int index) override;
    bool Open(int index) override;
    void Reload() override;

private:
    class Feedback;

    bool OpenAdapters();
    void ReadAdapterRows();

    RestartHost restartHost_;
    PendingNetworkConfig pending_;
    std::unique_ptr<HostCtl::Network::TesNic> management_;
    TesCtl::Network::DnsConfigImpl dns_;
    TesCtl::Network::RoutingInfoImpl routing_;
    std::map<std::string, PhysicalNicInfo> adapterRows_;
    OpenOutcome outcome_;
};

} // namespace Tarn
