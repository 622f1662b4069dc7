// The confirmation dialog: a question with its answer keys as data (Y/N/Esc, F11/Esc, Enter/Esc); every
// other key is ignored, except Space and movement for the check items a confirmation may carry. Without
// answer keys it is a notice that stays on screen while an action it announces runs (SetWhenShown).
#pragma once

#include "core/Keys.h"
#include "ui/DialogSize.h"
#include "ui/Window.h"

#include <functional>
#include <string>
#include <vector>

namespace Tarn {

class Item;
class ItemList;
class TextArea;

enum class Answer { Yes, No, Cancel };

struct AnswerKey {
    int key;
    Answer answer;
};
using AnswerKeys = std::vector<AnswerKey>;

// "Y"/"y" yes, "N"/"n" no, Esc cancels.
inline const AnswerKeys kYesNoCancelKeys = {{'Y', Answer::Yes},
                                            {'y', Answer::Yes},
                                            {'N', Answer::No},
                                            {'n', Answer::No},
                                            {Key::Escape, Answer::Cancel}};
// F11 goes on, Esc cancels: Enter is ignored on purpose where the action is hard to undo.
inline const AnswerKeys kF11CancelKeys = {{Key::F(11), Answer::Yes}, {Key::Escape, Answer::Cancel}};
inline const AnswerKeys kEnterCancelKeys = {{Key::Enter, Answer::Yes}, {Key::Escape, Answer::Cancel}};

inline constexpr const char* kYesNoCancelFooter =
    "{color:black}<Y>{/color} {color:dark-grey}Yes{/color}  {color:black}<N>{/color} "
    "{color:dark-grey}No{/color}{align:right}{color:black}<Esc>{/color} "
    "{color:dark-grey}Cancel{/color}{/align}";
inline constexpr const char* kF11OkCancelFooter =
    "{align:right}{color:black}<F11>{/color} {color:dark-grey}OK{/color}  {color:black}<Esc>{/color} "
    "{color:dark-grey}Cancel{/color}{/align}";

struct Confirmation {
    std::string title;    // may be empty: the text then starts on the title's row
    std::string text;     // the body, in the top pane
    std::string question; // in the content pane; may be empty
    std::string footer;
    AnswerKeys keys; // none: nothing answers it (a notice that stays until the console ends)
    bool idleTimeout = true;
};

class ConfirmDialog : public Dialog {
public:
    // Sized like a message dialog for the title and text when `size` is not given.
    ConfirmDialog(Frame* parent, const Confirmation& confirmation);
    ConfirmDialog(Frame* parent, DialogSize size, const Confirmation& confirmation);
    ~ConfirmDialog() override;

    // Check items shown below the question (the caller owns them and reads them afterwards).
    void SetItems(std::vector<Item*> items);
    // Runs once the dialog is on screen, before the first key; false ends it with Answer::Cancel.
    void SetWhenShown(std::function<bool()> action) { whenShown_ = std::move(action); }

    // Runs the dialog modally and returns the answer; TarnTimeout passes through.
    Answer Ask();
    // The key loop: the answer as an int (static_cast<Answer>).
    int Foreground() override;

private:
    AnswerKeys keys_;
    bool idleTimeout_;
    std::function<bool()> whenShown_;
    TextArea* question_ = nullptr;
    ItemList* list_ = nullptr;
};

} // namespace Tarn
