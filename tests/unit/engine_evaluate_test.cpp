// The static score: the table sum seen from the opponent, and the doubled and isolated pawn
// penalty with its sign set by who thinks.
#include <gtest/gtest.h>

#include "engine/search.h"
#include "support/engine_setup.h"

namespace {

GameState& State() {
    static GameState state;
    return state;
}

TEST(Evaluate, OpeningScoresFromTheOpponentsSide) {
    GameState& s = State();
    s.ResetGameState(ResetStartPosition);
    PlayMove(s, "e2e4");
    PrepareThink(s);
    EXPECT_EQ(s.Evaluate(), 7);
    PlayMove(s, "e7e5");
    PrepareThink(s);
    EXPECT_EQ(s.Evaluate(), 2);
}

TEST(Evaluate, TwoBareKingsScoreTheirTwoEntries) {
    GameState& s = State();
    SetUpBoard(s, "8/8/3k4/8/8/8/8/K7 w");
    PrepareThink(s);
    EXPECT_EQ(s.Evaluate(), s.pieceSquare[White][King][0][0] + s.pieceSquare[Black][King][5][3]);
}

// Score of the pawn placement with the table sum taken out.
Word PawnTerm(GameState& s) {
    Word sum = 0;
    for (Word row = 0; row < 8; ++row)
        for (Word file = 0; file < 8; ++file)
            sum += s.pieceSquare[s.board[row][file].colour][s.board[row][file].piece][row][file];
    return s.Evaluate() - sum;
}

TEST(Evaluate, DoubledAndIsolatedFilesCostTwentyEach) {
    GameState& s = State();
    // White: a and c pawns isolated (40); Black: f and g side by side (0). White thinks.
    SetUpBoard(s, "4k3/5pp1/8/8/8/8/P1P5/4K3 w");
    PrepareThink(s);
    EXPECT_EQ(PawnTerm(s), 40);

    // Three pawns on one file alone: doubled once, isolated once.
    SetUpBoard(s, "4k3/8/8/8/4P3/4P3/4P3/4K3 w");
    PrepareThink(s);
    EXPECT_EQ(PawnTerm(s), 40);

    // The same faults on the opponent's side count against it.
    SetUpBoard(s, "4k3/8/8/8/4P3/4P3/4P3/4K3 b");
    PrepareThink(s);
    EXPECT_EQ(PawnTerm(s), -40);

    // Two pawns side by side on their own files: no fault.
    SetUpBoard(s, "4k3/8/8/8/8/8/3PP3/4K3 w");
    PrepareThink(s);
    EXPECT_EQ(PawnTerm(s), 0);

    // A doubled pair with a neighbour: 20; both sides at fault cancel.
    SetUpBoard(s, "4k3/3pp3/4p3/8/8/4P3/3PP3/4K3 w");
    PrepareThink(s);
    EXPECT_EQ(PawnTerm(s), 0);
    SetUpBoard(s, "4k3/8/8/8/8/4P3/3PP3/4K3 w");
    PrepareThink(s);
    EXPECT_EQ(PawnTerm(s), 20);
}

TEST(Evaluate, LeavesTheBoardAndCountsThePiecesOnEachFile) {
    GameState& s = State();
    s.ResetGameState(ResetStartPosition);
    PlayMove(s, "d2d4");
    PrepareThink(s);
    s.Evaluate();
    EXPECT_EQ(s.fileCounts[White][Pawn][3], 1);
    EXPECT_EQ(s.fileCounts[Black][Rook][0], 1);
    EXPECT_EQ(s.fileCounts[Black][Rook][1], 0);
    EXPECT_EQ(s.fileCounts[White][PieceNone][4], 0);
    EXPECT_EQ(s.board[3][3].piece, Pawn);
}

} // namespace

namespace {

TEST(Evaluate, TheSearchsShortcutAfterAMoveMatchesAWholeEvaluation) {
    GameState& s = State();
    for (const char* fen : {"r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq -",
                            "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R b KQkq -",
                            "8/2p5/3p4/KP5r/1R3p1k/8/4P1P1/8 w - -", "4k3/1P6/8/3pP3/8/8/8/4K2R w K d6"}) {
        SetUpBoard(s, fen);
        PrepareThink(s);
        for (Word colour : {White, Black}) {
            MoveListEntry moves[MoveBufferCapacity];
            s.GenerateLegalMoves(moves, colour);
            const ScoredPosition before = ScorePosition(s);
            for (Word i = 0; i < s.moveCount; ++i) {
                MoveRecord* record = &s.history[s.plyCount];
                s.MakeMove(record, moves[i].fromFile, moves[i].fromRow, moves[i].toFile, moves[i].toRow,
                           Silent, Queen);
                EXPECT_EQ(EvaluateAfterMove(s, *record, before), s.Evaluate())
                    << fen << " " << MoveName(moves[i]);
                s.TakeBackMove(record);
            }
        }
    }
}

} // namespace
