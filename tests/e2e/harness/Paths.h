// Where the built programs are (BuildDir, shared with the unit tests) and where screenshots go.
#pragma once

#include "support/TestHost.h"

#include <string>

namespace e2e {

// $TARN_E2E_OUT, or else BuildDir()/e2e-out. Created on demand.
std::string OutDir();

} // namespace e2e
