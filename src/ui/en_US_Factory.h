// The English string catalogue: the fixed texts by id, and text 2 (the product and version line) built from
// the host's system-version record on first request.
#pragma once

#include "platform/SysInfo.h"
#include "ui/Catalogue.h"
#include "ui/StringFactory.h"

#include <array>
#include <functional>
#include <string>

namespace Tarn {

class en_US_Factory : public StringFactory {
public:
    using VersionReader = std::function<Platform::SystemVersion()>;

    explicit en_US_Factory(VersionReader reader = Platform::ReadSystemVersion);

    // Never null; "" for ids without a text. The pointer stays valid for the factory's lifetime.
    const char* GetString(unsigned id) const override;

    // Replaces the source of text 2 (tests, other backends). A line already built stays: it is cached for
    // the whole run, and pointers handed out must not dangle.
    void SetVersionReader(VersionReader reader);

private:
    const char* VersionLine() const;

    std::array<const char*, kCatalogueSize> texts_{}; // null: no text
    VersionReader reader_;
    mutable std::string versionLine_;
    mutable bool versionBuilt_ = false;
};

} // namespace Tarn
