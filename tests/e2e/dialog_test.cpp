// Modal dialogs on the root screen: the parent is dimmed while a dialog runs and restored when it returns;
// a dialog that does not fit the terminal does not bring the program down. F2 opens whatever dialog the
// root screen puts there (a notification, the login or the login-disabled dialog): the checks look at the
// parent's cells and the dialog's frame, not at the dialog's words.
#include "harness/Console.h"
#include "harness/Screenshot.h"

#include <csignal>
#include <gtest/gtest.h>

namespace e2e {
namespace {

constexpr const char* kReady = "<F2>";

bool Dimmed(const Cell& c) {
    return c.fg.Index() == 6 && c.bg.Index() == 0;
}

// The F2 hint of the root screen: part of the parent that no centred dialog covers.
struct Root {
    Console& c;
    Pos hint;
    std::string text; // the root screen's text with no dialog over it
    Cell HintCell() { return c->CellAt(hint.col + 1, hint.row); }
    bool ParentDimmed() { return Dimmed(HintCell()); }
    bool DialogShown() { return c->View().Text() != text; }
    // Esc cancels a dialog that takes input; a notification only closes on Enter.
    bool CloseDialog() {
        c->Key("Esc");
        if (c->WaitFor([&] { return !DialogShown(); }, 400ms))
            return true;
        c->Key("Enter");
        return c->WaitFor([&] { return !DialogShown(); });
    }
};

Root Ready(Console& c) {
    EXPECT_TRUE(c->WaitForText(kReady)) << c->View().Text();
    EXPECT_TRUE(c->WaitQuiet(50ms));
    auto hint = c->Find(kReady);
    return Root{c, hint.value_or(Pos{}), c->View().Text()};
}

// The top-left corner of a frame drawn away from the screen's own edge.
std::optional<Pos> DialogCorner(const Screen& s) {
    for (int row = 1; row < s.Rows(); ++row)
        for (int col = 1; col < s.Cols(); ++col)
            if (s.CellAt(col, row).text == "\u250c")
                return Pos{col, row};
    return std::nullopt;
}

TEST(Dialog, ModalDialogDimsItsParentAndRestoresItOnReturn) {
    Console c({.rows = 30, .cols = 100});
    Root root = Ready(c);
    const Cell before = root.HintCell();
    ASSERT_FALSE(root.ParentDimmed());

    for (int round = 1; round <= 2; ++round) { // the second run shows that nothing was left behind
        SCOPED_TRACE(round);
        c->Key("F2");
        ASSERT_TRUE(c->WaitFor([&] { return root.ParentDimmed(); })) << c->View().Text();
        c->WaitQuiet(50ms);
        EXPECT_TRUE(c->Find(kReady) == root.hint) << "dimmed, not erased";
        // The dialog itself is drawn active: its frame is not dark grey on black.
        auto corner = DialogCorner(c->View());
        ASSERT_TRUE(corner) << c->View().Text();
        EXPECT_FALSE(Dimmed(c->CellAt(corner->col + 1, corner->row + 1)));
        if (round == 1)
            SaveScreenshot(c->View(), "dialog-over-root");

        ASSERT_TRUE(root.CloseDialog()) << c->View().Text();
        c->WaitQuiet(50ms);
        const Cell after = root.HintCell();
        EXPECT_EQ(after.fg.Index(), before.fg.Index());
        EXPECT_EQ(after.bg.Index(), before.bg.Index());
        EXPECT_EQ(c->View().Text(), root.text);
    }
    EXPECT_TRUE(c->Running());
}

TEST(Dialog, BorderIsDrawnWithLineCharacters) {
    for (auto term : {"xterm-256color", "vt102"}) {
        SCOPED_TRACE(term);
        Console c({.term = term});
        Ready(c);
        c->Key("F2");
        c->WaitQuiet(100ms);
        auto corner = DialogCorner(c->View());
        ASSERT_TRUE(corner) << c->View().Text();
        EXPECT_EQ(c->CellAt(corner->col + 1, corner->row).text, "\u2500");
        EXPECT_EQ(c->CellAt(corner->col, corner->row + 1).text, "\u2502");
    }
}

// TERM=linux on a pty becomes vt102, whose key table lacks the Linux console's own F1..F5 sequences
// (ESC [ [ A..E); such a terminal reaches F2 through the ESC-digit form.
TEST(Dialog, LinuxTermOnAPtyReachesF2ThroughEscDigit) {
    Console c({.term = "linux"});
    Root root = Ready(c);
    c->Key("F2");
    EXPECT_TRUE(c->WaitQuiet(150ms));
    EXPECT_FALSE(root.DialogShown());
    c->Send("\x1b"
            "2");
    EXPECT_TRUE(c->WaitFor([&] { return root.DialogShown(); })) << c->View().Text();
    EXPECT_TRUE(root.CloseDialog()) << c->View().Text();
}

TEST(Dialog, DialogLargerThanTheScreenDoesNotCrash) {
    for (auto term : {"xterm-256color", "vt102"}) {
        SCOPED_TRACE(term);
        Console c({.term = term, .rows = 8, .cols = 30});
        ASSERT_TRUE(c->WaitForText(kReady)) << c->View().Text();
        c->Key("F2");
        c->WaitQuiet(150ms);
        ASSERT_TRUE(c->Running()) << c->Exit()->Describe();
        c->Key("Esc");
        c->Key("Enter");
        c->WaitQuiet(150ms);
        ASSERT_TRUE(c->Running()) << c->Exit()->Describe();
        c->Signal(SIGTERM);
        auto status = c->WaitExit();
        ASSERT_TRUE(status);
        EXPECT_TRUE(status->exited && status->code == 0) << status->Describe();
    }
}

} // namespace
} // namespace e2e
