// The built-in scenarios. "default" holds a whole document under "state"; every other scenario holds a
// JSON Patch (RFC 6902) under "patch" that is applied to the default document, so shared facts live once.
#include "simhost/model/Scenarios.h"

#include "simhost/model/Init.h"
#include "simhost/model/ScenarioData.h"

#include <algorithm>

namespace SimHost {
namespace {

const char* const kDefault = "default";

Json ParseSource(const std::string& scenario) {
    const auto& sources = ScenarioSources();
    auto found = std::find_if(sources.begin(), sources.end(),
                              [&](const ScenarioSource& s) { return s.name == scenario; });
    if (found == sources.end())
        throw StoreError("unknown scenario \"" + scenario + "\" (see: simhost scenarios)");
    Json doc = Json::parse(found->text, nullptr, false);
    if (doc.is_discarded() || !doc.is_object())
        throw StoreError("scenario \"" + scenario + "\" is not a JSON object");
    return doc;
}

} // namespace

std::vector<std::string> ScenarioNames() {
    std::vector<std::string> names{kDefault};
    for (const auto& source : ScenarioSources())
        if (source.name != kDefault)
            names.push_back(source.name);
    return names;
}

Json ScenarioState(const std::string& scenario) {
    Json base = ParseSource(kDefault);
    if (!base.contains("state") || !base["state"].is_object())
        throw StoreError("scenario \"default\" has no \"state\" object");
    Json state = base["state"];
    if (scenario == kDefault)
        return state;
    Json doc = ParseSource(scenario);
    try {
        return state.patch(doc.value("patch", Json::array()));
    } catch (const Json::exception& e) {
        throw StoreError("scenario \"" + scenario + "\" does not apply: " + e.what());
    }
}

std::string ScenarioDescription(const std::string& scenario) {
    return ParseSource(scenario).value("description", "");
}

} // namespace SimHost
