// The factory network restore: stop running virtual machines (after the operator agreed), switch the network
// dumper off, clear the whole network configuration and build the default one. Nothing is rolled back.
#pragma once

#include "network/ProgressSink.h"

#include <functional>

namespace Tarn {

class StringFactory;

// `confirmStopVms` is asked only when virtual machines run; its false ends the restore before anything
// changed, and the result is then false. Otherwise the restore ran (successfully or not) and the result is
// true.
bool RunFactoryRestore(const StringFactory& texts, ProgressSink& progress,
                       const std::function<bool()>& confirmStopVms);

// The log line and the event that say a factory restore was carried out (also after a failure).
void ReportFactoryRestore();

} // namespace Tarn
