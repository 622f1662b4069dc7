// The measurement of one run. "Settled" means: the expected text is on screen and then no byte arrives for
// the quiet interval; the time taken is that of the last byte before the silence, so the interval itself is
// not counted.
#include "RunMeasure.h"

#include "harness/Keys.h"
#include "harness/ProcStats.h"
#include "harness/Terminal.h"
#include "support/TestHost.h"

#include <algorithm>
#include <csignal>
#include <memory>
#include <vector>

namespace bench {

namespace {

using e2e::Clock;
using namespace std::chrono_literals;

double Ms(Clock::duration d) {
    return std::chrono::duration<double, std::milli>(d).count();
}

std::string KeyBytesFor(const std::string& term, const std::string& key) {
    if (key.rfind("text:", 0) == 0)
        return key.substr(5);
    if (key.rfind("esc:", 0) == 0) // ESC and the rest in one write: the console's ESC-digit F-keys
        return "\x1b" + key.substr(4);
    return e2e::KeyBytes(term, key);
}

} // namespace

double Median(std::vector<double> v) {
    if (v.empty())
        return 0;
    std::sort(v.begin(), v.end());
    size_t n = v.size();
    return n % 2 ? v[n / 2] : (v[n / 2 - 1] + v[n / 2]) / 2;
}

RunSample MeasureRun(const Program& program, const BenchOptions& o) {
    RunSample s;
    std::unique_ptr<TestHost> host;
    if (program.needsHost)
        host = std::make_unique<TestHost>(o.scenario);
    e2e::LaunchOptions launch;
    launch.program = program.path;
    launch.term = o.term;
    launch.rows = o.rows;
    launch.cols = o.cols;
    if (host)
        launch.env["TARN_HOST"] = host->TarnHostValue();
    const auto quiet = std::chrono::milliseconds(o.quietMs);

    e2e::Terminal t(launch);
    bool ready = program.readyText.empty() ? t.WaitFor([&] { return !t.Output().empty(); }, 10s)
                                           : t.WaitForText(program.readyText, 10s);
    if (!ready || !t.WaitQuiet(quiet, 10s)) {
        s.failure = "no settled first paint (waiting for \"" + program.readyText + "\")";
        return s;
    }
    s.startupMs = Ms(t.LastOutput() - t.Started());
    s.paintBytes = double(t.Output().size());

    // Reaching the screen to measure (a login, a menu) is not measured; the idle window below then
    // observes that screen.
    for (const auto& key : program.setup) {
        const size_t before = t.Output().size();
        t.Send(KeyBytesFor(o.term, key));
        t.WaitFor([&] { return t.Output().size() > before; }, 5s);
        t.WaitQuiet(quiet, 5s);
    }

    std::vector<double> keyMs, keyBytes;
    std::map<std::string, std::vector<double>> perKeyMs, perKeyBytes;
    for (int cycle = 0; cycle < o.keyCycles; ++cycle) {
        for (const auto& key : program.keys) {
            const std::string bytes = KeyBytesFor(o.term, key);
            const size_t before = t.Output().size();
            const auto sent = Clock::now();
            t.Send(bytes);
            if (!t.WaitFor([&] { return t.Output().size() > before; }, 2s)) {
                ++s.keysWithoutOutput;
                continue;
            }
            t.WaitQuiet(quiet, 5s);
            keyMs.push_back(Ms(t.LastOutput() - sent));
            keyBytes.push_back(double(t.Output().size() - before));
            perKeyMs[key].push_back(keyMs.back());
            perKeyBytes[key].push_back(keyBytes.back());
        }
    }
    s.keyMs = Median(keyMs);
    s.keyBytes = Median(keyBytes);
    for (const auto& [key, values] : perKeyMs) {
        s.perKeyMs[key] = Median(values);
        s.perKeyBytes[key] = Median(perKeyBytes[key]);
    }

    auto before = e2e::ReadProcStats(t.Pid());
    const size_t bytesBefore = t.Output().size();
    const auto idleEnd = Clock::now() + std::chrono::duration_cast<Clock::duration>(
                                            std::chrono::duration<double>(o.idleSeconds));
    while (Clock::now() < idleEnd && t.Running())
        t.Pump(idleEnd - Clock::now());
    auto after = e2e::ReadProcStats(t.Pid());
    if (!before || !after) {
        s.failure = "the program ended during the idle window";
        return s;
    }
    s.idleCpuMs = (after->cpuSeconds - before->cpuSeconds) * 1000;
    s.idleVoluntary = double(after->voluntarySwitches - before->voluntarySwitches);
    s.idleInvoluntary = double(after->involuntarySwitches - before->involuntarySwitches);
    s.idleBytes = double(t.Output().size() - bytesBefore);
    s.peakRssKb = double(after->peakRssKb);

    t.Signal(SIGTERM);
    if (auto end = t.WaitExit(5s))
        s.maxRssKb = double(end->usage.ru_maxrss);
    else
        s.failure = "did not end on SIGTERM";
    return s;
}

} // namespace bench
