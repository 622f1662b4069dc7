// The System Customization menu: builds the entry list from the host's state, keeps the right pane in step
// with the cursor, and opens each entry's task.
//
// Entries 7 (management network window), 9 (network test), 10 (network restore), 13 (troubleshooting) and
// 14 (system reset) open nothing yet: their screens do not exist so far. Entry 8 only reports a missing
// management interface; the restart itself comes with the restart screen.
#include "screens/GeneralWindow.h"

#include "core/EventLoop.h"
#include "core/Keys.h"
#include "core/Log.h"
#include "core/Session.h"
#include "hostops/KelpCmd.h"
#include "network/NetworkAccess.h"
#include "platform/AdvancedOptions.h"
#include "platform/DnsConfig.h"
#include "platform/HostCtlException.h"
#include "platform/HostRoot.h"
#include "platform/SysInfo.h"
#include "platform/SystemInfo.h"
#include "platform/TextFile.h"
#include "screens/ChangePasswordDialog.h"
#include "screens/KeyboardDialog.h"
#include "screens/LockdownDialog.h"
#include "screens/LogViewer.h"
#include "ui/Item.h"
#include "ui/ItemList.h"
#include "ui/ScreenUpdate.h"
#include "ui/StandardDialogs.h"
#include "ui/TextArea.h"
#include "ui/TextIds.h"

#include <sys/stat.h>

