// The platform's names for the shared text-file helpers (common/TextFile.h), for code written before they
// moved into the leaf folder that the simulated host shares.
#pragma once

#include "common/TextFile.h"

namespace Platform {
using Common::ReadTextFile;
using Common::SplitLines;
using Common::SplitWords;
using Common::WriteTextFile;
} // namespace Platform
