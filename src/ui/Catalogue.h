// The fixed English texts of the string catalogue as a table; the factory turns it into an id index.
#pragma once

#include <cstddef>
#include <span>

namespace Tarn {

// Number of catalogue ids: 0 .. kCatalogueSize - 1.
inline constexpr unsigned kCatalogueSize = 289;
// Marks an entry whose text belongs to one id only.
inline constexpr unsigned kNoId = ~0u;
// The product and version line: built from the host, not stored in the table.
inline constexpr unsigned kVersionLineId = 2;

struct CatalogueEntry {
    unsigned id;
    unsigned sharedId; // a second id with the same text, or kNoId
    const char* text;
};

std::span<const CatalogueEntry> CatalogueEnUs();

} // namespace Tarn
