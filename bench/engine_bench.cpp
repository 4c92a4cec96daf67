// Think speed: a fixed suite of openings, middlegames, endings and mating phases searched at
// levels 1, 2 and 3, with the median and worst processor time per think and nodes per second.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>
#include <vector>

#include "double/host_double.h"
#include "support/board_setup.h"

namespace {

constexpr const char* Suite[] = {
    // Openings.
    "rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR b KQkq -",
    "rnbqkbnr/pppppppp/8/8/3P4/8/PPP1PPPP/RNBQKBNR b KQkq -",
    "r1bqkbnr/pppp1ppp/2n5/4p3/4P3/5N2/PPPP1PPP/RNBQKB1R w KQkq -",
    "rnbqkb1r/pp2pppp/3p1n2/8/3NP3/8/PPP2PPP/RNBQKB1R w KQkq -",
    // Rich middlegames.
    "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq -",
    "r1bq1rk1/2p1bppp/p1np1n2/1p2p3/4P3/1BP2N1P/PP1P1PP1/RNBQR1K1 b - -",
    "r2q1rk1/pp2bppp/2n1pn2/3p4/3P4/2NBPN2/PP3PPP/R2Q1RK1 w - -",
    "2rq1rk1/pb1nbppp/1p2pn2/2pp4/2PP4/1PNBPN2/PB3PPP/2RQ1RK1 w - -",
    "r4rk1/1pp1qppp/p1np1n2/2b1p1B1/2B1P1b1/P1NP1N2/1PP1QPPP/R4RK1 w - -",
    // Endings.
    "8/2p5/3p4/KP5r/1R3p1k/8/4P1P1/8 w - -",
    "6k1/5ppp/8/8/8/8/5PPP/3R2K1 w - -",
    "8/5pk1/6p1/8/8/6P1/5PK1/8 w - -",
    // Mating phases: rook, two bishops, bishop and knight.
    "8/8/8/4k3/8/8/8/R3K3 w - -",
    "8/8/8/4k3/8/8/8/2B1KB2 w - -",
    "8/8/8/4k3/8/8/8/2B1KN2 w - -",
};

void ThinkSuite(benchmark::State& bench, Word level) {
    static GameState state;
    std::vector<double> seconds;
    std::uint64_t nodes = 0;
    for (auto _ : bench) {
        seconds.clear();
        nodes = 0;
        for (const char* fen : Suite) {
            SetUpBoard(state, fen);
            state.level = level;
            state.thinking = 1;
            ResetHost();
            const std::clock_t start = std::clock();
            state.ChooseComputerMove();
            seconds.push_back(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
            nodes += state.searchNodes;
            benchmark::DoNotOptimize(state.bestMove);
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
