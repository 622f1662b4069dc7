// The string catalogue: every fixed screen text by number (0..288; larger ids give "").
#pragma once

namespace Tarn {

class StringFactory {
public:
    virtual ~StringFactory() = default;
    virtual const char* GetString(unsigned id) const = 0;
    // The process-wide factory for `locale` ("en_US"), created on first use.
    static StringFactory* Get(const char* locale);
};

} // namespace Tarn
