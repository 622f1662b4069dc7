// The scenario files as compiled into the model library (generated from simhost/scenarios/*.json).
#pragma once

#include <string>
#include <vector>

namespace SimHost {

struct ScenarioSource {
    std::string name; // file name without ".json"
    std::string text; // the file's JSON text
};

// Every scenario file, sorted by name.
const std::vector<ScenarioSource>& ScenarioSources();

} // namespace SimHost
