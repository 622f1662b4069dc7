// Drawing of markup text into a window: the laid-out runs are written with the attribute of their colours, or
// all with the dimmed attribute while the area is inactive; and the table of information key names.
#include "ui/TextArea.h"

#include "core/Colors.h"
#include "core/EventLoop.h"
#include "ui/Markup.h"
#include "ui/ScreenUpdate.h"

#include <array>
#include <curses.h>

namespace Tarn {
namespace {

struct InfoKey {
    const char* name;
    InfoType type;
};

constexpr std::array<InfoKey, 13> kInfoKeys{{
    {"ssl-thumbprint", InfoType::SslThumbprint},
    {"ssh-dsa-fingerprint", InfoType::SshDsaFingerprint},
    {"ssh-rsa-fingerprint", InfoType::SshRsaFingerprint},
    {"corlaproduct", InfoType::CorlaProduct},
    {"corlaversion", InfoType::CorlaVersion},
    {"supportstart", InfoType::SupportStart},
    {"supportperiod", InfoType::SupportPeriod},
    {"servicetag", InfoType::ServiceTag},
    {"assettag", InfoType::AssetTag},
    {"BIOSversion", InfoType::BiosVersion},
    {"BMCversion", InfoType::BmcVersion},
    {"CPLDversion", InfoType::CpldVersion},
    {"PLSAversion", InfoType::PlsaVersion},
}};

} // namespace

TextArea::TextArea(Window* parent, int column, int row, int width, int height, int foreground, int background)
    : Window(parent, column, row, width, height, background, foreground) {}

void TextArea::SetText(const std::string& markup) {
    text_ = markup;
}

void TextArea::Draw(bool active) {
    ScreenUpdate update;
    active_ = active;
    if (win_ == nullptr)
        return;
    const attr_t dimmed = static_cast<attr_t>(ColorAttr(Color::ScreenBackground, Color::DimmedText));
    wbkgdset(win_, (active ? static_cast<chtype>(ColorAttr(background_, foreground_)) : dimmed) | ' ');
    werase(win_);
    const std::vector<Markup::Line> lines = Markup::Layout(text_, width_, height_);
    for (size_t row = 0; row < lines.size(); ++row) {
        for (const Markup::Run& run : lines[row]) {
            attr_t attr = dimmed;
            if (active) {
                int background = run.background < 0 ? background_ : run.background;
                int foreground = run.foreground < 0 ? foreground_ : run.foreground;
                attr = static_cast<attr_t>(ColorAttr(background, foreground));
            }
            wattrset(win_, attr);
            mvwaddnstr(win_, static_cast<int>(row), run.column, run.text.c_str(), -1);
        }
    }
    wattrset(win_, A_NORMAL);
    ScreenUpdate::Stage(win_);
}

std::optional<InfoType> TextArea::FindInfoType(std::string_view name) {
    for (const InfoKey& key : kInfoKeys) {
        if (name == key.name)
            return key.type;
    }
    return std::nullopt;
}

const char* TextArea::InfoTypeName(InfoType type) {
    for (const InfoKey& key : kInfoKeys) {
        if (key.type == type)
            return key.name;
    }
    return "";
}

} // namespace Tarn
