// Move generation speed: perft of the start position to depth 5 and of a rich middlegame to
// depth 4, every leaf made as the search makes it, and with the last ply counted in bulk.
#include <benchmark/benchmark.h>

#include "support/board_setup.h"

namespace {

constexpr const char* StartPosition = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq -";
constexpr const char* Middlegame = "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq -";

template <std::uint64_t (*Count)(GameState&, int)>
void RunPerft(benchmark::State& bench, const char* fen, int depth) {
    static GameState state;
    SetUpBoard(state, fen);
    std::uint64_t nodes = 0;
    for (auto _ : bench) {
        nodes = Count(state, depth);
        benchmark::DoNotOptimize(nodes);
    }
    bench.counters["leaves"] = static_cast<double>(nodes);
    bench.counters["nps"] =
        benchmark::Counter(static_cast<double>(nodes), benchmark::Counter::kIsIterationInvariantRate);
}

void PerftStartDepth5(benchmark::State& s) { RunPerft<Perft>(s, StartPosition, 5); }
void PerftStartDepth5Bulk(benchmark::State& s) { RunPerft<PerftBulk>(s, StartPosition, 5); }
void PerftMiddlegameDepth4(benchmark::State& s) { RunPerft<Perft>(s, Middlegame, 4); }
void PerftMiddlegameDepth4Bulk(benchmark::State& s) { RunPerft<PerftBulk>(s, Middlegame, 4); }

BENCHMARK(PerftStartDepth5)->Unit(benchmark::kMillisecond);
BENCHMARK(PerftStartDepth5Bulk)->Unit(benchmark::kMillisecond);
BENCHMARK(PerftMiddlegameDepth4)->Unit(benchmark::kMillisecond);
BENCHMARK(PerftMiddlegameDepth4Bulk)->Unit(benchmark::kMillisecond);

}  // namespace
