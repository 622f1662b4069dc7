// The decoded terminal screen: libvterm fed with the program's bytes, plus the palette changes the program
// made (OSC 4 and the Linux-console form), queried by cell, row and text.
#pragma once

#include "harness/PaletteFilter.h"

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct VTerm;
struct VTermScreen;
struct VTermState;

namespace e2e {

struct Rgb {
    uint8_t r = 0, g = 0, b = 0;
    bool operator==(const Rgb&) const = default;
};

struct Color {
    enum class Kind { DefaultFg, DefaultBg, Indexed, Rgb };
    Kind kind = Kind::DefaultFg;
    int index = -1; // palette index when Indexed
    Rgb rgb;        // when Rgb
    // Palette index, or -1 for the terminal's default colours and direct RGB.
    int Index() const { return kind == Kind::Indexed ? index : -1; }
};

// One cell as a user sees it: reverse video already applied (fg and bg swapped), `reverse` kept for
// reference.
struct Cell {
    std::string text; // UTF-8, " " for an empty cell
    int width = 1;
    Color fg, bg;
    bool bold = false, reverse = false, underline = false;
};

struct Pos {
    int col = 0, row = 0;
    bool operator==(const Pos&) const = default;
};

class Screen {
public:
    Screen(int rows, int cols);
    ~Screen();
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    void Feed(std::string_view bytes);
    void Resize(int rows, int cols);

    int Rows() const { return rows_; }
    int Cols() const { return cols_; }

    Cell CellAt(int col, int row) const;
    // The row's text, one character per cell (the right half of a wide character is skipped), trailing
    // blanks kept so that columns line up.
    std::string Row(int row) const;
    // All rows, trailing blanks trimmed, joined with '\n'.
    std::string Text() const;
    // First occurrence of `text` on the screen, in cell columns, scanning rows top to bottom.
    std::optional<Pos> Find(std::string_view text) const;
    bool Contains(std::string_view text) const { return Find(text).has_value(); }

    Rgb Palette(int index) const;
    // Palette entries the program redefined (and did not reset since), index -> colour.
    const std::map<int, Rgb>& PaletteChanges() const { return changed_; }
    Rgb Resolve(const Color& c) const;

    bool AltScreen() const { return altScreen_; }
    bool CursorVisible() const { return cursorVisible_; }
    Pos Cursor() const;

    // libvterm callbacks; public only for the C trampolines.
    void OnOsc(std::string_view command);
    void OnTermProp(int prop, bool value);

private:
    void SetPalette(int index, Rgb rgb);
    void ResetPalette(int upTo);
    // Row text with the starting column of every byte.
    std::string RowWithColumns(int row, std::vector<int>* cols) const;

    VTerm* vt_;
    VTermScreen* screen_;
    VTermState* state_;
    int rows_, cols_;
    PaletteFilter filter_;
    std::array<Rgb, 256> initial_{};
    std::map<int, Rgb> changed_;
    bool altScreen_ = false;
    bool cursorVisible_ = true;
};

} // namespace e2e
