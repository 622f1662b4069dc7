// Sizing of notification and message dialogs from their title and body.
#include "ui/DialogSize.h"

#include <gtest/gtest.h>

#include <string>

namespace Tarn {
namespace {

std::string Words(int count) { // "word word ... word": 4 letters and one blank per word
    std::string s;
    for (int i = 0; i < count; ++i) {
        s += i == 0 ? "word" : " word";
    }
    return s;
}

std::string Repeat(const std::string& piece, int count) {
    std::string s;
    for (int i = 0; i < count; ++i) {
        s += piece;
    }
    return s;
}

TEST(DialogSize, FollowsTitleAndBody) {
    const struct {
        const char* name;
        std::string title, body;
        int columns, rows;
        DialogSize want;
    } cases[] = {
        {"short body gets the minimum width", "Warning", "Done.", 0, 0, {40, 8, 5}},
        // 13 words fit in the 66-column body area of a 72-column dialog: 13 + 13 + 4
        {"long paragraph wraps at the widest dialog", "T", Words(30), 0, 0, {72, 10, 7}},
        {"empty lines count", "T", "a\n\nb", 0, 0, {40, 10, 7}},
        // markup takes no cells: 50 letters need 56 columns and fit one line exactly
        {"markup is not measured", "", "{color:red}" + std::string(50, 'y') + "{/color}", 0, 0, {56, 8, 5}},
        {"unclosed tag hides the rest", "", "ok {color:red " + std::string(80, 'z'), 0, 0, {40, 8, 5}},
        {"word longer than a line is split", "", std::string(150, 'x'), 0, 0, {72, 10, 7}},
        {"multi-byte characters take one cell each", "", Repeat("\u00e9", 50), 0, 0, {56, 8, 5}},
        {"title sets the width", std::string(60, 't'), "b", 0, 0, {66, 8, 5}},
        // 44-column body area: 9 words a line, 4 lines
        {"narrow screen", "T", Words(30), 50, 0, {50, 11, 8}},
        {"low screen cuts the body", "T", Words(30), 50, 9, {50, 9, 6}},
        {"tiny screen keeps one body line", "T", Words(30), 50, 3, {50, 8, 5}},
    };
    for (const auto& c : cases) {
        const DialogSize got = MessageDialogSize(c.title, c.body, c.columns, c.rows);
        EXPECT_EQ(got.width, c.want.width) << c.name;
        EXPECT_EQ(got.height, c.want.height) << c.name;
        EXPECT_EQ(got.splitRow, c.want.splitRow) << c.name;
    }
}

} // namespace
} // namespace Tarn
