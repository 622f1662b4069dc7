// The standard dialogs on an off-screen 80x24 terminal: geometry, the texts they show, and the Enter loop
// reading keys from a pipe in place of the terminal.
#include "core/EventLoop.h"
#include "ui/StandardDialogs.h"
#include "ui/TextArea.h"

#include <gtest/gtest.h>

#include <curses.h>
#include <unistd.h>

#include <cstdio>
#include <string>

namespace Tarn {
namespace {

class StandardDialogsTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(pipe(keys_), 0);
        savedStdin_ = dup(0);
        ASSERT_GE(dup2(keys_[0], 0), 0); // the event loop polls descriptor 0
        out_ = std::fopen("/dev/null", "w");
        screen_ = newterm("xterm-256color", out_, stdin);
        ASSERT_NE(screen_, nullptr);
        set_term(screen_);
        resizeterm(24, 80);
        flushinp(); // the resize queues KEY_RESIZE, which would end the program in GetKey
    }

    void TearDown() override {
        if (screen_ != nullptr) {
            endwin();
            delscreen(screen_);
        }
        std::fclose(out_);
        dup2(savedStdin_, 0);
        close(savedStdin_);
        close(keys_[0]);
        close(keys_[1]);
    }

    void Type(const std::string& keys) {
        ASSERT_EQ(write(keys_[1], keys.data(), keys.size()), (ssize_t)keys.size());
    }

    // Row `row` of a window's own cells, trailing blanks removed.
    static std::string RowText(Window* window, int row) {
        char buffer[256] = {};
        mvwinnstr(window->Curses(), row, 0, buffer, window->Width());
        std::string text(buffer);
        return text.erase(text.find_last_not_of(' ') + 1);
    }

    int keys_[2] = {-1, -1};
    int savedStdin_ = -1;
    FILE* out_ = nullptr;
    SCREEN* screen_ = nullptr;
};

TEST_F(StandardDialogsTest, InfoDialogFillsItsContentPaneWithTheInformation) {
    InfoDialog dialog(nullptr, "First line\nSecond line", "Title", "Body", "Footer");

    EXPECT_EQ(dialog.Column(), 5);
    EXPECT_EQ(dialog.Row(), 4);
    EXPECT_EQ(dialog.Width(), 70);
    EXPECT_EQ(dialog.Height(), 15);
    EXPECT_EQ(dialog.TopPane()->Height(), 5);
    ASSERT_NE(dialog.ContentPane(), nullptr);
    TextArea* info = dialog.InformationArea();
    ASSERT_NE(info, nullptr);
    EXPECT_EQ(info->Parent(), dialog.ContentPane());
    EXPECT_EQ(info->Column(), 5 + 2);
    EXPECT_EQ(info->Row(), 4 + 5 + 1);
    EXPECT_EQ(info->Width(), 66);
    EXPECT_EQ(info->Height(), 6);
    EXPECT_EQ(info->Background(), 3);
    EXPECT_EQ(info->Foreground(), 6);

    dialog.Draw(true);
    EXPECT_EQ(RowText(info, 0), "First line");
    EXPECT_EQ(RowText(info, 1), "Second line");
    EXPECT_EQ(RowText(dialog.TitleArea(), 0), "Title");
    EXPECT_EQ(RowText(dialog.BodyArea(), 0), "Body");
    EXPECT_EQ(RowText(dialog.FooterArea(), 0), "Footer");
}

TEST_F(StandardDialogsTest, NotificationIsCentredAndShowsItsTexts) {
    NotificationDialog dialog(nullptr, "Network Adapters: Warning", "No uplinks were selected.");
    EXPECT_FALSE(dialog.HasForeground());
    EXPECT_EQ(dialog.TitleText(), "Network Adapters: Warning");

    // 40 x 8 with a one-line body
    EXPECT_EQ(dialog.Width(), 40);
    EXPECT_EQ(dialog.Height(), 8);
    EXPECT_EQ(dialog.Column(), 20);
    EXPECT_EQ(dialog.Row(), 8);
    EXPECT_EQ(dialog.ContentPane(), nullptr);

    dialog.Draw(true);
    EXPECT_EQ(RowText(dialog.TitleArea(), 0), "Network Adapters: Warning");
    EXPECT_EQ(RowText(dialog.BodyArea(), 0), "No uplinks were selected.");
    const std::string footer = RowText(dialog.FooterArea(), 0);
    EXPECT_EQ(footer.substr(footer.size() - 10), "<Enter> OK");
}

TEST_F(StandardDialogsTest, MessageTakesItsTitleFromTheCatalogue) {
    MessageDialog dialog(nullptr, 112, "Empty passwords are not allowed.");
    dialog.Draw(true);
    EXPECT_EQ(RowText(dialog.TitleArea(), 0), "Warning");
    EXPECT_EQ(RowText(dialog.BodyArea(), 0), "Empty passwords are not allowed.");
}

TEST_F(StandardDialogsTest, OnlyEnterClosesAndLaterKeysStayUnread) {
    const struct {
        const char* name;
        std::string typed;
    } cases[] = {
        {"letters and blanks before Enter", "xq \n!"},
        {"cursor keys before Enter", "\x1b[A\x1b[B\n!"},
        {"Enter at once", "\n!"},
    };
    for (const auto& c : cases) {
        NotificationDialog notification(nullptr, "T", "B");
        MessageDialog message(nullptr, 112, "B");
        InfoDialog info(nullptr, "I", "T", "B", "F");
        for (Dialog* dialog : {static_cast<Dialog*>(&notification), static_cast<Dialog*>(&message),
                               static_cast<Dialog*>(&info)}) {
            Type(c.typed);
            EXPECT_EQ(dialog->Foreground(), 1) << c.name;
            EXPECT_EQ(GetKey(dialog, false), '!') << c.name;
        }
    }
}

} // namespace
} // namespace Tarn
