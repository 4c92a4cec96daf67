// The think suite shared by the benchmark, the plain timing program and the golden test: its
// positions, one think on one of them, and the golden file that records every think's result.
#pragma once

#include <cstdint>
#include <fstream>
#include <sstream>
#include <string>

#include "double/host_double.h"
#include "support/board_setup.h"

inline constexpr const char* ThinkSuitePositions[] = {
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
inline constexpr int ThinkSuiteSize = sizeof ThinkSuitePositions / sizeof ThinkSuitePositions[0];

// Thinks at `level` on suite position `index` and returns the result as one golden line:
// level, position, move, score, nodes and the progress text the think left behind.
inline std::string ThinkSuiteLine(GameState& state, Word level, int index) {
    SetUpBoard(state, ThinkSuitePositions[index]);
    state.level = level;
    state.thinking = 1;
    ResetHost();
    const Word score = state.ChooseComputerMove();
    std::ostringstream line;
    line << level << ' ' << index << ' ' << MoveName(state.bestMove) << ' ' << score << ' '
         << state.searchNodes << " |" << state.progressText.Chars() << '|';
    return line.str();
}

// The golden line of (level, index) in the golden file, or "" when the file has none.
inline std::string GoldenThinkLine(Word level, int index) {
    std::ifstream file(VELOK3_SOURCE_DIR "/tests/golden/think.txt");
    const std::string prefix = std::to_string(level) + ' ' + std::to_string(index) + ' ';
    for (std::string line; std::getline(file, line);)
        if (line.compare(0, prefix.size(), prefix) == 0) return line;
    return "";
}
