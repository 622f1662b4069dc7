// Modal dialogs on the root screen: the parent is dimmed while a dialog runs and restored when it returns;
// a dialog that does not fit the terminal does not bring the program down.
#include "harness/Console.h"
#include "harness/Screenshot.h"

#include <csignal>
#include <gtest/gtest.h>

namespace e2e {
namespace {

constexpr const char* kReady = "<F2>";
constexpr const char* kBody = "This console is starting up.";

bool Dimmed(const Cell& c) {
    return c.fg.Index() == 6 && c.bg.Index() == 0;
}

TEST(Dialog, ModalDialogDimsItsParentAndRestoresItOnReturn) {
    Console c({.rows = 30, .cols = 100});
    ASSERT_TRUE(c->WaitForText(kReady));
    const Pos hint = *c->Find(kReady);
    const Pos product = *c->Find("Orvane Hypervisor");
    const Cell hintBefore = c->CellAt(hint.col + 1, hint.row);
    const Cell productBefore = c->CellAt(product.col, product.row);
    ASSERT_FALSE(Dimmed(hintBefore));
    ASSERT_FALSE(Dimmed(productBefore));

    c->Key("F2");
    ASSERT_TRUE(c->WaitForText(kBody)) << c->View().Text();
    ASSERT_TRUE(c->WaitForText("<Enter>"));
    // Parent cells outside the dialog: dark grey on black, text unchanged.
    EXPECT_TRUE(c->WaitFor([&] { return Dimmed(c->CellAt(hint.col + 1, hint.row)); }))
        << "hint fg " << c->CellAt(hint.col + 1, hint.row).fg.Index();
    EXPECT_TRUE(c->Find(kReady).has_value());
    // The dialog itself is drawn active: its title pane is not dimmed.
    const Pos title = *c->Find("Notification");
    EXPECT_EQ(c->CellAt(title.col, title.row).bg.Index(), 6);
    EXPECT_EQ(c->CellAt(title.col, title.row).fg.Index(), 7);
    SaveScreenshot(c->View(), "dialog-notification");

    c->Key("Enter");
    ASSERT_TRUE(c->WaitForTextGone(kBody));
    EXPECT_TRUE(c->WaitFor([&] { return !Dimmed(c->CellAt(hint.col + 1, hint.row)); }));
    const Cell hintAfter = c->CellAt(hint.col + 1, hint.row);
    EXPECT_EQ(hintAfter.fg.Index(), hintBefore.fg.Index());
    EXPECT_EQ(hintAfter.bg.Index(), hintBefore.bg.Index());
    const Cell productAfter = c->CellAt(product.col, product.row);
    EXPECT_EQ(productAfter.fg.Index(), productBefore.fg.Index());
    EXPECT_EQ(c->Find("Orvane Hypervisor"), product);

    // Opening it again works the same way: nothing was left behind by the first run.
    c->Key("F2");
    EXPECT_TRUE(c->WaitForText(kBody));
    c->Key("Enter");
    EXPECT_TRUE(c->WaitForTextGone(kBody));
    EXPECT_TRUE(c->Running());
}

TEST(Dialog, BorderIsDrawnWithLineCharacters) {
    for (auto term : {"xterm-256color", "vt102"}) {
        SCOPED_TRACE(term);
        Console c({.term = term});
        ASSERT_TRUE(c->WaitForText(kReady));
        c->Key("F2");
        ASSERT_TRUE(c->WaitForText(kBody));
        c->WaitQuiet(50ms);
        // The frame's top-left corner is one row above and three columns left of the title text.
        const Pos title = *c->Find("Notification");
        EXPECT_EQ(c->CellAt(title.col - 3, title.row - 1).text, "\u250c") << c->View().Text();
        EXPECT_EQ(c->CellAt(title.col, title.row - 1).text, "\u2500");
        EXPECT_EQ(c->CellAt(title.col - 3, title.row).text, "\u2502");
    }
}

// TERM=linux on a pty becomes vt102, whose key table lacks the Linux console's own F1..F5 sequences
// (ESC [ [ A..E); such a terminal reaches F2 through the ESC-digit form.
TEST(Dialog, LinuxTermOnAPtyReachesF2ThroughEscDigit) {
    Console c({.term = "linux"});
    ASSERT_TRUE(c->WaitForText(kReady));
    c->Key("F2");
    EXPECT_TRUE(c->WaitQuiet(150ms));
    EXPECT_FALSE(c->View().Contains(kBody));
    c->Send("\x1b"
            "2");
    EXPECT_TRUE(c->WaitForText(kBody)) << c->View().Text();
    c->Key("Enter");
    EXPECT_TRUE(c->WaitForTextGone(kBody));
}

TEST(Dialog, OtherKeysDoNotCloseANotification) {
    Console c;
    ASSERT_TRUE(c->WaitForText(kReady));
    c->Key("F2");
    ASSERT_TRUE(c->WaitForText(kBody));
    c->Key("Esc");
    c->Key("Down");
    c->Type("x");
    EXPECT_TRUE(c->WaitQuiet(150ms));
    EXPECT_TRUE(c->View().Contains(kBody));
    c->Key("Enter");
    EXPECT_TRUE(c->WaitForTextGone(kBody));
}

TEST(Dialog, DialogLargerThanTheScreenDoesNotCrash) {
    for (auto term : {"xterm-256color", "vt102"}) {
        SCOPED_TRACE(term);
        Console c({.term = term, .rows = 8, .cols = 30});
        ASSERT_TRUE(c->WaitForText(kReady)) << c->View().Text();
        c->Key("F2");
        c->WaitQuiet(150ms);
        EXPECT_TRUE(c->Running()) << c->Exit()->Describe();
        c->Key("Enter");
        c->WaitQuiet(150ms);
        EXPECT_TRUE(c->Running());
        EXPECT_TRUE(c->View().Contains(kReady)) << c->View().Text();
        c->Signal(SIGTERM);
        auto status = c->WaitExit();
        ASSERT_TRUE(status);
        EXPECT_TRUE(status->exited && status->code == 0) << status->Describe();
    }
}

} // namespace
} // namespace e2e
