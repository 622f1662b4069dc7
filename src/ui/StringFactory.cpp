// The process-wide catalogue singleton and the English factory: id index over the text table, cached text 2.
#include "ui/en_US_Factory.h"

#include "platform/HostCtlException.h"
#include "ui/Catalogue.h"

#include <cassert>
#include <cstring>
#include <utility>

namespace Tarn {

en_US_Factory::en_US_Factory(VersionReader reader) : reader_(std::move(reader)) {
    for (const CatalogueEntry& entry : CatalogueEnUs()) {
        assert(entry.id < kCatalogueSize && texts_[entry.id] == nullptr);
        texts_[entry.id] = entry.text;
        if (entry.sharedId != kNoId) {
            assert(entry.sharedId < kCatalogueSize && texts_[entry.sharedId] == nullptr);
            texts_[entry.sharedId] = entry.text;
        }
    }
}

const char* en_US_Factory::GetString(unsigned id) const {
    if (id == kVersionLineId) {
        return VersionLine();
    }
    if (id >= kCatalogueSize || texts_[id] == nullptr) {
        return "";
    }
    return texts_[id];
}

void en_US_Factory::SetVersionReader(VersionReader reader) {
    reader_ = std::move(reader);
}

const char* en_US_Factory::VersionLine() const {
    if (versionBuilt_) {
        return versionLine_.c_str();
    }
    // An unreadable record yields "" now and is read again next time: the host may come up later.
    try {
        const Platform::SystemVersion v = reader_();
        // "%s %s (Tessel %s Build %s)"
        std::string line = v.productName + " " + v.productVersion + " (Tessel " + v.kernelVersion +
                           " Build " + v.build + ")";
        versionLine_ = std::move(line);
        versionBuilt_ = true;
        return versionLine_.c_str();
    } catch (const HostCtl::Lib::HostCtlException&) {
        return "";
    }
}

StringFactory* StringFactory::Get(const char* locale) {
    // Created once and never destroyed: texts handed out must outlive every frame, even during exit().
    static StringFactory* instance = nullptr;
    if (instance == nullptr && locale != nullptr && std::strcmp(locale, "en_US") == 0) {
        instance = new en_US_Factory();
    }
    return instance;
}

} // namespace Tarn
