// The per-think tables: material and sign by who thinks, the three ply limits, the king and
// castling rules before ply 50, the knights and bishops at home, and the pawn proximity map.
#include <gtest/gtest.h>

#include "support/engine_setup.h"

namespace {

GameState& State() {
    static GameState state;
    return state;
}

// Pretends that `plies` moves have been played, none of them from a square the rules look at.
void SetPlies(GameState& s, Word plies) {
    for (Word i = 0; i < plies; ++i)
        s.history[i] = MoveRecord{0, 3, 0, 4, Pawn, White, 0, Pawn, -1, 0, -1, 0, 0, 0};
    s.plyCount = plies;
}

TEST(PositionTables, MaterialAndSignFollowTheThinker) {
    GameState& s = State();
    s.ResetGameState(ResetStartPosition);
    PrepareThink(s);
    EXPECT_EQ(s.pieceSquare[White][Knight][2][5], -3005); // knight f3
    EXPECT_EQ(s.pieceSquare[Black][Pawn][4][4], 1005);    // pawn e5
    EXPECT_EQ(s.pieceSquare[White][Queen][3][3], -10000);
    EXPECT_EQ(s.pieceSquare[Black][Rook][0][0], 5000);
    EXPECT_EQ(s.pieceSquare[White][PieceNone][4][4], 0);

    PlayMove(s, "e2e4");
    PrepareThink(s);
    EXPECT_EQ(s.pieceSquare[Black][Knight][5][5], -3005); // knight f6
    EXPECT_EQ(s.pieceSquare[White][Pawn][3][4], 1005);    // pawn e4
    // The same pawn table read from the other side: e4 for White, e5 for Black.
    EXPECT_EQ(s.pieceSquare[Black][Pawn][4][4], -1005);
}

TEST(PositionTables, BeforePlyFiftyTheBaseTablesAndKingRulesHold) {
    GameState& s = State();
    SetUpBoard(s, "4k3/pppppppp/8/8/8/8/PPPPPPPP/2K5 w");
    SetPlies(s, 49);
    PrepareThink(s);
    // King on c1: the a, b and c pawns earn nothing for moving; d to h keep their table.
    for (Word row = 1; row < 7; ++row) {
        EXPECT_EQ(s.pieceSquare[White][Pawn][row][0], -1000);
        EXPECT_EQ(s.pieceSquare[White][Pawn][row][2], -1000);
        EXPECT_EQ(s.pieceSquare[White][Pawn][row][3], -1000 - s.pawnBase[row][3]);
    }
    EXPECT_EQ(s.pieceSquare[White][King][3][3], 48);
    EXPECT_EQ(s.pieceSquare[Black][Pawn][1][4], 1040);
    EXPECT_EQ(s.kingFile, 2);
    EXPECT_EQ(s.kingRow, 0);

    // King on f1 leaves every pawn file alone; g1 clears f, g and h.
    SetUpBoard(s, "4k3/pppppppp/8/8/8/8/PPPPPPPP/5K2 w");
    SetPlies(s, 49);
    PrepareThink(s);
    EXPECT_EQ(s.pieceSquare[White][Pawn][3][5], -1004);
    EXPECT_EQ(s.pieceSquare[White][Pawn][2][0], -1001);
    SetUpBoard(s, "4k3/pppppppp/8/8/8/8/PPPPPPPP/6K1 w");
    SetPlies(s, 49);
    PrepareThink(s);
    EXPECT_EQ(s.pieceSquare[White][Pawn][3][5], -1000);
    EXPECT_EQ(s.pieceSquare[White][Pawn][2][7], -1000);
    EXPECT_EQ(s.pieceSquare[White][Pawn][3][4], -1005);
}

TEST(PositionTables, FromPlyFiftyPawnsAdvanceAndKingsSeekPawns) {
    GameState& s = State();
    SetUpBoard(s, "4k3/8/8/8/3P4/8/8/2K5 b");
    SetPlies(s, 50);
    PrepareThink(s);
    EXPECT_EQ(s.pawnWork[3][3], s.pawnBase[3][3] + 6);
    // White pawns belong to the opponent: no late bonus yet at ply 50.
    EXPECT_EQ(s.pieceSquare[White][Pawn][3][3], 1000 + 5 + 6);
    // Kings: 4 per step of closeness to the pawn on d4, for the thinker negated.
    EXPECT_EQ(s.pieceSquare[Black][King][3][3], -28);
    EXPECT_EQ(s.pieceSquare[Black][King][5][5], -20);
    EXPECT_EQ(s.pieceSquare[White][King][0][0], 16);
    EXPECT_EQ(s.pieceSquare[White][King][7][7], 12);
    // Pawn files next to the king are no longer cleared.
    EXPECT_EQ(s.pieceSquare[Black][Pawn][3][2], -1000 - s.pawnBase[4][2] - 8);
}

TEST(PositionTables, AfterPlyFiftyTheLateBonusGoesWhereThePartialScoreIsLow) {
    GameState& s = State();
    SetUpBoard(s, "4k3/8/8/8/3P4/8/8/2K5 b");
    SetPlies(s, 51);
    PrepareThink(s);
    // No material is in the table while the test runs, so the opponent's pawns get it nearly
    // everywhere; the thinker's never.
    EXPECT_EQ(s.pieceSquare[White][Pawn][0][0], 1055);
    EXPECT_EQ(s.pieceSquare[White][Pawn][3][3], 1000 + 5 + 6 + 55);
    EXPECT_EQ(s.pieceSquare[Black][Pawn][3][3], -1000 - s.pawnBase[4][3] - 8);

    // Eight white pawns on the seventh row: the running sum passes 500 at f7, and from there
    // on, on the rest of the row and on the eighth, the bonus is withheld.
    SetUpBoard(s, "8/PPPPPPPP/8/8/k7/8/8/7K b");
    SetPlies(s, 51);
    PrepareThink(s);
    EXPECT_EQ(s.pieceSquare[White][Pawn][0][0], 1055);
    EXPECT_EQ(s.pieceSquare[White][Pawn][6][4], 1000 + 40 + 12 + 55);
    EXPECT_EQ(s.pieceSquare[White][Pawn][6][5], 1000 + 30 + 12);
    EXPECT_EQ(s.pieceSquare[White][Pawn][6][7], 1000 + 10 + 12);
    EXPECT_EQ(s.pieceSquare[White][Pawn][7][0], 1000 + 14);
}

TEST(PositionTables, CastlingIsWorthAMoveOnlyWithTheWayClearAndThePawnsHome) {
    GameState& s = State();
    s.ResetGameState(ResetStartPosition);
    PrepareThink(s);
    // Pieces in the way on both wings.
    EXPECT_EQ(s.pieceSquare[White][King][0][6], 50);
    EXPECT_EQ(s.pieceSquare[White][King][0][1], 50);
    EXPECT_EQ(s.pieceSquare[White][King][0][4], 10);

    SetUpBoard(s, "4k3/pppppppp/8/8/8/8/PPPPPPPP/R3K2R w");
    PrepareThink(s);
    EXPECT_EQ(s.pieceSquare[White][King][0][6], 0);
    EXPECT_EQ(s.pieceSquare[White][King][0][2], 0);
    EXPECT_EQ(s.pieceSquare[White][King][0][3], 15);

    // A missing h pawn bars the short side only.
    SetUpBoard(s, "4k3/pppppppp/8/8/8/8/PPPPPPP1/R3K2R w");
    PrepareThink(s);
    EXPECT_EQ(s.pieceSquare[White][King][0][7], 50);
    EXPECT_EQ(s.pieceSquare[White][King][0][2], 0);

    // A king that went away and came back gets nothing from the rule.
    SetUpBoard(s, "4k3/pppppppp/8/8/8/8/PPPPPPP1/R3K2R w");
    PlayMove(s, "e1f1");
    PlayMove(s, "e8f8");
    PlayMove(s, "f1e1");
    PlayMove(s, "f8e8");
    PrepareThink(s);
    EXPECT_EQ(s.pieceSquare[White][King][0][7], 0);
}

TEST(PositionTables, KnightsLeaveHomeAndBishopsKeepClearOfCentrePawns) {
    GameState& s = State();
    s.ResetGameState(ResetStartPosition);
    PrepareThink(s);
    EXPECT_EQ(s.pieceSquare[White][Knight][0][1], -3000);
    EXPECT_EQ(s.pieceSquare[White][Bishop][2][3], 10 - 3000);
    EXPECT_EQ(s.pieceSquare[White][Bishop][2][2], -3006);

    PlayMove(s, "b1c3");
    PlayMove(s, "g8f6");
    PlayMove(s, "c3b1");
    PlayMove(s, "d7d5");
    PrepareThink(s);
    EXPECT_EQ(s.pieceSquare[White][Knight][0][1], -3001);
    EXPECT_EQ(s.pieceSquare[White][Knight][0][6], -3000);
    // Black's pawn on d7 moved, White's d2 pawn is the opponent's: Black's tables see neither.
    PlayMove(s, "e2e4");
    PrepareThink(s);
    EXPECT_EQ(s.pieceSquare[Black][Bishop][5][3], -3006);
    EXPECT_EQ(s.pieceSquare[Black][Bishop][5][4], 10 - 3000);
    EXPECT_EQ(s.pieceSquare[White][Bishop][2][3], 3006);
    EXPECT_EQ(s.pieceSquare[Black][Knight][7][6], -3001);
}

TEST(PositionTables, PawnProximityMapIsSevenMinusTheDistance) {
    Word map[8][8] = {};
    GameState::BuildPawnProximityMap(map);
    for (const auto& row : map)
        for (Word value : row)
            EXPECT_EQ(value, 0);

    Word seeded[8][8] = {};
    seeded[1][0] = 7; // a2
    seeded[6][7] = 7; // h7
    GameState::BuildPawnProximityMap(seeded);
    EXPECT_EQ(seeded[0][0], 6);
    EXPECT_EQ(seeded[4][3], 4); // d5: three from a2, four from h7
    EXPECT_EQ(seeded[7][0], 1);
    EXPECT_EQ(seeded[0][7], 1); // h1: seven from a2, six from h7
}

} // namespace
