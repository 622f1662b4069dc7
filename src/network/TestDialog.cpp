// The management network test's dialogs.
#include "network/TestDialog.h"

#include "core/EventLoop.h"
#include "core/Keys.h"
#include "core/Log.h"
#include "network/NetworkAccess.h"
#include "network/TestStep.h"
#include "platform/HostCtlException.h"
#include "ui/FormDialog.h"
#include "ui/InputItem.h"
#include "ui/RunWindow.h"
#include "ui/StandardDialogs.h"
#include "ui/TextArea.h"
#include "ui/TextIds.h"

#include <memory>

namespace Tarn {
namespace {

constexpr const char* kTestFooter =
    "{color:black}<Up/Down>{/color} {color:dark-grey}Select{/color}{align:right}{color:black}<Enter>{/color} "
    "{color:dark-grey}OK{/color}  {color:black}<Esc>{/color} {color:dark-grey}Cancel{/color}{/align}";
constexpr const char* kRunningFooter =
    "{align:right}{color:black}<Esc>{/color} {color:dark-grey}Cancel{/color}{/align}";
constexpr const char* kDoneFooter =
    "{align:right}{color:black}<Enter>{/color} {color:dark-grey}OK{/color}{/align}";
// Short enough for Esc to feel immediate, long enough not to spin.
constexpr int kPollMilliseconds = 10;

} // namespace

std::optional<TestTargets> TestDialog(Frame* parent, const TestTargets& defaults) {
    std::vector<std::unique_ptr<InputItem>> rows;
    for (size_t i = 0; i < kTestAddressRows; ++i)
        rows.push_back(std::make_unique<InputItem>(std::string(parent->Text(TextId::PingAddress)) + " #" +
                                                       std::to_string(i + 1),
                                                   defaults.addresses[i], -1, FieldFilter::Text));
    rows.push_back(std::make_unique<InputItem>(parent->Text(TextId::ResolveHostname), defaults.hostname, -1,
                                               FieldFilter::Text));
    Form<TestTargets> form(parent, {70, 16, 6}, parent->Text(TextId::TestManagementNetworkTitle),
                           parent->Text(TextId::TestNetworkDialogBody), kTestFooter,
                           [&]() -> std::variant<TestTargets, FormError> {
                               TestTargets targets;
                               for (size_t i = 0; i < kTestAddressRows; ++i)
                                   targets.addresses.push_back(rows[i]->Value());
                               targets.hostname = rows.back()->Value();
                               if (int bad = FirstInvalidTestAddress(targets.addresses); bad >= 0)
                                   return FormError{bad, parent->Text(TextId::InvalidIpAddress),
                                                    parent->Text(TextId::InvalidIpOrIpv6Address)};
                               return targets;
                           });
    std::vector<Item*> items;
    for (auto& row : rows)
        items.push_back(row.get());
    form.SetItems(items);
    form.SetShowCursor(true);
    return form.Ask();
}

RunTestDialog::RunTestDialog(Frame* parent, TestTargets targets, std::string interfaceName)
    : ProgressDialog(parent, {70, 16, 5}, parent->Text(TextId::TestingManagementNetwork),
                     parent->Text(TextId::TestMayBeInterrupted), nullptr),
      targets_(std::move(targets)), interface_(std::move(interfaceName)) {}

bool RunTestDialog::Watch(const std::string& line, const std::shared_ptr<TestStep>& step) {
    Append(line + " ");
    while (!step->Finished())
        if (PollKey(kPollMilliseconds) == Key::Escape)
            return false; // the detached worker finishes on its own
    Append(std::string(Text(step->Succeeded() ? TextId::Ok : TextId::Failed)) + "\n");
    return true;
}

int RunTestDialog::Foreground() {
    SetFooter(kRunningFooter);
    FooterArea()->Draw(true);
    for (size_t i = 0; i < targets_.addresses.size(); ++i) {
        const std::string& address = targets_.addresses[i];
        if (address.empty())
            continue;
        const std::string line =
            PingStepText(Text(TextId::PingingAddress), static_cast<int>(i + 1), address, interface_);
        if (!Watch(line, TestStep::StartPing(address, interface_)))
            return 0;
    }
    if (!targets_.hostname.empty()) {
        const std::string line =
            std::string(Text(TextId::ResolvingHostname)) + " (" + targets_.hostname + ").";
        if (!Watch(line, TestStep::StartResolve(targets_.hostname)))
            return 0;
    }
    SetFooter(kDoneFooter);
    FooterArea()->Draw(true);
    WaitForEnter(this);
    return 1;
}

void RunTestManagementNetwork(Frame* parent) {
    std::optional<TestTargets> targets = TestDialog(parent, DefaultTestTargets(ReadTestCandidates()));
    if (!targets)
        return;
    std::string interfaceName;
    try {
        if (auto management = FindManagementInterface())
            interfaceName = management->GetName();
    } catch (const HostCtl::Lib::HostCtlException& e) {
        Log(LOG_ERR, "Getting management interface failed: %s", e.what());
    }
    RunTestDialog dialog(parent, *targets, interfaceName);
    RunWindow(&dialog);
}

} // namespace Tarn
