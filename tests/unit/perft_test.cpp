// Perft against the published counts: every legal move generated, made and taken back, with
// castling and en passant read from the cells and the history.
#include <gtest/gtest.h>

#include "support/board_setup.h"

namespace {

struct PerftCase {
    const char* name;
    const char* fen;
    int depth;
    std::uint64_t nodes;
};

class PerftTest : public ::testing::TestWithParam<PerftCase> {};

TEST_P(PerftTest, MatchesPublishedCount) {
    const PerftCase& c = GetParam();
    static GameState state;
    SetUpBoard(state, c.fen);
    EXPECT_EQ(Perft(state, c.depth), c.nodes) << c.fen;
    // The walk leaves the position as it found it, so the bulk count can run on the same state.
    EXPECT_EQ(PerftBulk(state, c.depth), c.nodes) << c.fen;
}

// The fifth position has a black king on f8 that has left e8: only the history can say so.
INSTANTIATE_TEST_SUITE_P(
    Published, PerftTest,
    ::testing::Values(
        PerftCase{"Start", "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w", 5, 4865609},
        PerftCase{"Kiwipete", "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w", 4, 4085603},
        PerftCase{"RookEndgame", "8/2p5/3p4/KP5r/1R3p1k/8/4P1P1/8 w", 5, 674624},
        PerftCase{"Mirrored", "r3k2r/Pppp1ppp/1b3nbN/nP6/BBP1P3/q4N2/Pp1P2PP/R2Q1RK1 w", 4, 422333},
        PerftCase{"Promotions", "rnbq1k1r/pp1Pbppp/2p5/8/2B5/8/PPP1NnPP/RNBQK2R w KQ -", 4, 2103487},
        PerftCase{"Middlegame", "r4rk1/1pp1qppp/p1np1n2/2b1p1B1/2B1P1b1/P1NP1N2/1PP1QPPP/R4RK1 w", 4,
                  3894594}),
    [](const ::testing::TestParamInfo<PerftCase>& info) { return std::string(info.param.name); });

} // namespace
