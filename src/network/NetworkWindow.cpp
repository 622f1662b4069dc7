// The management network window: the entries as a table of label and summary, the dialogs' results taken
// into the pending model, and the apply on the way out.
#include "network/NetworkWindow.h"

#include "core/EventLoop.h"
#include "core/Log.h"
#include "network/AdaptersDialog.h"
#include "network/ApplyChangesDialog.h"
#include "network/DNSConfigurationDialog.h"
#include "network/IPConfigurationDialog.h"
#include "network/IPv6ConfigurationDialog.h"
#include "network/SuffixesDialog.h"
#include "network/VlanDialog.h"
#include "ui/ItemList.h"
#include "ui/RunWindow.h"
#include "ui/ScreenUpdate.h"
#include "ui/StandardDialogs.h"
#include "ui/TextIds.h"

namespace Tarn {

namespace {

constexpr const char* kRightFooter =
    "{color:white}<Enter>{/color}{color:light-grey} Change{/color}{align:right}"
    "{color:white}<Esc> {/color}{color:light-grey}Exit{/color}{/align}";

struct EntryRow {
    unsigned label;
    NetworkEntry entry;
    bool standardSwitchOnly; // adapters and VLAN cannot be changed on a distributed switch
};

constexpr EntryRow kEntries[] = {
    {TextId::NetworkAdapters, NetworkEntry::Adapters, true},
    {TextId::VlanOptional, NetworkEntry::Vlan, true},
    {TextId::Ipv4Configuration, NetworkEntry::Ipv4, false},
    {TextId::Ipv6Configuration, NetworkEntry::Ipv6, false},
    {TextId::DnsConfiguration, NetworkEntry::Dns, false},
    {TextId::CustomDnsSuffixes, NetworkEntry::Suffixes, false},
};

int WidestEntry(const Frame& frame) {
    std::vector<unsigned> ids;
    for (const EntryRow& row : kEntries)
        ids.push_back(row.label);
    return WidestText(frame, ids);
}

} // namespace

// The apply sequence's view of the window: errors over it, its summary redrawn, the restart on top.
class NetworkWindow::Feedback : public ApplyFeedback {
public:
    explicit Feedback(NetworkWindow& window) : window_(window) {}
    void ShowError(const std::string& message) override {
        MessageDialog dialog(&window_, TextId::EnableManagementNetworkError, message);
        RunWindow(&dialog);
    }
    void Redraw() override { window_.DrawPane(); }
    void RestartHost() override {
        if (window_.restartHost_)
            window_.restartHost_(&window_);
    }

private:
    NetworkWindow& window_;
};

NetworkWindow::NetworkWindow(Frame* parent, RestartHost restartHost)
    : ListSummaryWindow(parent, parent->Text(TextId::ConfigureManagementNetworkTitle), WidestEntry(*parent)),
      restartHost_(std::move(restartHost)) {
    outcome_ = OpenManagementNetwork(pending_, management_, dns_, routing_);
    if (outcome_ != OpenOutcome::Ready)
        return;
    ReadAdapterRows();
    std::vector<SummaryEntry> entries;
    for (const EntryRow& row : kEntries)
        entries.push_back({Text(row.label), true, !(row.standardSwitchOnly && pending_.onDistributedSwitch)});
    SetEntries(entries);
}

NetworkWindow::~NetworkWindow() = default;

void NetworkWindow::ReadAdapterRows() {
    adapterRows_.clear();
    for (const auto& name : pending_.adapters)
        adapterRows_[name] = GetPhysicalNicInfo(name);
}

SummaryPane NetworkWindow::Pane(int index) {
    if (index < 0 || index >= static_cast<int>(std::size(kEntries)))
        return {};
    const EntryRow& row = kEntries[index];
    return {Text(row.label),
            NetworkSummary(row.entry, pending_, adapterRows_, pending_.ipv6EnabledAtStart, Strings()),
            kRightFooter};
}

bool NetworkWindow::OpenAdapters() {
    const std::string kswitch = GetConnectionSwitchName(*management_->GetConnectionPoint());
    if (kswitch.empty())
        return false;
    auto result = AdaptersDialog(this, pending_.adapters, pending_.activeUplinks, kswitch).Ask();
    if (!result)
        return false;
    pending_.TakeAdapters(*result);
    ReadAdapterRows();
    return true;
}

bool NetworkWindow::Open(int index) {
    if (index < 0 || index >= static_cast<int>(std::size(kEntries)))
        return false;
    switch (kEntries[index].entry) {
    case NetworkEntry::Adapters:
        return OpenAdapters();
    case NetworkEntry::Vlan:
        if (auto id = VlanDialog(this, pending_.vlanId).Ask()) {
            pending_.TakeVlan(*id);
            return true;
        }
        return false;
    case NetworkEntry::Ipv4:
        if (auto config = IPConfigurationDialog(this, pending_.running.GetIpv4UseNone(),
                                                pending_.stored.GetUseDhcp(), pending_.running)
                              .Ask()) {
            pending_.TakeIpv4(*config);
            return true;
        }
        return false;
    case NetworkEntry::Ipv6:
        if (auto result =
                IPv6ConfigurationDialog(this, pending_.ipv6Enabled, pending_.stored, pending_.running)
                    .Ask()) {
            pending_.TakeIpv6(*result);
            return true;
        }
        return false;
    case NetworkEntry::Dns:
        if (auto result =
                DNSConfigurationDialog(this, pending_.stored.GetDhcpDns(), pending_.stored.IsUsingDhcp(),
                                       pending_.primaryDns, pending_.alternateDns, pending_.hostname)
                    .Ask()) {
            pending_.TakeDns(*result);
            return true;
        }
        return false;
    case NetworkEntry::Suffixes:
        if (auto text = SuffixesDialog(this, pending_.suffixes).Ask()) {
            pending_.TakeSuffixes(*text);
            return true;
        }
        return false;
    }
    return false;
}

void NetworkWindow::Reload() {
    // The pending model is the window's state: nothing is read again from the host.
}

int NetworkWindow::Foreground() {
    if (outcome_ != OpenOutcome::Ready)
        return 0;
    for (;;) {
        ListSummaryWindow::Foreground();
        if (!pending_.HasChanges())
            return 0;
        switch (ApplyChangesDialog(this, pending_.Ipv6Toggled()).Ask()) {
        case Answer::Cancel:
            continue; // back to the entries, the changes still pending
        case Answer::No:
            return 0;
        case Answer::Yes: {
            Feedback feedback(*this);
            ApplyChanges(pending_, *management_, dns_, routing_, feedback);
            Log(LOG_INFO, "Network settings changed.");
            return 1;
        }
        }
    }
}

} // namespace Tarn
