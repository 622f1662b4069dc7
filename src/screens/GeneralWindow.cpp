// The System Customization menu: builds the entry list from the host's state and the menu table, composes
// the right pane, and handles the log digits and support paging. What an entry opens is its row's task.
#include "screens/GeneralWindow.h"

#include "screens/MenuTable.h"

#include "common/TextFile.h"
#include "core/EventLoop.h"
#include "core/Keys.h"
#include "core/Log.h"
#include "core/Session.h"
#include "hostops/KelpCmd.h"
#include "hostops/TryHostCtl.h"
#include "network/NetworkAccess.h"
#include "platform/AdvancedOptions.h"
#include "platform/DnsConfig.h"
#include "platform/HostCtlException.h"
#include "platform/HostRoot.h"
#include "platform/SysInfo.h"
#include "platform/SystemInfo.h"
#include "screens/LogViewer.h"
#include "ui/ScreenUpdate.h"
#include "ui/TextArea.h"
#include "ui/TextIds.h"

#include <sys/stat.h>

namespace Tarn {
namespace {

int WidestEntry(const Frame& frame) {
    std::vector<unsigned> ids;
    for (const MenuRow& row : MenuTable())
        ids.push_back(row.id);
    return WidestText(frame, ids);
}

} // namespace

GeneralWindow::GeneralWindow(Frame* parent) : ListSummaryWindow(parent, WidestEntry(*parent)) {
    SetHeading(Text(TextId::SystemCustomization));
    ReadLockdown();
    ReadManagement();
    ReadHostFacts();
    LoadSupportInformation();
    flags_.keyboardChoice = KeyboardChoice();

    entries_ = BuildMenuEntries(flags_);
    std::vector<SummaryEntry> entries;
    for (const MenuEntry& entry : entries_)
        entries.push_back({Text(entry.id), entry.id != TextId::Blank, entry.enabled});
    SetEntries(entries);
}

GeneralWindow::~GeneralWindow() = default;

void GeneralWindow::ReadLockdown() {
    bool enabled = KelpCmdGetBool("kelpsvc/auth/lockdown_is_enabled");
    flags_.lockdownAvailable = enabled || KelpCmdGetBool("kelpsvc/auth/lockdown_is_possible");
    enabled = KelpCmdGetBool("kelpsvc/auth/lockdown_is_enabled");
    // "Unknown" stands for a host where lockdown can be neither entered nor left.
    if (enabled)
        facts_.lockdown = LockdownState::Enabled;
    else
        facts_.lockdown = flags_.lockdownAvailable ? LockdownState::Disabled : LockdownState::Unknown;
}

void GeneralWindow::ReadManagement() {
    facts_.ipv4Address.clear();
    facts_.ipv6Addresses.clear();
    std::unique_ptr<HostCtl::Network::TesNic> management = TryHostCtl(
        "Getting management interface", [] { return FindManagementInterface(); },
        std::unique_ptr<HostCtl::Network::TesNic>());
    flags_.managementInterface = management != nullptr;
    if (management) {
        TryHostCtl("Getting management addresses", [&] {
            HostCtl::Network::IpConfig config = management->GetIpConfig();
            if (!config.GetIpv4UseNone())
                facts_.ipv4Address = config.GetIpv4Address().GetStringAddress();
            if (config.GetIpv6Enabled()) {
                for (const auto& network : config.GetIpv6Network())
                    facts_.ipv6Addresses.push_back(network.GetStringAddress());
            }
        });
    }
    facts_.hostname = TryHostCtl(
        "Getting hostname", [] { return TesCtl::Network::DnsConfigImpl().GetHostname(); },
        std::string(Text(TextId::Unknown)));
}

void GeneralWindow::ReadHostFacts() {
    flags_.networkBoot = TryHostCtl(
        "Getting user option PXEBootEnabled",
        [] { return TesCtl::Adv::UserAdvancedOptionImpl().HasUserOption("PXEBootEnabled"); }, false);
    facts_.keyboardLayout = TryHostCtl(
        "Getting keyboard layout", [] { return TesCtl::System::SystemInfoImpl().GetKeyboardLayout(); },
        std::string(Text(TextId::Unknown)));
    facts_.emptyPassword = EmptyPassword();
}

void GeneralWindow::LoadSupportInformation() {
    // A missing file shows an empty page.
    std::string text;
    if (!Common::ReadTextFile(Platform::HostPath("/etc/orvane/support"), text))
        text.clear();
    std::map<InfoType, std::string> known;
    try {
        Platform::SystemVersion version = Platform::ReadSystemVersion();
        known[InfoType::CorlaProduct] = version.productName;
        known[InfoType::CorlaVersion] = version.productVersion + " (Build " + version.build + ")";
    } catch (const HostCtl::Lib::HostCtlException& e) {
        Log(LOG_ERR, "Getting system version failed: %s", e.what());
    }
    support_ = ExpandSupportLines(ParseSupportLines(text), known);
}

unsigned GeneralWindow::IdAt(int index) const {
    return index < 0 ? TextId::Blank : entries_[static_cast<size_t>(index)].id;
}

SupportPaging GeneralWindow::Paging() const {
    const TextArea* body = BodyArea();
    return {support_, SupportPageRows(Strings(), facts_, body->Width(), body->Height()), body->Width()};
}

void GeneralWindow::StatLogs() {
    std::vector<bool> exists;
    for (const LogFile& log : LogFiles()) {
        struct stat info {};
        exists.push_back(stat(Platform::HostPath(log.path).c_str(), &info) == 0);
    }
    logNumbers_ = NumberLogs(exists);
    facts_.logList = LogListText(logNumbers_);
}

SummaryPane GeneralWindow::Pane(int index) {
    const unsigned id = IdAt(index);
    if (id == TextId::ViewSystemLogs)
        StatLogs();
    if (id == TextId::ViewSupportInformation)
        facts_.supportPage = SupportPage(Paging(), supportFirst_);
    PaneText pane = MenuPane(Strings(), id, facts_);
    return {pane.title, pane.body, pane.footer};
}

void GeneralWindow::Leaving(int index) {
    if (IdAt(index) == TextId::ViewSupportInformation)
        supportFirst_ = 0;
}

void GeneralWindow::PageSupport(bool down) {
    const size_t first =
        down ? NextSupportPage(Paging(), supportFirst_) : PreviousSupportPage(Paging(), supportFirst_);
    if (first == supportFirst_)
        return;
    supportFirst_ = first;
    DrawPane();
}

void GeneralWindow::ViewLog(int digit) {
    int row = LogForDigit(logNumbers_, digit);
    if (row < 0)
        return;
    ViewLogFile(Platform::HostPath(LogFiles()[static_cast<size_t>(row)].path));
    ComposePane();
    Draw(true);
}

bool GeneralWindow::Open(int index) {
    const MenuRow* row = FindMenuRow(IdAt(index));
    if (row == nullptr || row->open == nullptr)
        return false; // no task behind this entry (yet)
    MenuContext context{*this, flags_, facts_};
    row->open(context);
    rereadLockdown_ = row->changesLockdown;
    return true;
}

void GeneralWindow::Reload() {
    // Any task may have changed what the menu shows: ask the host again; the lockdown state only after a
    // task that can change it.
    if (rereadLockdown_)
        ReadLockdown();
    ReadManagement();
    ReadHostFacts();
    entries_ = BuildMenuEntries(flags_);
    std::vector<bool> enabled;
    for (const MenuEntry& entry : entries_)
        enabled.push_back(entry.enabled);
    SetEnabled(enabled);
}

void GeneralWindow::OnOtherKey(int index, int key) {
    const unsigned id = IdAt(index);
    if (id == TextId::ViewSystemLogs && key >= '0' && key <= '9')
        ViewLog(key - '0');
    else if (id == TextId::ViewSupportInformation && (key == Key::PageUp || key == Key::PageDown))
        PageSupport(key == Key::PageDown);
}

} // namespace Tarn
