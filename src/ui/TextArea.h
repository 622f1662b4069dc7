// A window that draws markup text (colour and alignment tags), laid out by the pure functions of Markup.h.
#pragma once

#include "ui/Window.h"

#include <map>
#include <string>

namespace Tarn {

class TextArea : public Window {
public:
    TextArea(Window* parent, int column, int row, int width, int height, int foreground, int background);

    void SetText(const std::string& markup);
    const std::string& Text() const { return text_; }
    void Draw(bool active) override;

private:
    std::string text_;
    int defaultForeground_;
    int defaultBackground_;
};

} // namespace Tarn
