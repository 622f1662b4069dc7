// tarn_bench: the console against the reference curses program, interleaved round by round: medians, the
// spread over the rounds, ratios, and for every measured key its bytes next to the floor (Floor.h). Run
// through scripts/bench; it is a measurement, not a test.
#include "BenchOptions.h"
#include "RunMeasure.h"

#include <algorithm>
#include <cstdio>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using bench::IdleSample;
using bench::Median;
using bench::RunSample;

struct Metric {
    const char* name;
    const char* unit;
    std::function<double(const RunSample&)> get;
};

const std::vector<Metric>& Metrics() {
    static const std::vector<Metric> metrics = {
        {"start-up to settled paint", "ms", [](const RunSample& s) { return s.startupMs; }},
        {"bytes of first paint", "B", [](const RunSample& s) { return s.paintBytes; }},
        {"key to settled repaint", "ms", [](const RunSample& s) { return s.keyMs; }},
        {"bytes per key", "B", [](const RunSample& s) { return s.keyBytes; }},
        {"peak RSS, first screen", "KiB", [](const RunSample& s) { return s.firstPeakRssKb; }},
        {"peak RSS (VmHWM) at the end", "KiB", [](const RunSample& s) { return s.peakRssKb; }},
        {"peak RSS (wait4)", "KiB", [](const RunSample& s) { return s.maxRssKb; }},
        {"idle CPU time", "ms", [](const RunSample& s) { return s.idleFirst.cpuMs; }},
        {"idle voluntary ctx switches", "", [](const RunSample& s) { return s.idleFirst.voluntary; }},
        {"idle involuntary ctx switches", "", [](const RunSample& s) { return s.idleFirst.involuntary; }},
        {"idle bytes written", "B", [](const RunSample& s) { return s.idleFirst.bytes; }},
        {"idle CPU, later screen", "ms", [](const RunSample& s) { return s.idleLater.cpuMs; }},
        {"idle wake-ups, later screen", "", [](const RunSample& s) { return s.idleLater.voluntary; }},
    };
    return metrics;
}

std::string Range(const std::vector<double>& v, int decimals = 1) {
    if (v.empty())
        return "-";
    char text[48];
    std::snprintf(text, sizeof text, "%.*f-%.*f", decimals, *std::min_element(v.begin(), v.end()), decimals,
                  *std::max_element(v.begin(), v.end()));
    return text;
}

void PrintKeys(const bench::Program& program, const std::vector<RunSample>& runs) {
    std::printf("\n%s: per key, medians over the runs (ms range over the runs)\n", program.name.c_str());
    std::printf("%-34s %8s %13s %8s %8s %6s %5s\n", "phase: key", "ms", "ms range", "bytes", "floor", "ratio",
                "rows");
    for (const auto* phases : {&program.first, &program.later})
        for (const auto& phase : *phases)
            for (const auto& key : phase.keys) {
                const std::string label = bench::Label(phase, key);
                std::vector<double> ms, bytes, floor, rows;
                for (const auto& s : runs)
                    if (auto it = s.keys.find(label); it != s.keys.end()) {
                        ms.push_back(it->second.ms);
                        bytes.push_back(it->second.bytes);
                        floor.push_back(it->second.floor);
                        rows.push_back(it->second.rows);
                    }
                const double b = Median(bytes), f = Median(floor);
                std::printf("%-34s %8.2f %13s %8.0f %8.0f %6.2f %5.0f\n", label.c_str(), Median(ms),
                            Range(ms).c_str(), b, f, f > 0 ? b / f : 0.0, Median(rows));
            }
}

