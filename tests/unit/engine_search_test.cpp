// The main search: the answers of the first levels in the opening, mates at the root and the
// nearer of two, a lost position, the recapture look on the last ply, and the board left as
// it was found.
#include <gtest/gtest.h>

#include <cstring>

#include "double/host_double.h"
#include "support/engine_setup.h"

namespace {

GameState& State() {
    static GameState state;
    return state;
}

struct Answer {
    std::string move;
    Word score;
};

Answer Think(GameState& s, Word level) {
    ResetHost();
    const Word score = SearchRootScore(s, level);
    return {MoveName(s.bestMove), score};
}

TEST(MainSearch, AnswersToTheKingsPawn) {
    GameState& s = State();
    s.ResetGameState(ResetStartPosition);
    PlayMove(s, "e2e4");
    const Answer easy = Think(s, 1);
    EXPECT_EQ(easy.move, "e7e5");
    EXPECT_EQ(easy.score, 7);
    const Answer normal = Think(s, 2);
    EXPECT_EQ(normal.move, "d7d5");
    EXPECT_EQ(normal.score, 10);
}

TEST(MainSearch, AnswersToTheQueensPawn) {
    GameState& s = State();
    s.ResetGameState(ResetStartPosition);
    PlayMove(s, "d2d4");
    for (Word level : {1, 2}) {
        const Answer answer = Think(s, level);
        EXPECT_EQ(answer.move, "d7d5") << "level " << level;
        EXPECT_EQ(answer.score, 7) << "level " << level;
    }
}

TEST(MainSearch, LeavesBoardAndPlyCountAsFound) {
    GameState& s = State();
    SetUpBoard(s, "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w");
    BoardCell before[8][8];
    std::memcpy(before, s.board, sizeof before);
    const Word plies = s.plyCount;
    Think(s, 1);
    // The colour of an empty cell means nothing and may change.
    for (Word row = 0; row < 8; ++row)
        for (Word file = 0; file < 8; ++file) {
            EXPECT_EQ(s.board[row][file].piece, before[row][file].piece);
            if (before[row][file].piece != PieceNone) {
                EXPECT_EQ(s.board[row][file].colour, before[row][file].colour);
            }
        }
    EXPECT_EQ(s.plyCount, plies);
    EXPECT_GT(s.searchNodes, 1000u);
}

TEST(MainSearch, MateInOneScoresNearerThanMateInTwo) {
    GameState& s = State();
    // Qh5xf7 mates at once.
    SetUpBoard(s, "r1bqkbnr/pppp1ppp/2n5/4p2Q/2B1P3/8/PPPP1PPP/RNB1K1NR w");
    Answer answer = Think(s, 2);
    EXPECT_EQ(answer.move, "h5f7");
    EXPECT_EQ(answer.score, -999992);

    // A back-rank mate in two: a heavy piece to d8, the rook takes, the other piece mates.
    SetUpBoard(s, "1r5k/5ppp/8/8/8/8/3R1PPP/3Q2K1 w");
    answer = Think(s, 2);
    EXPECT_EQ(answer.score, -999991);
    EXPECT_TRUE(answer.move == "d1d8" || answer.move == "d2d8") << answer.move;
}

TEST(MainSearch, AForcedMateAgainstTheThinkerPlaysTheFirstGeneratedMove) {
    GameState& s = State();
    // Whatever Black plays, Qb8 mates.
    SetUpBoard(s, "7k/p7/6K1/8/8/8/8/1Q6 b");
    MoveListEntry moves[MoveBufferCapacity];
    s.GenerateLegalMoves(moves, Black);
    ASSERT_EQ(s.moveCount, 3);
    const Answer answer = Think(s, 1);
    EXPECT_EQ(answer.score, 1000000);
    EXPECT_EQ(answer.move, MoveName(moves[0]));
}

// The opponent's last-ply node of a position where its one legal move is d5xe4, with the
// thinker's previous move recorded as a capture or not.
Word LastPlyAfter(GameState& s, const std::string& fen, Word thinkerCaptured) {
    SetUpBoard(s, fen);
    s.sideToMove = White;
    PrepareThink(s);
    s.history[0] = MoveRecord{};
    s.history[0].capturedPiece = thinkerCaptured ? Knight : PieceNone;
    s.plyCount = 1;
    return s.SearchOpponentNode(0, 1000000);
}

// Evaluate after d5xe4, with the capturing pawn struck off or not.
Word ScoreAfterCapture(GameState& s, bool strikeOff) {
    s.MakeMove(&s.history[1], 3, 4, 4, 3, Silent, Queen);
    if (strikeOff) s.board[3][4].piece = PieceNone;
    const Word score = s.Evaluate();
    s.board[3][4].piece = Pawn;
    s.TakeBackMove(&s.history[1]);
    return score;
}

TEST(MainSearch, LastPlyCaptureThatCanBeTakenBackLosesTheCapturer) {
    GameState& s = State();
    // Black's only move is d5xe4; White's f3 pawn can take back.
    const std::string retake = "7k/5K2/6P1/3p4/3PN3/5P2/8/8 b";
    const Word leaf = LastPlyAfter(s, retake, 0);
    EXPECT_EQ(leaf, ScoreAfterCapture(s, true));
    EXPECT_NE(leaf, ScoreAfterCapture(s, false));

    // The capture answers a capture of the thinker: plain Evaluate.
    const Word afterExchange = LastPlyAfter(s, retake, 1);
    EXPECT_EQ(afterExchange, ScoreAfterCapture(s, false));

    // Nothing can take back: plain Evaluate.
    const Word unanswered = LastPlyAfter(s, "7k/5K2/6P1/3p4/3PN3/8/8/8 b", 0);
    EXPECT_EQ(unanswered, ScoreAfterCapture(s, false));
}

TEST(MainSearch, CheckRecaptureTellsRetakeNoRetakeMateAndStalemate) {
    GameState& s = State();
    SetUpBoard(s, "7k/5K2/6P1/8/3PN3/5P2/8/8 w");
    EXPECT_EQ(s.CheckRecapture(4, 4), -1); // nothing of White's reaches e5
    EXPECT_EQ(s.CheckRecapture(3, 4), 1);  // the d4 pawn reaches d5
    SetUpBoard(s, "k7/8/1QK5/8/8/8/8/8 b");
    EXPECT_EQ(s.CheckRecapture(0, 0), 0);
    SetUpBoard(s, "k7/1Q6/2K5/8/8/8/8/8 b");
    EXPECT_EQ(s.CheckRecapture(1, 6), 1000000);
}

} // namespace
