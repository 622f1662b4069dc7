// Test Management Network: TestDialog lets the operator edit the targets; RunTestDialog pings each address
// and resolves the host name, one worker per step, and can be left with Esc at any moment.
#pragma once

#include "network/TestTargets.h"
#include "ui/ProgressDialog.h"

#include <memory>
#include <optional>

namespace Tarn {

class TestStep;

// The targets as edited, or nothing after Esc.
std::optional<TestTargets> TestDialog(Frame* parent, const TestTargets& defaults);

class RunTestDialog : public ProgressDialog {
public:
    RunTestDialog(Frame* parent, TestTargets targets, std::string interfaceName);

    // 1 when the test ran to its end and was acknowledged, 0 when it was left with Esc.
    int Foreground() override;

private:
    // Shows `line`, runs `step` and polls the keyboard until it reports; false when Esc came first.
    bool Watch(const std::string& line, const std::shared_ptr<TestStep>& step);

    TestTargets targets_;
    std::string interface_;
};

// The whole task from the menu.
void RunTestManagementNetwork(Frame* parent);

} // namespace Tarn
