// The dialog kit run for real on an off-screen terminal: a form refusing a bad value, a confirmation that
// hears only its answer keys and lays out a long question, and a progress dialog's text and drawing around
// its steps.
#include "core/Keys.h"
#include "ui/ConfirmDialog.h"
#include "ui/FormDialog.h"
#include "ui/InputItem.h"
#include "ui/Item.h"
#include "ui/ItemList.h"
#include "ui/ProgressDialog.h"

#include "support/OffscreenTerminal.h"

#include <term.h>

namespace Tarn {
namespace {

using DialogKit = Testing::OffscreenTerminal;

constexpr DialogSize kSize{60, 12, 6}; // content pane at screen column 12, row 13; footer on row 16
constexpr DialogSize kTall{60, 14, 6}; // content pane at screen column 12, row 12, four rows high

TEST_F(DialogKit, FormRefusesABadValueFocusesItsRowAndKeepsTheText) {
    InputItem name("Name", "uplink", 20);
    InputItem vlan("VLAN", "", 6, FieldFilter::Number);
    int checks = 0;
    Form<int> form(nullptr, kSize, "Form", "Body", "Footer", [&]() -> std::variant<int, FormError> {
        ++checks;
        const int id = vlan.Value().empty() ? 0 : std::stoi(vlan.Value());
        if (id < 1 || id > 4094)
            return FormError{1, "Invalid VLAN ID", "Please enter a valid VLAN ID (1-4094)."};
        return id;
    });
    form.SetItems({&name, &vlan});

    // VLAN 5000 typed ("x" refused by the field), the focus back on the name, Enter: refused; the message is
    // closed with Enter.
    Press("kcud1");
    Type("50x00");
    Press("kcuu1");
    Type("\n\n");
    // Then a valid value replaces the kept one (the field is fresh again on its focus) and Enter accepts.
    Type("12\n");
    std::optional<int> value;
    std::string valueAfterRefusal;
    int focusAfterRefusal = -1;
    form.SetKeyHook([&](int key) {
        if (key == '1' && focusAfterRefusal < 0) {
            focusAfterRefusal = form.List()->FocusIndex();
            valueAfterRefusal = vlan.Value();
        }
        return FormKey::Unused;
    });
    value = form.Ask();
    EXPECT_EQ(checks, 2);
    EXPECT_EQ(focusAfterRefusal, 1) << "the faulty row has the focus";
    EXPECT_EQ(valueAfterRefusal, "5000") << "the typed text stays";
    EXPECT_EQ(value, 12);
    EXPECT_EQ(name.Value(), "uplink");

    Form<int> cancelled(nullptr, kSize, "Form", "Body", "Footer",
                        [] { return std::variant<int, FormError>(1); });
    Type("\033");
    EXPECT_FALSE(cancelled.Ask());
}

TEST_F(DialogKit, ConfirmationHearsOnlyItsAnswerKeys) {
    const Confirmation f11{"Title", "Text", "Go on?", kF11OkCancelFooter, kF11CancelKeys};
    {
        CheckItem collect("Collect", false);
        ConfirmDialog dialog(nullptr, kTall, f11);
        dialog.SetItems({&collect});
        Type("\nyYnN q");
        Press("kf2");
        Press("kf11");
        EXPECT_EQ(dialog.Ask(), Answer::Yes);
        EXPECT_TRUE(collect.Checked()) << "Space still reaches the check item";
        EXPECT_EQ(Screen(12, 12, 6), "Go on?");
        EXPECT_EQ(Screen(14, 13, 11), "[X] Collect");
    }
    {
        ConfirmDialog dialog(nullptr, kSize, f11);
        Type("\n\033");
        EXPECT_EQ(dialog.Ask(), Answer::Cancel);
    }
    {
        // Without a title the text starts on the title's row; a question that wraps keeps its second line,
        // with the items below it.
        CheckItem collect("Collect", false);
        ConfirmDialog dialog(nullptr, kTall,
                             {"", "Text", "Go on with a question that is long enough to need a second row?",
                              kF11OkCancelFooter, kF11CancelKeys});
        dialog.SetItems({&collect});
        Press("kf11");
        EXPECT_EQ(dialog.Ask(), Answer::Yes);
        EXPECT_EQ(Screen(6, 13, 4), "Text");
        EXPECT_EQ(Screen(13, 12, 11), "second row?");
        EXPECT_EQ(Screen(15, 13, 11), "[ ] Collect");
    }
    const Confirmation yesNo{"Title", "Text", "Apply?", kYesNoCancelFooter, kYesNoCancelKeys};
    const struct {
        const char* keys;
        Answer answer;
    } cases[] = {{"\nxy", Answer::Yes}, {"N", Answer::No}, {" \n\033", Answer::Cancel}};
    for (const auto& c : cases) {
        ConfirmDialog dialog(nullptr, yesNo);
        Type(c.keys);
        EXPECT_EQ(dialog.Ask(), c.answer) << c.keys;
    }
    // A notice without answer keys: its action runs once it shows; a failing action closes it.
    ConfirmDialog notice(nullptr, kSize, {"Title", "In progress.", "", "", {}, false});
    std::string shownDuringAction;
    notice.SetWhenShown([&] {
        shownDuringAction = Screen(9, 13, 12);
        return false;
    });
    EXPECT_EQ(notice.Ask(), Answer::Cancel);
    EXPECT_EQ(shownDuringAction, "In progress.");
}

TEST_F(DialogKit, ProgressShowsEachStepBeforeItBlocksAndWaitsForEnter) {
    std::string shownDuringSecondStep;
    ProgressDialog dialog(nullptr, kSize, "Restart", "Please wait.", [&](ProgressDialog& d) {
        d.Step("Stopping.", [] { return true; });
        d.Step("Starting.", [&] {
            shownDuringSecondStep = Screen(14, 12, 10);
            return false;
        });
        d.Append("IP address is 10.0.0.2");
    });
    Type("x\n");
    EXPECT_FALSE(dialog.Run()) << "a failed step fails the run";
    EXPECT_EQ(dialog.Progress(), "Stopping. Done.\nStarting. Failed.\nIP address is 10.0.0.2");
    EXPECT_EQ(shownDuringSecondStep, "Starting. ");
    EXPECT_EQ(Screen(13, 12, 15), "Stopping. Done.");
    EXPECT_EQ(Screen(16, 58, 10), "<Enter> OK") << "the closing footer";
}

} // namespace
} // namespace Tarn
