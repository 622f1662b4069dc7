// libvterm set-up in the one order that works with 0.1.4, palette bookkeeping, and cell/text queries.
#include "harness/Screen.h"

#include <cstdlib>
#include <cstring>
#include <vterm.h>

namespace e2e {

namespace {

int OscTrampoline(const char* command, size_t len, void* user) {
    static_cast<Screen*>(user)->OnOsc(std::string_view(command, len));
    return 1;
}

int TermPropTrampoline(VTermProp prop, VTermValue* val, void* user) {
    if (prop == VTERM_PROP_ALTSCREEN || prop == VTERM_PROP_CURSORVISIBLE)
        static_cast<Screen*>(user)->OnTermProp(int(prop), val->boolean);
    return 1;
}

const VTermParserCallbacks kFallbacks = {nullptr, nullptr, nullptr, nullptr, OscTrampoline, nullptr, nullptr};
const VTermScreenCallbacks kScreenCallbacks = {nullptr, nullptr, nullptr, TermPropTrampoline,
                                               nullptr, nullptr, nullptr, nullptr};

Color FromVTerm(const VTermColor& c) {
    Color out;
    if (VTERM_COLOR_IS_DEFAULT_FG(&c))
        out.kind = Color::Kind::DefaultFg;
    else if (VTERM_COLOR_IS_DEFAULT_BG(&c))
        out.kind = Color::Kind::DefaultBg;
    else if (VTERM_COLOR_IS_INDEXED(&c)) {
        out.kind = Color::Kind::Indexed;
        out.index = c.indexed.idx;
    } else {
        out.kind = Color::Kind::Rgb;
        out.rgb = {c.rgb.red, c.rgb.green, c.rgb.blue};
    }
    return out;
}

void AppendUtf8(std::string& s, uint32_t cp) {
    if (cp < 0x80) {
        s.push_back(char(cp));
    } else if (cp < 0x800) {
        s.push_back(char(0xC0 | (cp >> 6)));
        s.push_back(char(0x80 | (cp & 0x3F)));
    } else if (cp < 0x10000) {
        s.push_back(char(0xE0 | (cp >> 12)));
        s.push_back(char(0x80 | ((cp >> 6) & 0x3F)));
        s.push_back(char(0x80 | (cp & 0x3F)));
    } else {
        s.push_back(char(0xF0 | (cp >> 18)));
        s.push_back(char(0x80 | ((cp >> 12) & 0x3F)));
        s.push_back(char(0x80 | ((cp >> 6) & 0x3F)));
        s.push_back(char(0x80 | (cp & 0x3F)));
    }
}

// "rgb:R/G/B" with 1 to 4 hex digits per component, scaled to 8 bits.
std::optional<Rgb> ParseXColor(std::string_view text) {
    if (text.substr(0, 4) != "rgb:")
        return std::nullopt;
    text.remove_prefix(4);
    uint8_t parts[3];
    for (int i = 0; i < 3; ++i) {
        size_t slash = text.find('/');
        std::string_view part = text.substr(0, slash);
        if (part.empty() || part.size() > 4)
            return std::nullopt;
        char* end = nullptr;
        std::string digits(part);
        unsigned long v = std::strtoul(digits.c_str(), &end, 16);
        if (*end != '\0')
            return std::nullopt;
        unsigned long max = (1ul << (4 * part.size())) - 1;
        parts[i] = uint8_t((v * 255 + max / 2) / max);
        if (i < 2 && slash == std::string_view::npos)
            return std::nullopt;
        text = slash == std::string_view::npos ? std::string_view() : text.substr(slash + 1);
    }
    return Rgb{parts[0], parts[1], parts[2]};
}

} // namespace

Screen::Screen(int rows, int cols)
    : rows_(rows), cols_(cols), filter_({[this](int i, uint8_t r, uint8_t g, uint8_t b) {
                                             SetPalette(i, {r, g, b});
                                         },
                                         [this] { ResetPalette(16); }}) {
    vt_ = vterm_new(rows, cols);
    vterm_set_utf8(vt_, 1);
    screen_ = vterm_obtain_screen(vt_);
    state_ = vterm_obtain_state(vt_);
    vterm_screen_set_unrecognised_fallbacks(screen_, &kFallbacks, this);
    vterm_screen_set_callbacks(screen_, &kScreenCallbacks, this);
    vterm_screen_enable_altscreen(screen_, 1);
    // Without this reset, vterm_input_write crashes in 0.1.4.
    vterm_screen_reset(screen_, 1);
    for (int i = 0; i < 256; ++i) {
        VTermColor c;
        vterm_state_get_palette_color(state_, i, &c);
        vterm_state_convert_color_to_rgb(state_, &c);
        initial_[size_t(i)] = {c.rgb.red, c.rgb.green, c.rgb.blue};
    }
}

Screen::~Screen() {
    vterm_free(vt_);
}

void Screen::Feed(std::string_view bytes) {
    std::string clean = filter_.Feed(bytes);
    if (!clean.empty())
        vterm_input_write(vt_, clean.data(), clean.size());
}

void Screen::Resize(int rows, int cols) {
    rows_ = rows;
    cols_ = cols;
    vterm_set_size(vt_, rows, cols);
}

void Screen::SetPalette(int index, Rgb rgb) {
    if (index < 0 || index > 255)
        return;
    VTermColor c;
    vterm_color_rgb(&c, rgb.r, rgb.g, rgb.b);
    vterm_state_set_palette_color(state_, index, &c);
    changed_[index] = rgb;
}

void Screen::ResetPalette(int upTo) {
    for (int i = 0; i < upTo; ++i) {
        VTermColor c;
        vterm_color_rgb(&c, initial_[size_t(i)].r, initial_[size_t(i)].g, initial_[size_t(i)].b);
        vterm_state_set_palette_color(state_, i, &c);
        changed_.erase(i);
    }
}

// OSC 4 ; index ; colour [; index ; colour ...] sets entries; OSC 104 resets them.
void Screen::OnOsc(std::string_view command) {
    if (command == "104" || command.substr(0, 4) == "104;") {
        ResetPalette(256);
        return;
    }
    if (command.substr(0, 2) != "4;")
        return;
    command.remove_prefix(2);
    while (!command.empty()) {
        size_t semi = command.find(';');
        if (semi == std::string_view::npos)
            return;
        int index = std::atoi(std::string(command.substr(0, semi)).c_str());
        command.remove_prefix(semi + 1);
        size_t next = command.find(';');
        if (auto rgb = ParseXColor(command.substr(0, next)))
            SetPalette(index, *rgb);
        command = next == std::string_view::npos ? std::string_view() : command.substr(next + 1);
    }
}

void Screen::OnTermProp(int prop, bool value) {
    if (prop == VTERM_PROP_ALTSCREEN)
        altScreen_ = value;
    else if (prop == VTERM_PROP_CURSORVISIBLE)
        cursorVisible_ = value;
}

Cell Screen::CellAt(int col, int row) const {
    VTermScreenCell vc;
    Cell cell;
    if (!vterm_screen_get_cell(screen_, VTermPos{row, col}, &vc))
        return cell;
    cell.text.clear();
    for (int i = 0; i < VTERM_MAX_CHARS_PER_CELL && vc.chars[i] != 0; ++i) {
        if (vc.chars[i] == 0xFFFFFFFF)
            break;
        AppendUtf8(cell.text, vc.chars[i]);
    }
    if (cell.text.empty())
        cell.text.push_back(' ');
    cell.width = vc.width;
    cell.bold = vc.attrs.bold;
    cell.reverse = vc.attrs.reverse;
    cell.underline = vc.attrs.underline != 0;
    cell.fg = FromVTerm(vc.fg);
    cell.bg = FromVTerm(vc.bg);
    if (cell.reverse)
        std::swap(cell.fg, cell.bg);
    return cell;
}

std::string Screen::RowWithColumns(int row, std::vector<int>* cols) const {
    std::string text;
    for (int col = 0; col < cols_; ++col) {
        VTermScreenCell vc;
        if (!vterm_screen_get_cell(screen_, VTermPos{row, col}, &vc))
            continue;
        if (vc.chars[0] == 0xFFFFFFFF) // right half of a wide character
            continue;
        size_t before = text.size();
        if (vc.chars[0] == 0)
            text.push_back(' ');
        for (int i = 0; i < VTERM_MAX_CHARS_PER_CELL && vc.chars[i] != 0; ++i)
            AppendUtf8(text, vc.chars[i]);
        if (cols)
            cols->insert(cols->end(), text.size() - before, col);
    }
    return text;
}

std::string Screen::Row(int row) const {
    return RowWithColumns(row, nullptr);
}

std::string Screen::Text() const {
    std::string all;
    for (int r = 0; r < rows_; ++r) {
        std::string line = Row(r);
        line.erase(line.find_last_not_of(' ') + 1);
        all += line;
        if (r + 1 < rows_)
            all.push_back('\n');
    }
    return all;
}

std::optional<Pos> Screen::Find(std::string_view text) const {
    for (int r = 0; r < rows_; ++r) {
        std::vector<int> cols;
        std::string line = RowWithColumns(r, &cols);
        size_t at = line.find(text);
        if (at != std::string::npos)
            return Pos{cols[at], r};
    }
    return std::nullopt;
}

Rgb Screen::Palette(int index) const {
    VTermColor c;
    vterm_state_get_palette_color(state_, index, &c);
    vterm_state_convert_color_to_rgb(state_, &c);
    return {c.rgb.red, c.rgb.green, c.rgb.blue};
}

Rgb Screen::Resolve(const Color& c) const {
    VTermColor fg, bg;
    vterm_state_get_default_colors(state_, &fg, &bg);
    switch (c.kind) {
    case Color::Kind::DefaultFg:
        vterm_state_convert_color_to_rgb(state_, &fg);
        return {fg.rgb.red, fg.rgb.green, fg.rgb.blue};
    case Color::Kind::DefaultBg:
        vterm_state_convert_color_to_rgb(state_, &bg);
        return {bg.rgb.red, bg.rgb.green, bg.rgb.blue};
    case Color::Kind::Indexed:
        return Palette(c.index);
    case Color::Kind::Rgb:
        break;
    }
    return c.rgb;
}

Pos Screen::Cursor() const {
    VTermPos p;
    vterm_state_get_cursorpos(state_, &p);
    return {p.col, p.row};
}

} // namespace e2e
