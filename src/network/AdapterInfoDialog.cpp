// The adapter details dialog and the used-adapters question.
#include "network/AdapterInfoDialog.h"

#include "core/EventLoop.h"
#include "network/NetworkForms.h"
#include "ui/ConfirmDialog.h"
#include "ui/RunWindow.h"
#include "ui/StandardDialogs.h"
#include "ui/TextIds.h"

namespace Tarn {

std::string AdapterDetailsText(const PhysicalNicInfo& nic, const std::string& usedBy) {
    return "Device Name: " + nic.name + "\nHardware Label: " + nic.hardwareLabel +
           "\nMAC Address: " + nic.macAddress + "\nConnection Status: " + nic.linkState +
           "\nUsed By: " + (usedBy.empty() ? "None" : usedBy);
}

void ShowAdapterInfo(Frame* parent, const PhysicalNicInfo& nic, const std::string& usedBy) {
    NotificationDialog details(parent, FixedMessageSize(70, 13), "Adapter Details",
                               AdapterDetailsText(nic, usedBy));
    RunWindow(&details);
}

bool ConfirmUsedAdapters(Frame* parent) {
    ConfirmDialog confirm(
        parent, {parent->Text(TextId::NetworkAdaptersWarning), parent->Text(TextId::AdaptersAlreadyUsed),
                 parent->Text(TextId::RemoveAdaptersQuestion), kOkCancelFooter, kEnterCancelKeys});
    return confirm.Ask() == Answer::Yes;
}

} // namespace Tarn
