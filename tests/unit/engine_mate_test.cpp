// The mating search against a lone king: the evaluators' terms, mates found at the depth they
// lie and the nearer one preferred, corners by the bishop's colour, and independence of level.
#include <gtest/gtest.h>

#include "double/host_double.h"
#include "engine/search.h"
#include "support/engine_setup.h"

namespace {

GameState& State() {
    static GameState state;
    return state;
}

TEST(MateEvaluators, RookAndQueenDriveToAnyCorner) {
    GameState& s = State();
    SetUpBoard(s, "7k/8/8/8/4K3/8/8/R7 w");
    PrepareThink(s);
    EXPECT_EQ(s.EvaluateMateRookQueen(), -40 + 14 - 5000);
    // Sharing a file with the lone king costs 1.
    SetUpBoard(s, "7k/8/8/8/7K/8/8/R7 w");
    PrepareThink(s);
    EXPECT_EQ(s.EvaluateMateRookQueen(), -40 + 2 * 4 + 1 - 5000);
}

TEST(MateEvaluators, TwoBishopsWeighTheKingsAtHalf) {
    GameState& s = State();
    SetUpBoard(s, "k7/8/8/8/3K4/8/8/2BB4 w");
    PrepareThink(s);
    EXPECT_EQ(s.EvaluateMateBishops(), -40 + (3 + 4) - 6000);
}

TEST(MateEvaluators, BishopAndKnightCornersFollowTheTableAndTheKnightIsDrawnIn) {
    GameState& s = State();
    // The lone king on a1, then on a8; the white king two files off either way.
    auto score = [&s](const std::string& fen, bool dark) {
        SetUpBoard(s, fen);
        PrepareThink(s);
        return s.EvaluateMateBishopKnight(dark ? s.mateDiagonal : s.mateDiagonalMirror);
    };
    const std::string onA1 = "8/8/8/8/8/8/8/k1K1BN2 w";
    const std::string onA8 = "k1K1BN2/8/8/8/8/8/8/8 w";
    // Dark corners a1 and h8 in phase 3, light corners a8 and h1 in phase 4.
    EXPECT_EQ(score(onA1, true), -70 + 2 * 2 + 1 - 6000 + 5 / 4);
    EXPECT_EQ(score(onA8, true), 0 + 2 * 2 + 1 - 6000 + 5 / 4);
    EXPECT_EQ(score(onA1, false), 0 + 2 * 2 + 1 - 6000 + 5 / 4);
    EXPECT_EQ(score(onA8, false), -70 + 2 * 2 + 1 - 6000 + 5 / 4);
    // A knight far away adds its distance over four.
    EXPECT_EQ(score("8/8/8/8/8/8/8/k1K1B2N w", true), -70 + 2 * 2 + 1 - 6000 + 7 / 4);
}

struct MateAnswer {
    std::string move;
    Word score;
};

MateAnswer Mate(const std::string& fen) {
    GameState& s = State();
    SetUpBoard(s, fen);
    ResetHost();
    const Word score = MateRootScore(s);
    return {MoveName(s.bestMove), score};
}

TEST(MateSearch, FindsMatesAndPrefersTheNearest) {
    MateAnswer answer = Mate("6k1/8/6K1/8/8/8/8/R7 w");
    EXPECT_EQ(State().enginePhase, 1);
    EXPECT_EQ(answer.move, "a1a8");
    EXPECT_EQ(answer.score, -999992);

    // No mate at once: the king steps up, the rook mates on the second move.
    answer = Mate("7k/8/5K2/8/8/8/8/R7 w");
    EXPECT_EQ(answer.score, -999991);
    EXPECT_EQ(answer.move, "f6f7");
}

TEST(MateSearch, DepthDoesNotFollowTheLevel) {
    GameState& s = State();
    std::string moves[2];
    for (Word level : {1, 2}) {
        SetUpBoard(s, "8/8/8/4k3/8/8/8/R3K3 w");
        s.level = level;
        s.thinking = 1;
        ResetHost();
        s.ChooseComputerMove();
        EXPECT_EQ(s.enginePhase, 1);
        moves[level - 1] = MoveName(s.bestMove);
    }
    EXPECT_EQ(moves[0], moves[1]);
    EXPECT_NE(moves[0], "");
}

TEST(MateSearch, StalemateIsAvoided) {
    // Qg6 or Qf7 would stalemate; the search mates instead.
    const MateAnswer answer = Mate("7k/8/5K2/8/8/8/8/6Q1 w");
    EXPECT_EQ(answer.score, -999992);
    EXPECT_TRUE(answer.move == "g1g7" || answer.move == "g1g8") << answer.move;
}

TEST(MateSearch, BreakBeforeTheFirstRootMoveLeavesNoMove) {
    GameState& s = State();
    SetUpBoard(s, "6k1/8/6K1/8/8/8/8/R7 w");
    ResetHost();
    Host().escapeReadings = {true};
    Host().yesNoAnswers = {1};
    EXPECT_EQ(MateRootScore(s), 0);
    EXPECT_EQ(s.bestMove.fromFile, NoMoveByte);
    EXPECT_EQ(s.thinking, 0);
    EXPECT_EQ(s.board[7][6].piece, King);
}

} // namespace
