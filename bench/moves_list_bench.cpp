// Costs that grow with the length of the game: the rebuild of the moves list of the longest game
// (one legal-move generation and one repetition test per row), and the game-end test at its end.
#include <benchmark/benchmark.h>

#include "double/host_double.h"
#include "support/random_game.h"

namespace {

int listControl;

// A legal game of the longest length that no rule ends early, built once.
GameState& LongestGame() {
    static GameState state;
    static bool built = false;
    if (!built) {
        state.ResetGameState(ResetStartPosition);
        PlayRandomMoves(state, MaxGamePlies, 3, RandomPolicy::AvoidEnds);
        built = true;
    }
    return state;
}

void RebuildListOfLongestGame(benchmark::State& bench) {
    GameState& game = LongestGame();
    if (game.plyCount != MaxGamePlies) bench.SkipWithError("the random game ended early");
    ListHandle list = &listControl;
    for (auto _ : bench) {
        game.RebuildMovesList(&list);
        benchmark::DoNotOptimize(Host().lists[list].rows.size());
    }
}
BENCHMARK(RebuildListOfLongestGame)->Unit(benchmark::kMillisecond);

void GameEndAtTheLongestGame(benchmark::State& bench) {
    GameState& game = LongestGame();
    for (auto _ : bench)
        benchmark::DoNotOptimize(game.CheckGameEnd(game.sideToMove, NoMessage));
}
BENCHMARK(GameEndAtTheLongestGame)->Unit(benchmark::kMicrosecond);

void RepetitionAtTheLongestGame(benchmark::State& bench) {
    GameState& game = LongestGame();
    for (auto _ : bench)
        benchmark::DoNotOptimize(game.IsThreefoldRepetition());
}
BENCHMARK(RepetitionAtTheLongestGame)->Unit(benchmark::kMicrosecond);

}  // namespace
