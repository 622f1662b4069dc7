// Markup parsing and line layout. The text is first cut into tokens (characters, line breaks, known tags),
// then laid out cell by cell: each cell remembers the colours in force when it was written, so colours
// survive line breaks, and a line is broken at its last blank when the next character does not fit.
#include "ui/Markup.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>
#include <utility>

namespace Tarn::Markup {
namespace {

struct NamedColor {
    std::string_view name;
    int number;
};

constexpr std::array<NamedColor, 6> kColors{{
    {"white", 7},
    {"black", 0},
    {"dark-grey", 6},
    {"light-grey", 2},
    {"yellow", 3},
    {"red", 1},
}};

enum class Kind { Char, Blank, Newline, Color, EndColor, BgColor, EndBgColor, Align, EndAlign };

struct Token {
    Kind kind;
    std::string_view text; // the character's bytes, or the tag's argument
};

struct TagName {
    std::string_view name;
    Kind kind;
};

constexpr std::array<TagName, 6> kTags{{
    {"color", Kind::Color},
    {"/color", Kind::EndColor},
    {"bgcolor", Kind::BgColor},
    {"/bgcolor", Kind::EndBgColor},
    {"align", Kind::Align},
    {"/align", Kind::EndAlign},
}};

bool IsContinuationByte(unsigned char c) {
    return (c & 0xC0) == 0x80;
}

std::vector<Token> Tokenize(std::string_view text) {
    std::vector<Token> tokens;
    size_t i = 0;
    while (i < text.size()) {
        unsigned char c = static_cast<unsigned char>(text[i]);
        if (c == '{') {
            size_t close = text.find('}', i + 1);
            if (close == std::string_view::npos)
                break; // an unclosed tag swallows the rest of the text
            std::string_view tag = text.substr(i + 1, close - i - 1);
            i = close + 1;
            size_t colon = tag.find(':');
            std::string_view name = tag.substr(0, colon);
            std::string_view arg =
                colon == std::string_view::npos ? std::string_view{} : tag.substr(colon + 1);
            for (const TagName& known : kTags) {
                if (known.name == name) {
                    tokens.push_back({known.kind, arg});
                    break;
                }
            }
            continue; // empty and unknown tags leave nothing behind
        }
        if (c == '\n') {
            tokens.push_back({Kind::Newline, {}});
            ++i;
            continue;
        }
        size_t end = i + 1;
        while (end < text.size() && IsContinuationByte(static_cast<unsigned char>(text[end])))
            ++end;
        tokens.push_back({std::isspace(c) ? Kind::Blank : Kind::Char, text.substr(i, end - i)});
        i = end;
    }
    return tokens;
}

struct Cell {
    std::string_view text;
    int foreground;
    int background;
    bool blank;
};

enum class AlignMode { None, Left, Right, Center, Padding };

class Layouter {
public:
    Layouter(const std::vector<Token>& tokens, int width, int height)
        : tokens_(tokens), width_(width), height_(height) {}

    std::vector<Line> Run() {
        for (size_t i = 0; i < tokens_.size() && !full_; ++i)
            Consume(i);
        if (!full_ && !cells_.empty())
            EndLine();
        return std::move(lines_);
    }

private:
    void Consume(size_t i) {
        const Token& t = tokens_[i];
        switch (t.kind) {
        case Kind::Char:
        case Kind::Blank:
            Put(t);
            break;
        case Kind::Newline:
            EndLine();
            if (!full_ && (align_ == AlignMode::Right || align_ == AlignMode::Center))
                AlignAhead(i + 1); // an alignment that spans a line break aligns each line
            break;
        case Kind::Color:
        case Kind::BgColor: {
            // An unknown colour name changes nothing but still counts as an open colour tag.
            int number = ColorNumber(t.text);
            if (number >= 0)
                (t.kind == Kind::Color ? foreground_ : background_) = number;
            colorOpen_ = true;
            break;
        }
        case Kind::EndColor:
            if (colorOpen_)
                foreground_ = -1;
            break;
        case Kind::EndBgColor:
            if (colorOpen_)
                background_ = -1;
            break;
        case Kind::Align:
            if (align_ == AlignMode::None)
                OpenAlign(t.text, i + 1);
            break;
        case Kind::EndAlign:
            if (align_ == AlignMode::Padding && lines_.size() == padLine_)
                PadTo(padColumn_ + padWidth_);
            align_ = AlignMode::None;
            break;
        }
    }

