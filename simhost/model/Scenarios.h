// Building the initial host.json of a scenario: the default document, with the scenario's JSON Patch applied.
#pragma once

#include "simhost/model/Store.h"

#include <string>

namespace SimHost {

// The complete initial state of `scenario`; throws StoreError for an unknown name or a broken scenario.
Json ScenarioState(const std::string& scenario);

// The one-line description of `scenario` ("" when it has none); throws StoreError for an unknown name.
std::string ScenarioDescription(const std::string& scenario);

} // namespace SimHost
