// tarn_bench: the console against the reference curses program, interleaved round by round, medians and
// ratios. Run through scripts/bench; it is a measurement, not a test.
#include "BenchOptions.h"
#include "RunMeasure.h"

#include <algorithm>
#include <cstdio>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

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
        {"peak RSS (VmHWM)", "KiB", [](const RunSample& s) { return s.peakRssKb; }},
        {"peak RSS (wait4)", "KiB", [](const RunSample& s) { return s.maxRssKb; }},
        {"idle CPU time", "ms", [](const RunSample& s) { return s.idleCpuMs; }},
        {"idle voluntary ctx switches", "", [](const RunSample& s) { return s.idleVoluntary; }},
        {"idle involuntary ctx switches", "", [](const RunSample& s) { return s.idleInvoluntary; }},
        {"idle bytes written", "B", [](const RunSample& s) { return s.idleBytes; }},
    };
    return metrics;
}

std::string Join(const std::vector<std::string>& keys) {
    std::string out;
    for (const auto& k : keys)
        out += (out.empty() ? "" : ",") + k;
    return out;
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
    std::printf("keys: reference [%s], tarn [%s]\n", Join(o.reference.keys).c_str(),
                Join(o.tarn.keys).c_str());
    std::vector<RunSample> ref, tarn;
    int missingKeys[2] = {0, 0};
    for (int round = 1; round <= o.rounds; ++round) {
        // Interleaved, and the order alternates, so that drift of the machine hits both alike.
        const bool tarnFirst = round % 2 == 0;
        for (int k = 0; k < 2; ++k) {
            const bool isTarn = (k == 0) == tarnFirst;
            const bench::Program& program = isTarn ? o.tarn : o.reference;
            RunSample s;
            try {
                s = bench::MeasureRun(program, o);
            } catch (const std::exception& e) {
                s.failure = e.what();
            }
            if (!s.failure.empty()) {
                std::fprintf(stderr, "round %d %s: %s\n", round, program.name.c_str(), s.failure.c_str());
                continue;
            }
            missingKeys[isTarn] += s.keysWithoutOutput;
            (isTarn ? tarn : ref).push_back(s);
        }
        std::printf("round %d done\n", round);
        std::fflush(stdout);
    }
    if (ref.empty() || tarn.empty()) {
        std::fprintf(stderr, "no complete runs of %s\n", ref.empty() ? "the reference" : "tarn");
        return 1;
    }
    std::printf("\nmedians over %zu reference and %zu tarn runs\n", ref.size(), tarn.size());
    std::printf("%-32s %6s %12s %12s %10s\n", "metric", "unit", "reference", "tarn", "tarn/ref");
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
        std::printf("%-32s %6s %12.1f %12.1f %10s\n", m.name, m.unit, ma, mb, ratio);
    }
    // Each key on its own (a key that opens a dialog and one that closes it cost differently).
    for (const auto* runs : {&ref, &tarn}) {
        const bool isTarn = runs == &tarn;
        for (const auto& key : (isTarn ? o.tarn : o.reference).keys) {
            std::vector<double> ms, bytes;
            for (const auto& s : *runs)
                if (s.perKeyMs.count(key)) {
                    ms.push_back(s.perKeyMs.at(key));
                    bytes.push_back(s.perKeyBytes.at(key));
                }
            std::printf("%-9s key %-12s %8.2f ms %8.0f B\n", isTarn ? "tarn" : "reference", key.c_str(),
                        Median(ms), Median(bytes));
        }
    }
    if (missingKeys[0] || missingKeys[1])
        std::printf("keys without any repaint: reference %d, tarn %d\n", missingKeys[0], missingKeys[1]);
    return 0;
}