namespace Tarn {
namespace {

constexpr unsigned kBlank = 3;
constexpr unsigned kSupportEntry = 11;
constexpr unsigned kLogEntry = 12;

// Text colour of an entry that cannot be chosen: dark grey on the list's amber.
constexpr int kDisabledForeground = 6;

} // namespace

GeneralWindow::GeneralWindow(Frame* parent) : RootWindow(parent) {
    ReadLockdown();
    ReadManagement();
    ReadHostFacts();
    LoadSupportInformation();
    flags_.keyboardChoice = KeyboardChoice();

    entries_ = BuildMenuEntries(flags_);
    std::vector<Item*> pointers;
    for (const MenuEntry& entry : entries_) {
        items_.push_back(std::make_unique<LabelItem>(Text(entry.id), entry.id != kBlank));
        pointers.push_back(items_.back().get());
    }
    list_ = ListPane()->AddChild<ItemList>(0, 0, ListPane()->Width(), ListPane()->Height());
    ApplyEnabling();
    list_->SetItems(pointers);
    ComposePane();
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
    std::unique_ptr<HostCtl::Network::TesNic> management;
    try {
        management = FindManagementInterface();
    } catch (const HostCtl::Lib::HostCtlException& e) {
        Log(LOG_ERR, "Getting management interface failed: %s", e.what());
    }
    flags_.managementInterface = management != nullptr;
    if (management) {
        try {
            HostCtl::Network::IpConfig config = management->GetIpConfig();
            if (!config.GetIpv4UseNone())
                facts_.ipv4Address = config.GetIpv4Address().GetStringAddress();
            if (config.GetIpv6Enabled()) {
                for (const auto& network : config.GetIpv6Network())
                    facts_.ipv6Addresses.push_back(network.GetStringAddress());
            }
        } catch (const HostCtl::Lib::HostCtlException& e) {
            Log(LOG_ERR, "Getting management addresses failed: %s", e.what());
        }
    }
    try {
        facts_.hostname = TesCtl::Network::DnsConfigImpl().GetHostname();
    } catch (const HostCtl::Lib::HostCtlException& e) {
        Log(LOG_ERR, "Getting hostname failed: %s", e.what());
        facts_.hostname = Text(TextId::Unknown);
    }
}

void GeneralWindow::ReadHostFacts() {
    try {
        flags_.networkBoot = TesCtl::Adv::UserAdvancedOptionImpl().HasUserOption("PXEBootEnabled");
    } catch (const HostCtl::Lib::HostCtlException& e) {
        Log(LOG_ERR, "Getting user option PXEBootEnabled failed: %s", e.what());
        flags_.networkBoot = false;
    }
    try {
        facts_.keyboardLayout = TesCtl::System::SystemInfoImpl().GetKeyboardLayout();
    } catch (const HostCtl::Lib::HostCtlException& e) {
        Log(LOG_ERR, "Getting keyboard layout failed: %s", e.what());
        facts_.keyboardLayout = Text(TextId::Unknown);
    }
    facts_.emptyPassword = EmptyPassword();
}

void GeneralWindow::LoadSupportInformation() {
    // A missing file shows an empty page.
    std::string text;
    if (!Platform::ReadTextFile(Platform::HostPath("/etc/orvane/support"), text))
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

void GeneralWindow::ApplyEnabling() {
    std::vector<MenuEntry> fresh = BuildMenuEntries(flags_);
    for (size_t i = 0; i < items_.size() && i < fresh.size(); ++i) {
        items_[i]->SetEnabled(fresh[i].enabled);
        items_[i]->SetColors(3, fresh[i].enabled || fresh[i].id == kBlank ? 0 : kDisabledForeground);
    }
    entries_ = std::move(fresh);
}

unsigned GeneralWindow::SelectedId() const {
    int index = list_->FocusIndex();
    return index < 0 ? kBlank : entries_[static_cast<size_t>(index)].id;
}

size_t GeneralWindow::SupportPageRows() const {
    // The password reminder below the page takes two rows and may wrap onto a third.
    int rows = BodyArea()->Height() - (facts_.emptyPassword ? 4 : 0);
    return rows > 0 ? static_cast<size_t>(rows) : 0;
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

void GeneralWindow::ComposePane() {
    const unsigned id = SelectedId();
    if (id == kLogEntry)
        StatLogs();
    if (id == kSupportEntry)
        facts_.supportPage = SupportPage(support_, supportFirst_, SupportPageRows());
    PaneText pane = MenuPane(Strings(), id, facts_);
    SetTitle(pane.title);
    SetBody(pane.body);
    SetFooter(pane.footer);
}

void GeneralWindow::DrawPane() {
    ComposePane();
    // Only the three text areas: the terminal gets the cells whose text changed, not the whole pane.
    ScreenUpdate update;
    TitleArea()->Draw(true);
    BodyArea()->Draw(true);
    FooterArea()->Draw(true);
}

void GeneralWindow::Move(bool up) {
    const unsigned before = SelectedId();
    ScreenUpdate update; // the list rows and the pane reach the terminal in one write
    if (!(up ? list_->Up() : list_->Down()))
        return;
    if (before == kSupportEntry)
        supportFirst_ = 0;
    DrawPane();
}

void GeneralWindow::PageSupport(bool down) {
    const size_t rows = SupportPageRows();
    const size_t first =
        down ? NextSupportPage(support_, supportFirst_, rows) : PreviousSupportPage(supportFirst_, rows);
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

void GeneralWindow::RestartManagementNetwork() {
    std::unique_ptr<HostCtl::Network::TesNic> management;
    try {
        management = FindManagementInterface();
    } catch (const HostCtl::Lib::HostCtlException& e) {
        Log(LOG_ERR, "Getting management interface failed: %s", e.what());
    }
    if (!management) {
        MessageDialog message(this, TextId::RestartManagementNetworkError,
                              Text(TextId::ManagementInterfaceNotFound));
        RunWindow(&message);
    }
}

void GeneralWindow::Open(unsigned id) {
    switch (id) {
    case 5: {
        ChangePasswordDialog dialog(this);
        if (RunWindow(&dialog) == 1)
            SetEmptyPassword(false);
        break;
    }
    case 6: {
        LockdownDialog dialog(this, facts_.lockdown == LockdownState::Enabled);
        RunWindow(&dialog);
        break;
    }
    case 8:
        RestartManagementNetwork();
        break;
    case 15: {
        KeyboardDialog dialog(this);
        RunWindow(&dialog);
        break;
    }
    default:
        return; // no task behind this entry (yet): nothing changed, nothing to redraw
    }
    // Any task may have changed what the menu shows: ask the host again and redraw.
    ReadLockdown();
    ReadManagement();
    ReadHostFacts();
    ScreenUpdate update;
    ApplyEnabling();
    list_->Draw(true);
    DrawPane();
}

int GeneralWindow::Foreground() {
    for (;;) {
        const int key = GetKey(this, true);
        const unsigned id = SelectedId();
        if (key == Key::Escape)
            return 0;
        if (key == Key::Up || key == Key::Down)
            Move(key == Key::Up);
        else if (key == Key::Enter)
            Open(id);
        else if (id == kLogEntry && key >= '0' && key <= '9')
            ViewLog(key - '0');
        else if (id == kSupportEntry && (key == Key::PageUp || key == Key::PageDown))
            PageSupport(key == Key::PageDown);
    }
}

} // namespace Tarn
