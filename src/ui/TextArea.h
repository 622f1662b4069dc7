// A window that draws markup text (colour and alignment tags), laid out by the pure functions of Markup.h.
// Its default colours are the window's own, so that SetColors on a parent (an item row) recolours it.
#pragma once

#include "ui/Window.h"

#include <optional>
#include <string>
#include <string_view>

namespace Tarn {

// Host facts shown in the support-information texts, by the key names the texts use.
enum class InfoType {
    SslThumbprint,
    SshDsaFingerprint,
    SshRsaFingerprint,
    CorlaProduct,
    CorlaVersion,
    SupportStart,
    SupportPeriod,
    ServiceTag,
    AssetTag,
    BiosVersion,
    BmcVersion,
    CpldVersion,
    PlsaVersion,
};

class TextArea : public Window {
public:
    // Note the colour order: foreground first, then background (-1 takes the parent's).
    TextArea(Window* parent, int column, int row, int width, int height, int foreground, int background);

    void SetText(const std::string& markup);
    const std::string& Text() const { return text_; }
    void Draw(bool active) override;

    // The information key of a name such as "ssl-thumbprint"; empty for a name that is not a key.
    static std::optional<InfoType> FindInfoType(std::string_view name);
    static const char* InfoTypeName(InfoType type);

private:
    std::string text_;
};

} // namespace Tarn
