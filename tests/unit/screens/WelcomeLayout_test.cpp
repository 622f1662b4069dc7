// Welcome screen geometry on terminals of different sizes.
#include "screens/WelcomeLayout.h"

#include <gtest/gtest.h>

namespace Tarn {
namespace {

TEST(WelcomeLayout, HalvesCoverTheScreenAndTheFooterSitsAboveTheBottomBorder) {
    const WelcomeGeometry even = ComputeWelcomeGeometry(100, 30);
    EXPECT_EQ(even.top, (WelcomeRect{0, 0, 100, 15}));
    EXPECT_EQ(even.bottom, (WelcomeRect{0, 15, 100, 15}));
    EXPECT_EQ(even.footer, (WelcomeRect{2, 13, 96, 1}));
    EXPECT_EQ(even.warning, (WelcomeRect{16, 9, 68, 5})) << "kept off the bottom border";
    EXPECT_EQ(even.message, (WelcomeRect{2, 2, 96, 26}));

    // An odd line goes to the bottom half, and the footer moves with it.
    const WelcomeGeometry odd = ComputeWelcomeGeometry(80, 25);
    EXPECT_EQ(odd.top.height, 12);
    EXPECT_EQ(odd.bottom, (WelcomeRect{0, 12, 80, 13}));
    EXPECT_EQ(odd.footer.row, 11);
    EXPECT_EQ(odd.management, (WelcomeRect{8, 1, 64, 7}));
    EXPECT_EQ(odd.warning, (WelcomeRect{16, 9, 48, 3}));

    // Boxes that would reach past their half shrink but never move; one with no room at all has no rows.
    const WelcomeGeometry tall = ComputeWelcomeGeometry(120, 50);
    EXPECT_EQ(tall.warning.height, 6);
    EXPECT_EQ(tall.cpuMemory, (WelcomeRect{8, 9, 104, 2}));
    const WelcomeGeometry tiny = ComputeWelcomeGeometry(40, 16);
    EXPECT_EQ(tiny.cpuMemory.height, 0);
    EXPECT_EQ(tiny.warning.height, 0);
    EXPECT_EQ(tiny.header, (WelcomeRect{8, 5, 24, 1}));
}

} // namespace
} // namespace Tarn
