// Think speed: the think suite (openings, middlegames, endings and mating phases) searched at
// levels 1, 2 and 3, with the median and worst processor time per think and nodes per second.
// Level 3 is also checked against the golden file, which the unit tests check at levels 1 and 2.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <vector>

#include "bench/think_suite.h"

namespace {

void ThinkSuite(benchmark::State& bench, Word level) {
    static GameState state;
    std::vector<double> seconds;
    std::uint64_t nodes = 0;
    for (auto _ : bench) {
        seconds.clear();
        nodes = 0;
        for (int index = 0; index < ThinkSuiteSize; ++index) {
            const std::clock_t start = std::clock();
            const std::string line = ThinkSuiteLine(state, level, index);
            seconds.push_back(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
            nodes += state.searchNodes;
            benchmark::DoNotOptimize(state.bestMove);
            // A faster search that thinks differently is no faster search: stop at once.
            if (level == 3 && line != GoldenThinkLine(level, index)) {
                std::fprintf(stderr, "ThinkLevel3 DIFFERS FROM GOLDEN: got \"%s\", expected \"%s\"\n",
                             line.c_str(), GoldenThinkLine(level, index).c_str());
                std::exit(1);
            }
        }
    }
    double total = 0;
    for (double s : seconds)
        total += s;
    bench.counters["worst_position"] =
        static_cast<double>(std::max_element(seconds.begin(), seconds.end()) - seconds.begin());
    std::sort(seconds.begin(), seconds.end());
    bench.counters["median_ms"] = 1000 * seconds[seconds.size() / 2];
    bench.counters["worst_ms"] = 1000 * seconds.back();
    bench.counters["nodes"] = static_cast<double>(nodes);
    bench.counters["nps"] = static_cast<double>(nodes) / total;
}

void ThinkLevel1(benchmark::State& s) {
    ThinkSuite(s, 1);
}
void ThinkLevel2(benchmark::State& s) {
    ThinkSuite(s, 2);
}
void ThinkLevel3(benchmark::State& s) {
    ThinkSuite(s, 3);
}

BENCHMARK(ThinkLevel1)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(ThinkLevel2)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(ThinkLevel3)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace
