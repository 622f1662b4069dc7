// Modal dialogs on the root screen: the parent is dimmed while a dialog runs and restored when it returns
// (dialogs on terminals too small for them are startup_test.cpp's). The checks look at the parent's
// cells and the dialog's frame, not at the dialog's words.
#include "Flows.h"
#include "harness/Screenshot.h"

namespace e2e {
namespace {

constexpr const char* kReady = "<F2>";

bool Dimmed(const Cell& c) {
    return c.fg.Index() == 6 && c.bg.Index() == 0;
}

// The top-left corner of a frame drawn away from the screen's own edge.
std::optional<Pos> DialogCorner(Console& c) {
    for (int row = 1; row < c->View().Rows(); ++row)
        for (int col = 1; col < c->View().Cols(); ++col)
            if (c->CellAt(col, row).text == "\u250c")
                return Pos{col, row};
    return std::nullopt;
}

// A settled frame is made of line characters.
void ExpectLineFrame(Console& c, Pos corner) {
    EXPECT_EQ(c->CellAt(corner.col + 1, corner.row).text, "\u2500");
    EXPECT_EQ(c->CellAt(corner.col, corner.row + 1).text, "\u2502");
}

TEST(Dialog, ModalDialogDimsItsParentAndRestoresItOnReturn) {
    Console c(Roomy());
    ASSERT_TRUE(c->WaitForTextSettled(kReady, 50ms)) << c->View().Text();
    const Pos hint = *c->Find(kReady); // part of the parent that no centred dialog covers
    const std::string root = c->View().Text();
    const Cell before = c->CellAt(hint.col + 1, hint.row);
    ASSERT_FALSE(Dimmed(before));

    for (int round = 1; round <= 2; ++round) { // the second run shows that nothing was left behind
        SCOPED_TRACE(round);
        c->Key("F2");
        ASSERT_TRUE(c->WaitFor([&] { return Dimmed(c->CellAt(hint.col + 1, hint.row)); }))
            << c->View().Text();
        c->WaitQuiet(50ms);
        EXPECT_TRUE(c->Find(kReady) == hint) << "dimmed, not erased";
        // The dialog itself is drawn active: its frame is not dark grey on black.
        auto corner = DialogCorner(c);
        ASSERT_TRUE(corner) << c->View().Text();
        ExpectLineFrame(c, *corner);
        EXPECT_FALSE(Dimmed(c->CellAt(corner->col + 1, corner->row + 1)));
        if (round == 1)
            SaveScreenshot(c->View(), "dialog-over-root");

        c->Key("Esc");
        ASSERT_TRUE(c->WaitFor([&] { return c->View().Text() == root; })) << c->View().Text();
        c->WaitQuiet(50ms);
        EXPECT_EQ(c->CellAt(hint.col + 1, hint.row).fg.Index(), before.fg.Index());
        EXPECT_EQ(c->CellAt(hint.col + 1, hint.row).bg.Index(), before.bg.Index());
        EXPECT_EQ(c->View().Text(), root);
    }
}

// TERM=linux on a pty becomes vt102, whose key table lacks the Linux console's own F1..F5 sequences
// (ESC [ [ A..E); such a terminal reaches F2 through the ESC-digit form, and its dialogs are framed with
// line characters too.
TEST(Dialog, LinuxTermOnAPtyReachesF2ThroughEscDigit) {
    Console c({.term = "linux"});
    ASSERT_TRUE(c->WaitForTextSettled(kReady, 50ms)) << c->View().Text();
    const std::string root = c->View().Text();
    c->Key("F2");
    EXPECT_TRUE(c->WaitQuiet(150ms));
    EXPECT_EQ(c->View().Text(), root);
    c->Send("\x1b"
            "2");
    ASSERT_TRUE(c->WaitFor([&] { return DialogCorner(c).has_value(); })) << c->View().Text();
    ASSERT_TRUE(c->WaitQuiet(50ms));
    ExpectLineFrame(c, *DialogCorner(c));
    c->Key("Esc");
    EXPECT_TRUE(c->WaitFor([&] { return c->View().Text() == root; })) << c->View().Text();
}

} // namespace
} // namespace e2e
