// The fixed order in which the generators list moves, on which the search's tie-breaks rest, and
// the rules of castling, en passant and pins as the cells and the history decide them.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/board_setup.h"

namespace {

std::vector<std::string> Moves(GameState& state, Word colour) {
    MoveListEntry moves[MoveBufferCapacity];
    state.GenerateLegalMoves(moves, colour);
    std::vector<std::string> names;
    for (Word i = 0; i < state.moveCount; ++i) names.push_back(MoveName(moves[i]));
    return names;
}

// Targets of the piece on `square`, in generated order.
std::vector<std::string> Targets(GameState& state, const std::string& square) {
    const Word file = square[0] - 'a', row = square[1] - '1';
    MoveListEntry moves[MoveBufferCapacity];
    state.GenerateLegalMoves(moves, state.board[row][file].colour);
    std::vector<std::string> names;
    for (Word i = 0; i < state.moveCount; ++i)
        if (moves[i].fromFile == file && moves[i].fromRow == row)
            names.push_back(SquareName(moves[i].toFile, moves[i].toRow));
    return names;
}

using Names = std::vector<std::string>;

GameState& Fresh() {
    static GameState state;
    return state;
}

TEST(MoveOrder, StartPositionWhite) {
    GameState& s = Fresh();
    s.ResetGameState(ResetStartPosition);
    const Names moves = Moves(s, White);
    ASSERT_EQ(moves.size(), 20u);
    EXPECT_EQ(Names(moves.begin(), moves.begin() + 8),
              (Names{"b1c3", "b1a3", "g1h3", "g1f3", "a2a3", "a2a4", "b2b3", "b2b4"}));
    EXPECT_EQ(moves[18], "h2h3");
    EXPECT_EQ(moves[19], "h2h4");
}

TEST(MoveOrder, StartPositionBlackPawnsBeforeKnights) {
    GameState& s = Fresh();
    s.ResetGameState(ResetStartPosition);
    const Names moves = Moves(s, Black);
    ASSERT_EQ(moves.size(), 20u);
    EXPECT_EQ(Names(moves.begin(), moves.begin() + 4), (Names{"a7a6", "a7a5", "b7b6", "b7b5"}));
    EXPECT_EQ(Names(moves.end() - 4, moves.end()), (Names{"b8c6", "b8a6", "g8h6", "g8f6"}));
}

TEST(MoveOrder, PiecesInTheMiddle) {
    GameState& s = Fresh();
    SetUpBoard(s, "1K5k/8/8/8/3Q4/8/8/8 w");
    EXPECT_EQ(Targets(s, "d4"), (Names{"d5", "d6", "d7", "d8", "d3", "d2", "d1", "e4", "f4", "g4", "h4", "c4",
                                       "b4", "a4", "e5", "f6", "g7", "h8", "e3", "f2", "g1", "c5", "b6", "a7",
                                       "c3", "b2", "a1"}));
    SetUpBoard(s, "1K5k/8/8/8/3N4/8/8/8 w");
    EXPECT_EQ(Targets(s, "d4"), (Names{"e6", "f5", "f3", "e2", "c2", "b3", "b5", "c6"}));
    SetUpBoard(s, "7k/8/8/8/3K4/8/8/8 w");
    EXPECT_EQ(Targets(s, "d4"), (Names{"d5", "e5", "e4", "e3", "d3", "c3", "c4", "c5"}));
}

TEST(MoveOrder, PawnsByColourAndRow) {
    GameState& s = Fresh();
    SetUpBoard(s, "k7/3p4/2N1N3/8/8/8/8/K7 b");
    EXPECT_EQ(Targets(s, "d7"), (Names{"d6", "e6", "c6", "d5"}));
    SetUpBoard(s, "k7/8/8/8/8/2n1n3/3P4/K7 w");
    EXPECT_EQ(Targets(s, "d2"), (Names{"d3", "d4", "e3", "c3"}));
    SetUpBoard(s, "k7/8/8/8/2n1n3/3P4/8/K7 w");
    EXPECT_EQ(Targets(s, "d3"), (Names{"d4", "c4", "e4"}));
    // Blocked on the first cell: no steps; on the second: only the one step.
    SetUpBoard(s, "k7/8/8/8/8/3n4/3P4/K7 w");
    EXPECT_EQ(Targets(s, "d2"), Names{});
    SetUpBoard(s, "k7/8/8/8/3n4/8/3P4/K7 w");
    EXPECT_EQ(Targets(s, "d2"), Names{"d3"});
}

TEST(EnPassant, ListedOnceAfterCapturesAndOnlyRightAfterTheDoubleStep) {
    GameState& s = Fresh();
    SetUpBoard(s, "4k3/3p4/8/4P3/8/8/8/4K3 b");
    ASSERT_TRUE(PlayMove(s, "d7d5"));
    EXPECT_EQ(Targets(s, "e5"), (Names{"e6", "d6"}));
    ASSERT_TRUE(PlayMove(s, "e1e2"));
    ASSERT_TRUE(PlayMove(s, "e8e7"));
    EXPECT_EQ(Targets(s, "e5"), (Names{"e6"}));
}

TEST(EnPassant, RefusedWhenBothPawnsShieldTheKingOnTheirRow) {
    GameState& s = Fresh();
    SetUpBoard(s, "4k3/3p4/8/K3P2r/8/8/8/8 b");
    ASSERT_TRUE(PlayMove(s, "d7d5"));
    EXPECT_EQ(Targets(s, "e5"), (Names{"e6"}));
}

TEST(Castling, RulesFromCellsHistoryAndAttacks) {
    GameState& s = Fresh();
    SetUpBoard(s, "r3k2r/8/8/8/8/8/8/R3K2R w");
    EXPECT_EQ(Targets(s, "e1"), (Names{"e2", "f2", "f1", "d1", "d2", "g1", "c1"}));
    // In check: no castling.
    SetUpBoard(s, "4k3/8/8/8/8/8/4r3/R3K2R w");
    EXPECT_EQ(Targets(s, "e1"), (Names{"e2", "f1", "d1"}));
    // f1 attacked: no short castling; only b1 attacked: long castling still allowed.
    SetUpBoard(s, "4k3/8/8/8/8/8/1r3r2/R3K2R w");
    Names t = Targets(s, "e1");
    EXPECT_EQ(std::count(t.begin(), t.end(), "g1"), 0);
    SetUpBoard(s, "1r2k3/8/8/8/8/8/8/R3K2R w");
    t = Targets(s, "e1");
    EXPECT_EQ(std::count(t.begin(), t.end(), "c1"), 1);
    // The rook itself attacked does not matter.
    SetUpBoard(s, "7r/4k3/8/8/8/8/8/4K2R w");
    t = Targets(s, "e1");
    EXPECT_EQ(std::count(t.begin(), t.end(), "g1"), 1);
    // A king that left e1 and came back never castles again.
    SetUpBoard(s, "r3k2r/8/8/8/8/8/8/R3K2R w");
    ASSERT_TRUE(PlayMove(s, "e1e2"));
    ASSERT_TRUE(PlayMove(s, "e8e7"));
    ASSERT_TRUE(PlayMove(s, "e2e1"));
    ASSERT_TRUE(PlayMove(s, "e7e8"));
    t = Targets(s, "e1");
    EXPECT_EQ(std::count(t.begin(), t.end(), "g1") + std::count(t.begin(), t.end(), "c1"), 0);
    t = Targets(s, "e8");
    EXPECT_EQ(std::count(t.begin(), t.end(), "g8") + std::count(t.begin(), t.end(), "c8"), 0);
    // A rook that moved away and back loses its side only.
    SetUpBoard(s, "4k3/8/8/8/8/8/8/R3K2R w");
    ASSERT_TRUE(PlayMove(s, "h1h2"));
    ASSERT_TRUE(PlayMove(s, "e8e7"));
    ASSERT_TRUE(PlayMove(s, "h2h1"));
    ASSERT_TRUE(PlayMove(s, "e7e8"));
    t = Targets(s, "e1");
    EXPECT_EQ(std::count(t.begin(), t.end(), "g1"), 0);
    EXPECT_EQ(std::count(t.begin(), t.end(), "c1"), 1);
    // Kings of the wrong colour on the home squares never castle.
    SetUpBoard(s, "R3K2R/8/8/8/8/8/8/r3k2r w");
    t = Targets(s, "e8");
    EXPECT_EQ(std::count(t.begin(), t.end(), "g8") + std::count(t.begin(), t.end(), "c8"), 0);
}

TEST(Legality, PinsKingsAndKingCaptures) {
    GameState& s = Fresh();
    // A rook pinned on the e-file moves along it only.
    SetUpBoard(s, "4r2k/8/8/8/8/8/4R3/4K3 w");
    EXPECT_EQ(Targets(s, "e2"), (Names{"e3", "e4", "e5", "e6", "e7", "e8"}));
    // A king cannot step next to the other king.
    SetUpBoard(s, "8/8/8/3k4/8/3K4/8/8 w");
    EXPECT_EQ(Targets(s, "d3"), (Names{"e3", "e2", "d2", "c2", "c3"}));
    // A capture of the enemy king is generated like any other capture.
    SetUpBoard(s, "8/8/8/3k4/8/3R4/8/K7 w");
    const Names t = Targets(s, "d3");
    EXPECT_EQ(std::count(t.begin(), t.end(), "d5"), 1);
}

TEST(MarkLegalTargets, SetsTargetsOfOnePieceOnly) {
    GameState& s = Fresh();
    s.ResetGameState(ResetStartPosition);
    s.MarkLegalTargets(White, 6, 0);
    EXPECT_EQ(s.legalTargetCount, 2);
    int marked = 0;
    for (auto& row : s.board)
        for (auto& cell : row) marked += cell.legalTarget;
    EXPECT_EQ(marked, 2);
    EXPECT_EQ(s.board[2][5].legalTarget, 1);
    EXPECT_EQ(s.board[2][7].legalTarget, 1);
    // A blocked rook, an enemy piece, an empty square and a square off the board give nothing.
    s.MarkLegalTargets(White, 0, 0);
    EXPECT_EQ(s.legalTargetCount, 0);
    s.MarkLegalTargets(White, 0, 7);
    EXPECT_EQ(s.legalTargetCount, 0);
    s.MarkLegalTargets(White, 4, 4);
    EXPECT_EQ(s.legalTargetCount, 0);
    s.MarkLegalTargets(White, 0, 8);
    EXPECT_EQ(s.legalTargetCount, 0);
}

TEST(AttackTest, ProbesAndTheKingShortcut) {
    GameState& s = Fresh();
    SetUpBoard(s, "8/8/8/3p4/8/8/8/K6k w");
    // A black pawn on d5 attacks c4 and e4, not d4 and not c6.
    EXPECT_EQ(s.IsSquareAttacked(White, 2, 3), 1);
    EXPECT_EQ(s.IsSquareAttacked(White, 4, 3), 1);
    EXPECT_EQ(s.IsSquareAttacked(White, 3, 3), 0);
    EXPECT_EQ(s.IsSquareAttacked(White, 2, 5), 0);
    // Out-of-range squares are never attacked; file -1 means the king of the colour.
    EXPECT_EQ(s.IsSquareAttacked(White, 8, 7), 0);
    EXPECT_EQ(s.IsSquareAttacked(White, 0, -1), 0);
    EXPECT_EQ(s.IsSquareAttacked(White, -1, 0), 0);
    SetUpBoard(s, "8/8/8/8/8/8/8/K5rk w");
    EXPECT_EQ(s.IsSquareAttacked(White, -1, 0), 1);
    SetUpBoard(s, "8/8/8/8/8/8/8/6rk w");
    EXPECT_EQ(s.IsSquareAttacked(White, -1, 0), 0);
}

}  // namespace
