// The measurement of one run. "Settled" means: the expected text is on screen and then no byte arrives for
// the quiet interval; the time taken is that of the last byte before the silence, so the interval itself is
// not counted.
#include "RunMeasure.h"

#include "Floor.h"

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

// A key's bytes, and the texts to wait for (to show, or with `gone` to go) before its repaint counts.
struct Step {
    std::string bytes;
    std::vector<std::pair<std::string, bool>> waits;
};

Step ParseStep(const std::string& term, const std::string& key) {
    Step step;
    size_t mark = key.find_first_of("@!");
    const std::string name = key.substr(0, mark);
    while (mark != std::string::npos) {
        const size_t next = key.find_first_of("@!", mark + 1);
        step.waits.emplace_back(key.substr(mark + 1, next == std::string::npos ? next : next - mark - 1),
                                key[mark] == '!');
        mark = next;
    }
    if (name.rfind("text:", 0) == 0)
        step.bytes = name.substr(5);
    else if (name.rfind("esc:", 0) == 0) // ESC and the rest in one write: the console's ESC-digit F-keys
        step.bytes = "\x1b" + name.substr(4);
    else
        step.bytes = e2e::KeyBytes(term, name);
    return step;
}

// Sends the step and waits for its repaint to settle; false when nothing came (or not what was awaited).
bool SendAndSettle(e2e::Terminal& t, const Step& step, std::chrono::milliseconds quiet) {
    const size_t before = t.Output().size();
    t.Send(step.bytes);
    if (!t.WaitFor([&] { return t.Output().size() > before; }, 2s))
        return false;
    for (const auto& [text, gone] : step.waits)
        if (!(gone ? t.WaitForTextGone(text, 10s) : t.WaitForText(text, 10s)))
            return false;
    t.WaitQuiet(quiet, 10s);
    return true;
}

IdleSample MeasureIdle(e2e::Terminal& t, double seconds, std::string* failure) {
    IdleSample idle;
    auto before = e2e::ReadProcStats(t.Pid());
    const size_t bytesBefore = t.Output().size();
    const auto end =
        Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
    while (Clock::now() < end && t.Running())
        t.Pump(end - Clock::now());
    auto after = e2e::ReadProcStats(t.Pid());
    if (!before || !after) {
        *failure = "the program ended during the idle window";
        return idle;
    }
    idle.cpuMs = (after->cpuSeconds - before->cpuSeconds) * 1000;
    idle.voluntary = double(after->voluntarySwitches - before->voluntarySwitches);
    idle.involuntary = double(after->involuntarySwitches - before->involuntarySwitches);
    idle.bytes = double(t.Output().size() - bytesBefore);
    return idle;
}

RunSample& End(e2e::Terminal& t, RunSample& s) {
    if (auto stats = e2e::ReadProcStats(t.Pid()))
        s.peakRssKb = double(stats->peakRssKb);
    t.Signal(SIGTERM);
    if (auto end = t.WaitExit(5s))
        s.maxRssKb = double(end->usage.ru_maxrss);
    else if (s.failure.empty())
        s.failure = "did not end on SIGTERM";
    return s;
}

} // namespace

double Median(std::vector<double> v) {
    if (v.empty())
        return 0;
    std::sort(v.begin(), v.end());
    size_t n = v.size();
    return n % 2 ? v[n / 2] : (v[n / 2 - 1] + v[n / 2]) / 2;
}

std::string Label(const Phase& phase, const std::string& key) {
    return phase.name + ": " + key.substr(0, key.find_first_of("@!"));
}

RunSample MeasureRun(const Program& program, const BenchOptions& o, bool keepScreens) {
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

    std::vector<double> firstMs, firstBytes;
    auto runPhases = [&](const std::vector<Phase>& phases, bool first) {
        for (const auto& phase : phases) {
            // Reaching the phase's screen (a login, a menu entry) is not measured.
            for (const auto& key : phase.setup)
                if (!SendAndSettle(t, ParseStep(o.term, key), quiet)) {
                    s.failure =
                        "setup key " + key + " of \"" + phase.name + "\" did not settle:\n" + t.View().Text();
                    return;
                }
            std::map<std::string, std::vector<KeySample>> samples;
            const int cycles = phase.cycles > 0 ? phase.cycles : o.keyCycles;
            for (int cycle = 0; cycle < cycles; ++cycle)
                for (const auto& key : phase.keys) {
                    const Step step = ParseStep(o.term, key);
                    const Grid screenBefore = Snapshot(t.View());
                    const size_t before = t.Output().size();
                    const auto sent = Clock::now();
                    if (!SendAndSettle(t, step, quiet)) {
                        ++s.keysWithoutOutput;
                        continue;
                    }
                    const Change change = Diff(screenBefore, Snapshot(t.View()));
                    KeySample k{Ms(t.LastOutput() - sent), double(t.Output().size() - before),
                                double(change.floorBytes), double(change.rowsChanged)};
                    samples[Label(phase, key)].push_back(k);
                    if (first) {
                        firstMs.push_back(k.ms);
                        firstBytes.push_back(k.bytes);
                    }
                }
            for (const auto& [label, list] : samples) {
                std::vector<double> ms, bytes, floor, rows;
                for (const auto& k : list) {
                    ms.push_back(k.ms);
                    bytes.push_back(k.bytes);
                    floor.push_back(k.floor);
                    rows.push_back(k.rows);
                }
                s.keys[label] = {Median(ms), Median(bytes), Median(floor), Median(rows)};
            }
            if (keepScreens)
                s.screens.push_back(phase.name + ":\n" + t.View().Text());
        }
    };

    runPhases(program.first, true);
    if (!s.failure.empty())
        return s;
    s.keyMs = Median(firstMs);
    s.keyBytes = Median(firstBytes);
    s.idleFirst = MeasureIdle(t, o.idleSeconds, &s.failure);
    if (auto stats = e2e::ReadProcStats(t.Pid()))
        s.firstPeakRssKb = double(stats->peakRssKb);
    if (!s.failure.empty() || program.later.empty())
        return End(t, s);
    runPhases(program.later, false);
    if (!s.failure.empty())
        return s;
    s.idleLater = MeasureIdle(t, o.idleSeconds, &s.failure);
    return End(t, s);
}

} // namespace bench
