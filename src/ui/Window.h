// The window tree: Window owns a curses window and its children; Frame can be run modally by RunWindow and
// sits on a parent frame; Dialog is a centred frame with the two-pane look; RootWindow a full-screen frame.
// Curses types stay out of this header (only ui/ and core/ .cpp files include <curses.h>).
#pragma once

#include "core/Surface.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

typedef struct _win_st WINDOW;

namespace Tarn {

class StringFactory;
class TextArea;
struct DialogSize;

class Window : public Surface {
public:
    // Top-level window: newwin(height, width, row, column).
    Window(int column, int row, int width, int height, int background, int foreground);
    // Child window: position relative to `parent`, colours of -1 taken from the parent; appended to its
    // children (the parent owns it from then on).
    Window(Window* parent, int column, int row, int width, int height, int background, int foreground);
    virtual ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    void Draw(bool active) override;

    void Refresh() override;
    void Redraw();
    void Print(int column, int row, const std::string& text);
    void SetColors(int background, int foreground);
    // Blanks the window's cells (children share them) and draws a line border around its edge.
    void Erase();
    void DrawBorder();
    void MoveCursor(int column, int row);
    static void ShowCursor(bool visible);
    static bool CursorVisible();

    // Creates a child of type T owned by this window; returns a non-owning pointer.
    template <class T, class... Args> T* AddChild(Args&&... args) {
        return new T(this, std::forward<Args>(args)...);
    }

    WINDOW* Curses() const { return win_; }
    Window* Parent() const { return parent_; }
    int Column() const { return column_; }
    int Row() const { return row_; }
    int Width() const { return width_; }
    int Height() const { return height_; }
    int Background() const { return background_; }
    int Foreground() const { return foreground_; }
    bool Active() const { return active_; }
    bool IsTopLevel() const { return parent_ == nullptr; }
    const std::vector<Window*>& Children() const { return children_; }

protected:
    // Saved cursor state while the window is inactive; only a window that was dimmed has one to restore.
    bool cursorSaved_ = false;
    int savedCursorVisible_ = 0;
    int savedCursorColumn_ = 0;
    int savedCursorRow_ = 0;

    Window* parent_ = nullptr;
    WINDOW* win_ = nullptr; // may be null when curses refused the window (e.g. larger than the screen)
    int column_ = 0, row_ = 0, width_ = 0, height_ = 0;
    int background_ = -1, foreground_ = -1;
    std::vector<Window*> children_; // owned
    bool active_ = true;

private:
    void Detach(Window* child);
};

class Frame : public Window {
public:
    Frame(Frame* parentFrame, int column, int row, int width, int height, int background, int foreground);

    // The key loop; the result is what RunWindow returns.
    virtual int Foreground() = 0;
    // Called on SIGUSR1 while this frame is the current window.
    void Notification() override {}
    // False only for frames whose run RunWindow builds in (a plain NotificationDialog).
    virtual bool HasForeground() const { return true; }
    // A dialog of this frame closed: true when the frame repaints itself later (once its task is done, with
    // what the task changed), so the closing dialog leaves the repaint to it.
    virtual bool TakesRepaint() { return false; }

    Frame* ParentFrame() const { return parentFrame_; }
    const StringFactory& Strings() const { return *strings_; }
    const char* Text(unsigned id) const;

protected:
    Frame* parentFrame_;
    StringFactory* strings_;
};

class Dialog : public Frame {
public:
    // Centred W x H frame, top pane `splitRow` rows high; cut to the screen when larger (FitToScreen).
    Dialog(Frame* parentFrame, int width, int height, int splitRow);

    void Draw(bool active) override;

    void SetTitle(const std::string& markup);
    void SetBody(const std::string& markup);
    void SetFooter(const std::string& markup);

    Window* TopPane() const { return top_; }
    Window* BottomPane() const { return bottom_; }
    Window* ContentPane() const { return content_; } // null when the bottom pane is at most 4 rows high
    TextArea* TitleArea() const { return title_; }
    TextArea* BodyArea() const { return body_; }
    TextArea* FooterArea() const { return footer_; }

protected:
    Window* top_ = nullptr;
    Window* bottom_ = nullptr;
    Window* content_ = nullptr;
    TextArea* title_ = nullptr;
    TextArea* body_ = nullptr;
    TextArea* footer_ = nullptr;

private:
    Dialog(Frame* parentFrame, const DialogSize& fitted);
};

// Full-screen frame for menus (System Customization): a left pane holding the list pane for an ItemList, and
// a right pane with title, body and footer text areas describing the entry under the cursor.
class RootWindow : public Frame {
public:
    // `widestLabel`: cells of the longest entry name (or heading); the left pane widens from two fifths of
    // the screen to show it whole, up to three fifths.
    explicit RootWindow(Frame* parentFrame, int widestLabel = 0);

    // The window's own name, above the list, so the operator sees where they are.
    void SetHeading(const std::string& markup);
    void SetTitle(const std::string& markup);
    void SetBody(const std::string& markup);
    void SetFooter(const std::string& markup);

    Window* LeftPane() const { return left_; }
    Window* ListPane() const { return list_; } // amber background, for the menu's ItemList
    Window* RightPane() const { return right_; }
    TextArea* TitleArea() const { return title_; }
    TextArea* BodyArea() const { return body_; }
    TextArea* FooterArea() const { return footer_; }

protected:
    Window* left_ = nullptr;
    Window* list_ = nullptr;
    Window* right_ = nullptr;
    TextArea* heading_ = nullptr;
    TextArea* title_ = nullptr;
    TextArea* body_ = nullptr;
    TextArea* footer_ = nullptr;
};

} // namespace Tarn
