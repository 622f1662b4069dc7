// One measured run of one program: start-up paint, the phases' keys, two idle windows, peak memory.
#pragma once

#include "BenchOptions.h"

#include <map>
#include <string>
#include <vector>

namespace bench {

// One key of one phase, the median over the cycles of a run.
struct KeySample {
    double ms = 0;    // key written to the last byte of its settled repaint
    double bytes = 0; // bytes of that repaint
    double floor = 0; // the least bytes that change the screen as it changed (Floor.h)
    double rows = 0;  // rows that changed
};

struct IdleSample {
    double cpuMs = 0; // user + system CPU over the idle window
    double voluntary = 0;
    double involuntary = 0;
    double bytes = 0; // bytes written during the idle window
};

struct RunSample {
    double startupMs = 0;  // exec to the last byte of the first settled paint
    double paintBytes = 0; // bytes of that paint
    double keyMs = 0;      // median over the first screen's keys
    double keyBytes = 0;
    int keysWithoutOutput = 0;
    std::map<std::string, KeySample> keys; // by Label(phase, key)
    IdleSample idleFirst, idleLater;       // on the first screen; after the later phases
    double firstPeakRssKb = 0;             // VmHWM at the end of the first idle window
    double peakRssKb = 0;                  // VmHWM just before the end
    double maxRssKb = 0;                   // ru_maxrss from wait4 after the end
    std::vector<std::string> screens;      // the screen after each phase (only when asked)
    std::string failure;                   // non-empty: the run did not complete and its numbers are not used
};

RunSample MeasureRun(const Program& program, const BenchOptions& options, bool keepScreens);

std::string Label(const Phase& phase, const std::string& key);

// Median of `v` (0 when empty); the mean of the two middle values for an even count.
double Median(std::vector<double> v);

} // namespace bench
