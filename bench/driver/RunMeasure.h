// One measured run of one program: start-up paint, keys, idle window, peak memory.
#pragma once

#include "BenchOptions.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace bench {

struct RunSample {
    double startupMs = 0;  // exec to the last byte of the first settled paint
    double paintBytes = 0; // bytes of that paint
    double keyMs = 0;      // median over the keys of this run: key written to last byte of its repaint
    double keyBytes = 0;   // median bytes per key
    int keysWithoutOutput = 0;
    std::map<std::string, double> perKeyMs, perKeyBytes; // median per key name over the cycles
    double idleCpuMs = 0;                                // user + system CPU over the idle window
    double idleVoluntary = 0;                            // context switches over the idle window
    double idleInvoluntary = 0;
    double idleBytes = 0; // bytes written during the idle window
    double peakRssKb = 0; // VmHWM just before the end
    double maxRssKb = 0;  // ru_maxrss from wait4 after the end
    std::string failure;  // non-empty: the run did not complete and its numbers are not used
};

RunSample MeasureRun(const Program& program, const BenchOptions& options);

// Median of `v` (0 when empty); the mean of the two middle values for an even count.
double Median(std::vector<double> v);

} // namespace bench
