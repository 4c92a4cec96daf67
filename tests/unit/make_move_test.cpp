// MakeMove and TakeBackMove: the records they write for each kind of move, and that taking back
// restores every piece and the colour of every occupied cell.
#include <gtest/gtest.h>

#include <cstring>

#include "double/host_double.h"
#include "support/board_setup.h"

namespace {

GameState& Fresh() {
    static GameState state;
    return state;
}

// Makes and takes back every legal move of the side to move and checks that the placement
// comes back, for each position.
void ExpectRoundTrips(const char* fen) {
    GameState& s = Fresh();
    SetUpBoard(s, fen);
    BoardCell before[8][8];
    std::memcpy(before, s.board, sizeof before);
    MoveListEntry moves[MoveBufferCapacity];
    s.GenerateLegalMoves(moves, s.sideToMove);
    ASSERT_GT(s.moveCount, 0) << fen;
    const Word n = s.moveCount;
    for (Word i = 0; i < n; ++i) {
        for (Word promotion : {Queen, Rook, Bishop, Knight}) {
            MoveRecord* record = &s.history[s.plyCount];
            s.MakeMove(record, moves[i].fromFile, moves[i].fromRow, moves[i].toFile, moves[i].toRow, Silent,
                       promotion);
            s.TakeBackMove(record);
            for (int r = 0; r < 8; ++r)
                for (int f = 0; f < 8; ++f) {
                    ASSERT_EQ(s.board[r][f].piece, before[r][f].piece) << fen << " " << MoveName(moves[i]);
                    if (before[r][f].piece != PieceNone) {
                        ASSERT_EQ(s.board[r][f].colour, before[r][f].colour) << fen << " " << MoveName(moves[i]);
                    }
                }
        }
    }
}

TEST(TakeBack, RestoresEveryMoveOfRichPositions) {
    ExpectRoundTrips("r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w");
    ExpectRoundTrips("r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R b");
    ExpectRoundTrips("r3k2r/Pppp1ppp/1b3nbN/nP6/BBP1P3/q4N2/Pp1P2PP/R2Q1RK1 w");
    ExpectRoundTrips("r3k2r/Pppp1ppp/1b3nbN/nP6/BBP1P3/q4N2/Pp1P2PP/R2Q1RK1 b");
    ExpectRoundTrips("rnbq1k1r/pp1Pbppp/2p5/8/2B5/8/PPP1NnPP/RNBQK2R w");
}

TEST(TakeBack, RestoresEnPassant) {
    GameState& s = Fresh();
    SetUpBoard(s, "4k3/3p4/8/4P3/8/8/8/4K3 b");
    ASSERT_TRUE(PlayMove(s, "d7d5"));
    BoardCell before[8][8];
    std::memcpy(before, s.board, sizeof before);
    MoveRecord* record = &s.history[s.plyCount];
    s.MakeMove(record, 4, 4, 3, 5, Silent, Queen);
    EXPECT_EQ(s.board[4][3].piece, PieceNone);  // the victim on d5 is gone
    EXPECT_EQ(record->capturedPiece, PieceNone);
    EXPECT_EQ(record->extraFromFile, 3);
    EXPECT_EQ(record->extraFromRow, 4);
    EXPECT_EQ(record->extraToFile, -1);
    EXPECT_EQ(record->extraPiece, Pawn);
    EXPECT_EQ(record->extraColour, Black);
    s.TakeBackMove(record);
    EXPECT_EQ(s.board[4][3].piece, Pawn);
    EXPECT_EQ(s.board[4][3].colour, Black);
    EXPECT_EQ(s.board[5][3].piece, PieceNone);
}

TEST(MakeMove, CastlingCarriesTheRook) {
    GameState& s = Fresh();
    SetUpBoard(s, "r3k2r/8/8/8/8/8/8/R3K2R w");
    MoveRecord* record = &s.history[0];
    s.MakeMove(record, 4, 0, 6, 0, Silent, Queen);
    EXPECT_EQ(s.board[0][5].piece, Rook);
    EXPECT_EQ(s.board[0][7].piece, PieceNone);
    EXPECT_EQ(record->extraFromFile, 7);
    EXPECT_EQ(record->extraToFile, 5);
    EXPECT_EQ(record->extraPiece, Rook);
    EXPECT_EQ(record->extraColour, White);
    s.TakeBackMove(record);
    EXPECT_EQ(s.board[0][7].piece, Rook);
    EXPECT_EQ(s.board[0][5].piece, PieceNone);
    s.MakeMove(record, 4, 7, 2, 7, Silent, Queen);
    EXPECT_EQ(s.board[7][3].piece, Rook);
    EXPECT_EQ(s.board[7][3].colour, Black);
    EXPECT_EQ(record->extraFromFile, 0);
    EXPECT_EQ(record->extraToRow, 7);
}

TEST(MakeMove, PromotionAsksOnlyAHumanWhenNotSilent) {
    GameState& s = Fresh();
    ResetHost();
    Host().promotionAnswer = Knight;
    SetUpBoard(s, "3r3k/4P3/8/8/8/8/8/K7 w");
    MoveRecord* record = &s.history[0];
    s.MakeMove(record, 4, 6, 3, 7, AskPromotion, Queen);
    EXPECT_EQ(Host().promotionAsks, std::vector<std::int32_t>{White});
    EXPECT_EQ(record->movedPiece, Pawn);
    EXPECT_EQ(record->capturedPiece, Rook);
    EXPECT_EQ(record->placedPiece, Knight);
    EXPECT_EQ(s.board[7][3].piece, Knight);
    s.TakeBackMove(record);
    EXPECT_EQ(s.board[7][3].piece, Rook);
    EXPECT_EQ(s.board[7][3].colour, Black);
    EXPECT_EQ(s.board[6][4].piece, Pawn);
    // Silent: the given piece, no dialog.
    s.MakeMove(record, 4, 6, 4, 7, Silent, Rook);
    EXPECT_EQ(record->placedPiece, Rook);
    s.TakeBackMove(record);
    // A computer side never sees the dialog, whatever `silent` says.
    s.sides[White].kind = SideComputer;
    s.MakeMove(record, 4, 6, 4, 7, AskPromotion, Queen);
    EXPECT_EQ(record->placedPiece, Queen);
    EXPECT_EQ(Host().promotionAsks.size(), 1u);
}

TEST(Reset, LeavesNoTraceAndFillsTablesInBothModes) {
    GameState& s = Fresh();
    s.ResetGameState(ResetStartPosition);
    PlayMove(s, "e2e4");
    std::strcpy(s.sides[White].name, "Somebody");
    s.sides[Black].kind = SideComputer;
    s.sides[Black].clockSeconds = 99;
    s.level = 2;
    s.gameActive = s.gameDirty = 1;
    s.previewStatus = Text("status");
    s.ResetGameState(ResetEmpty);
    for (auto& row : s.board)
        for (auto& cell : row) EXPECT_EQ(cell.piece, PieceNone);
    EXPECT_EQ(s.sides[White].name[0], 0);
    EXPECT_EQ(s.sides[Black].kind, SideHuman);
    EXPECT_EQ(s.sides[Black].clockSeconds, 0);
    EXPECT_EQ(s.level, 0);
    EXPECT_EQ(s.plyCount, 0);
    EXPECT_EQ(s.gameActive, 0);
    EXPECT_EQ(s.previewStatus.Length(), 0);
    EXPECT_EQ(s.knightBase[3][3], 8);
    EXPECT_EQ(s.mateDiagonalMirror[0][7], -70);
    EXPECT_EQ(s.openingMoves[1].fromFile, 4);
    EXPECT_EQ(s.openingMoves[1].toRow, 3);
}

TEST(Marks, ClearFindAndSideOfARow) {
    GameState& s = Fresh();
    s.ResetGameState(ResetStartPosition);
    s.board[2][3].mark = MarkRefused;
    s.board[1][4].mark = MarkFrom;
    s.board[3][4].mark = MarkTo;
    Word f = -1, r = -1;
    EXPECT_EQ(s.FindMarkedCell(MarkFrom, f, r), 1);
    EXPECT_EQ(f, 4);
    EXPECT_EQ(r, 1);
    s.ClearMarks(MarkRefused);
    EXPECT_EQ(s.board[2][3].mark, MarkNone);
    EXPECT_EQ(s.board[1][4].mark, MarkFrom);
    s.ClearMarks(MarkNone);
    EXPECT_EQ(s.FindMarkedCell(MarkTo, f, r), 0);
    EXPECT_EQ(f, 4);  // left as it was
    EXPECT_EQ(s.SideAtListIndex(0), White);
    EXPECT_EQ(s.SideAtListIndex(3), Black);
    EXPECT_EQ(s.SideAtListIndex(-1), Black);
    s.setupStart = 1;
    s.setupFirstMover = Black;
    EXPECT_EQ(s.SideAtListIndex(0), Black);
    EXPECT_EQ(s.SideAtListIndex(-1), White);
}

}  // namespace