// The console's targets, each checked on the medians of the tarn runs: past any, the benchmark fails.
int CheckTargets(const std::vector<RunSample>& tarn, double startupRatio, bool session) {
    auto median = [&](double RunSample::*field) {
        std::vector<double> v;
        for (const auto& s : tarn)
            v.push_back(s.*field);
        return Median(v);
    };
    auto idle = [&](IdleSample RunSample::*window) {
        std::vector<double> v;
        for (const auto& s : tarn)
            v.push_back((s.*window).voluntary);
        return Median(v);
    };
    struct Target {
        const char* name;
        double value, limit;
    };
    std::vector<Target> targets = {{"start-up ratio", startupRatio, 1.5},
                                   {"peak RSS, first screen (KiB)", median(&RunSample::firstPeakRssKb), 4096},
                                   {"idle wake-ups, first screen", idle(&RunSample::idleFirst), 0}};
    if (session) {
        targets.push_back({"peak RSS after a login (KiB)", median(&RunSample::peakRssKb), 8192});
        targets.push_back({"idle wake-ups, later screen", idle(&RunSample::idleLater), 0});
    }
    int past = 0;
    std::printf("\n%-30s %9s %9s\n", "target", "tarn", "limit");
    for (const auto& t : targets) {
        const bool over = t.value > t.limit;
        past += over;
        std::printf("%-30s %9.2f %9.2f %s\n", t.name, t.value, t.limit, over ? "PAST THE LIMIT" : "ok");
    }
    return past;
}

} // namespace

int main(int argc, char** argv) {
    bench::BenchOptions o;
    try {
        o = bench::ParseOptions(argc, argv);
    } catch (const std::exception& e) {
        std::fprintf(stderr, "%s", e.what());
        return 2;
    }
    std::printf("tarn_bench: %d rounds, %dx%d, TERM=%s, quiet %d ms, idle %.0f s, %d key cycles\n", o.rounds,
                o.cols, o.rows, o.term.c_str(), o.quietMs, o.idleSeconds, o.keyCycles);
    std::vector<RunSample> ref, tarn;
    std::vector<double> startupRatios; // per round, when both runs completed
    int missingKeys[2] = {0, 0};
    for (int round = 1; round <= o.rounds; ++round) {
        // Interleaved, and the order alternates, so that drift of the machine hits both alike.
        const bool tarnFirst = round % 2 == 0;
        double startup[2] = {0, 0};
        for (int k = 0; k < 2; ++k) {
            const bool isTarn = (k == 0) == tarnFirst;
            const bench::Program& program = isTarn ? o.tarn : o.reference;
            RunSample s;
            try {
                s = bench::MeasureRun(program, o, isTarn && o.showScreens && tarn.empty());
            } catch (const std::exception& e) {
                s.failure = e.what();
            }
            if (!s.failure.empty()) {
                std::fprintf(stderr, "round %d %s: %s\n", round, program.name.c_str(), s.failure.c_str());
                continue;
            }
            for (const auto& screen : s.screens)
                std::printf("%s\n\n", screen.c_str());
            missingKeys[isTarn] += s.keysWithoutOutput;
            startup[isTarn] = s.startupMs;
            (isTarn ? tarn : ref).push_back(s);
        }
        if (startup[0] > 0 && startup[1] > 0)
            startupRatios.push_back(startup[1] / startup[0]);
        std::printf("round %d done\n", round);
        std::fflush(stdout);
    }
    if (ref.empty() || tarn.empty()) {
        std::fprintf(stderr, "no complete runs of %s\n", ref.empty() ? "the reference" : "tarn");
        return 1;
    }
    std::printf("\nmedians over %zu reference and %zu tarn runs, and their ranges\n", ref.size(),
                tarn.size());
    std::printf("%-30s %4s %9s %13s %9s %13s %8s\n", "metric", "unit", "reference", "range", "tarn", "range",
                "tarn/ref");
    for (const auto& m : Metrics()) {
        std::vector<double> a, b;
        for (const auto& s : ref)
            a.push_back(m.get(s));
        for (const auto& s : tarn)
            b.push_back(m.get(s));
        const double ma = Median(a), mb = Median(b);
        char ratio[32] = "-";
        if (ma > 0)
            std::snprintf(ratio, sizeof ratio, "%.2f", mb / ma);
        std::printf("%-30s %4s %9.1f %13s %9.1f %13s %8s\n", m.name, m.unit, ma, Range(a).c_str(), mb,
                    Range(b).c_str(), ratio);
    }
    std::printf("start-up ratio per round: median %.2f, range %s\n", Median(startupRatios),
                Range(startupRatios, 2).c_str());
    PrintKeys(o.reference, ref);
    PrintKeys(o.tarn, tarn);
    if (missingKeys[0] || missingKeys[1])
        std::printf("keys without a settled repaint: reference %d, tarn %d\n", missingKeys[0],
                    missingKeys[1]);
    return CheckTargets(tarn, Median(startupRatios), !o.tarn.later.empty()) > 0 ? 3 : 0;
}