    void OpenAlign(std::string_view arg, size_t next) {
        constexpr std::string_view kPadding = "padding:";
        if (arg == "right") {
            align_ = AlignMode::Right;
        } else if (arg == "center") {
            align_ = AlignMode::Center;
        } else if (arg.substr(0, kPadding.size()) == kPadding) {
            align_ = AlignMode::Padding;
            std::string number(arg.substr(kPadding.size()));
            // Cells beyond the area's width cannot be padded anyway; the clamp also keeps the sums in range.
            long cells = std::strtol(number.c_str(), nullptr, 10);
            padWidth_ = static_cast<int>(std::clamp<long>(cells, 0, width_));
            padLine_ = lines_.size();
            padColumn_ = static_cast<int>(cells_.size());
            return;
        } else {
            align_ = AlignMode::Left;
            return;
        }
        AlignAhead(next);
    }

    // Pads the current line so that the aligned text from token `from` up to "{/align}" or the line's end
    // ends at the right edge (right) or sits in the middle (center).
    void AlignAhead(size_t from) {
        int length = 0;
        for (size_t i = from; i < tokens_.size(); ++i) {
            Kind k = tokens_[i].kind;
            if (k == Kind::EndAlign || k == Kind::Newline)
                break;
            if (k == Kind::Char || k == Kind::Blank)
                ++length;
        }
        int start = align_ == AlignMode::Right ? width_ - length : (width_ - length) / 2;
        if (!cells_.empty()) {
            // Text before it on the line keeps a blank between them; aligned text that then no longer fits
            // beside it starts the next line rather than running on into it.
            const int after = static_cast<int>(cells_.size()) + (cells_.back().blank ? 0 : 1);
            if (after + length > width_) {
                EndLine();
                if (full_)
                    return;
            } else {
                start = std::max(start, after);
            }
        }
        PadTo(start);
    }

    void PadTo(int column) {
        if (column > width_)
            column = width_;
        while (static_cast<int>(cells_.size()) < column)
            cells_.push_back({" ", foreground_, background_, true});
    }

    void Put(const Token& t) {
        bool blank = t.kind == Kind::Blank;
        // Blanks are written as one blank cell whatever white space they were (tabs would expand on screen).
        Cell cell{blank ? std::string_view(" ") : t.text, foreground_, background_, blank};
        if (static_cast<int>(cells_.size()) >= width_) {
            if (blank) {
                EndLine(); // the blank that does not fit is the line break
                return;
            }
            WrapLastWord();
            if (full_)
                return;
        }
        cells_.push_back(cell);
    }

    // Moves the word being written to a new line, breaking at the last blank; a word wider than the area is
    // cut at the edge.
    void WrapLastWord() {
        size_t blank = cells_.size();
        while (blank > 0 && !cells_[blank - 1].blank)
            --blank;
        if (blank == 0) {
            EndLine();
            return;
        }
        std::vector<Cell> word(cells_.begin() + static_cast<long>(blank), cells_.end());
        cells_.resize(blank - 1);
        EndLine();
        cells_ = std::move(word);
    }

    void EndLine() {
        if (full_)
            return;
        Line line;
        for (size_t i = 0; i < cells_.size(); ++i) {
            const Cell& c = cells_[i];
            if (line.empty() || line.back().foreground != c.foreground ||
                line.back().background != c.background)
                line.push_back({static_cast<int>(i), std::string(), c.foreground, c.background});
            line.back().text += c.text;
        }
        lines_.push_back(std::move(line));
        cells_.clear();
        full_ = static_cast<int>(lines_.size()) >= height_;
    }

    const std::vector<Token>& tokens_;
    int width_;
    int height_;
    std::vector<Line> lines_;
    std::vector<Cell> cells_; // the line being built
    bool full_ = false;
    int foreground_ = -1;
    int background_ = -1;
    bool colorOpen_ = false;
    AlignMode align_ = AlignMode::None;
    int padWidth_ = 0;
    int padColumn_ = 0;
    size_t padLine_ = 0;
};

} // namespace

int ColorNumber(std::string_view name) {
    for (const NamedColor& c : kColors) {
        if (c.name == name)
            return c.number;
    }
    return -1;
}

std::vector<Line> Layout(std::string_view text, int width, int height) {
    if (width <= 0 || height <= 0)
        return {};
    std::vector<Token> tokens = Tokenize(text);
    return Layouter(tokens, width, height).Run();
}

int VisibleLength(std::string_view text) {
    int length = 0;
    for (const Token& t : Tokenize(text)) {
        if (t.kind == Kind::Char || t.kind == Kind::Blank)
            ++length;
    }
    return length;
}

std::string PlainText(const Line& line) {
    std::string out;
    int column = 0;
    for (const Run& run : line) {
        for (; column < run.column; ++column)
            out += ' ';
        out += run.text;
        column += VisibleLength(run.text);
    }
    return out;
}

} // namespace Tarn::Markup
