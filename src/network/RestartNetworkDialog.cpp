// The restart's confirmation and progress dialogs, as declarations on the dialog kit.
#include "network/RestartNetworkDialog.h"

#include "core/EventLoop.h"
#include "core/Log.h"
#include "network/NetworkAccess.h"
#include "network/RestartManagementNetwork.h"
#include "platform/HostCtlException.h"
#include "ui/ConfirmDialog.h"
#include "ui/ProgressDialog.h"
#include "ui/RunWindow.h"
#include "ui/StandardDialogs.h"
#include "ui/TextIds.h"

namespace Tarn {
namespace {

constexpr const char* kEnterOk =
    "{align:right}{color:black}<Enter>{/color}{color:dark-grey} OK{/color}{/align}";

// Restarting cuts remote sessions: only F11 goes on, Enter is ignored like every other key.
bool RestartNetworkDialog(Frame* parent) {
    ConfirmDialog confirm(parent, {60, 13, 8},
                          {parent->Text(TextId::RestartManagementNetworkConfirm),
                           parent->Text(TextId::RestartNetworkWarning),
                           parent->Text(TextId::RestartNetworkQuestion), kF11OkCancelFooter, kF11CancelKeys});
    return confirm.Ask() == Answer::Yes;
}

bool DoRestartNetworkDialog(Frame* parent, HostCtl::Network::TesNic& management) {
    bool restarted = false;
    ProgressDialog progress(
        parent, {60, 16, 5}, parent->Text(TextId::RestartManagementNetworkTitle),
        parent->Text(TextId::RestartNetworkWait),
        [&](ProgressDialog& p) {
            ProgressOn<ProgressDialog> sink(p);
            restarted = RestartManagementNetwork(management, parent->Strings(), sink);
        },
        kEnterOk);
    progress.Run();
    return restarted;
}

void ShowError(Frame* parent, unsigned text) {
    MessageDialog message(parent, TextId::RestartManagementNetworkError, parent->Text(text));
    RunWindow(&message);
}

} // namespace

void RunRestartManagementNetwork(Frame* parent) {
    std::unique_ptr<HostCtl::Network::TesNic> management;
    try {
        management = FindManagementInterface();
    } catch (const HostCtl::Lib::HostCtlException& e) {
        Log(LOG_ERR, "Getting management interface failed: %s", e.what());
    }
    if (!management) {
        ShowError(parent, TextId::ManagementInterfaceNotFound);
        return;
    }
    if (!RestartNetworkDialog(parent))
        return;
    if (!DoRestartNetworkDialog(parent, *management))
        ShowError(parent, TextId::ManagementInterfaceFailed);
}

} // namespace Tarn
