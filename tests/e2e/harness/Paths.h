// Where the built programs are and where screenshots go.
#pragma once

#include <string>

namespace e2e {

// $TARN_BUILD_DIR, or else the directory of the running executable (test programs live at the top of the
// build tree next to ./tarn and ./simhost).
std::string BuildDir();
// $TARN_E2E_OUT, or else BuildDir()/e2e-out. Created on demand.
std::string OutDir();

} // namespace e2e
