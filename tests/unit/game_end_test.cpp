// CheckGameEnd and IsThreefoldRepetition: the order of the rules, the messages, the limits of the
// draw rules, and the fast repetition test checked against a plain pairwise comparison.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "double/host_double.h"
#include "support/board_setup.h"
#include "support/random_game.h"

namespace {

const char* const WhiteMates = "Game over.\nWhite wins by checkmate.";
const char* const BlackMates = "Game over.\nBlack wins by checkmate.";
const char* const Stalemate = "Game over.\nStalemate.";
const char* const NoMaterial =
    "Game over.\nNeither player has sufficient material to force checkmate.\nThis game is a draw.";
const char* const Repetition =
    "Game over.\nThis position has been repeated three times.\nThis game is a draw.";
const char* const FiftyMoves =
    "Game over.\nNo pawns moved or pieces captured in last fifty moves.\nThis game is a draw.";
const char* const LongestGame =
    "Game over.\nThe game has reached 200 moves, the longest a game can be.\nThis game is a draw.";

GameState& State() {
    static GameState state;
    return state;
}

void PlayAll(GameState& state, const std::vector<std::string>& moves) {
    for (const std::string& move : moves)
        ASSERT_TRUE(PlayMove(state, move)) << move;
}

// Asks silently, then aloud, and expects the same answer both times and only the aloud one to
// show `message` (nothing when null).
void ExpectEnd(GameState& state, Word expected, const char* message) {
    ResetHost();
    EXPECT_EQ(state.CheckGameEnd(state.sideToMove, NoMessage), expected);
    EXPECT_TRUE(Host().messages.empty());
    EXPECT_EQ(state.CheckGameEnd(state.sideToMove, ShowMessage), expected);
    if (message == nullptr) {
        EXPECT_TRUE(Host().messages.empty());
    } else {
        ASSERT_EQ(Host().messages.size(), 1u);
        EXPECT_EQ(Host().messages[0], message);
    }
}

void ExpectEndOf(const char* fen, Word expected, const char* message) {
    SetUpBoard(State(), fen);
    SCOPED_TRACE(fen);
    ExpectEnd(State(), expected, message);
}

TEST(CheckGameEnd, MatesNameTheWinner) {
    GameState& s = State();
    s.ResetGameState(ResetStartPosition);
    PlayAll(s, {"f2f3", "e7e5", "g2g4", "d8h4"});
    ExpectEnd(s, GameCheckmate, BlackMates);

    s.ResetGameState(ResetStartPosition);
    PlayAll(s, {"e2e4", "e7e5", "f1c4", "b8c6", "d1h5", "g8f6", "h5f7"});
    ExpectEnd(s, GameCheckmate, WhiteMates);
}

TEST(CheckGameEnd, StalemateComesBeforeInsufficientMaterial) {
    ExpectEndOf("7k/5Q2/6K1/8/8/8/8/8 b", GameStalemate, Stalemate);
    ExpectEndOf("k7/8/1K6/4B3/8/8/8/8 b", GameStalemate, Stalemate);
}

TEST(CheckGameEnd, InsufficientMaterialCountsOneMinorPieceASide) {
    ExpectEndOf("4k3/8/8/8/8/8/8/4K3 w", GameDrawn, NoMaterial);
    ExpectEndOf("4k3/8/8/8/8/8/8/2B1K3 b", GameDrawn, NoMaterial);
    ExpectEndOf("4k3/4b3/8/8/8/8/8/1N2K3 w", GameDrawn, NoMaterial);
    ExpectEndOf("4k3/8/8/8/8/8/8/1N2K1N1 w", GameGoesOn, nullptr);
    ExpectEndOf("4k3/8/8/8/8/8/8/2B1KB2 b", GameGoesOn, nullptr);
    ExpectEndOf("4k3/8/8/8/8/8/8/R3K3 b", GameGoesOn, nullptr);
    ExpectEndOf("4k3/8/8/8/8/8/8/3QK3 b", GameGoesOn, nullptr);
    // A pawn on either side rules the draw out, also when it can never move.
    ExpectEndOf("4k3/8/8/4p3/4P3/8/8/4K3 w", GameGoesOn, nullptr);
    ExpectEndOf("4k3/8/8/4p3/8/8/8/4K3 w", GameGoesOn, nullptr);
}

TEST(CheckGameEnd, LeavesTheBoardAndCountsTheMovesOfTheColour) {
    GameState& s = State();
    s.ResetGameState(ResetStartPosition);
    PlayAll(s, {"e2e4", "c7c5", "g1f3", "d7d6", "f1b5"});
    s.board[3][3].mark = MarkRefused;
    s.board[5][5].colour = Black;  // the colour of an empty cell must survive as it is
    BoardCell before[8][8];
    std::memcpy(before, s.board, sizeof before);
    EXPECT_EQ(s.CheckGameEnd(Black, NoMessage), GameGoesOn);
    EXPECT_EQ(std::memcmp(before, s.board, sizeof before), 0);
    EXPECT_EQ(s.moveCount, 4);  // out of check: Bd7, Nc6, Nd7, Qd7
}

TEST(Repetition, KnightsOutAndBackTwiceDrawAtTheEighthPly) {
    GameState& s = State();
    s.ResetGameState(ResetStartPosition);
    PlayAll(s, {"g1f3", "g8f6", "f3g1", "f6g8", "g1f3", "g8f6", "f3g1"});
    EXPECT_EQ(s.IsThreefoldRepetition(), 0);
    ExpectEnd(s, GameGoesOn, nullptr);
    PlayAll(s, {"f6g8"});
    EXPECT_EQ(s.plyCount, 8);
    EXPECT_EQ(s.IsThreefoldRepetition(), 1);
    ExpectEnd(s, GameDrawn, Repetition);
    // Every placement of the game counts, not only the present one.
    PlayAll(s, {"e2e4"});
    EXPECT_EQ(s.IsThreefoldRepetition(), 1);
}

TEST(Repetition, IgnoresTheSideToMove) {
    // From a set-up position the rook loses a tempo on a triangle, so the first placement comes
    // back with Black to move, twice.
    GameState& s = State();
    SetUpBoard(s, "4k3/8/8/8/8/8/8/R3K3 w");
    PlayAll(s, {"a1a2", "e8d8", "a2a3", "d8e8", "a3a1", "e8d8", "a1b1", "d8e8"});
    EXPECT_EQ(s.IsThreefoldRepetition(), 0);
    PlayAll(s, {"b1a1"});
    EXPECT_EQ(s.sideToMove, Black);
    EXPECT_EQ(s.IsThreefoldRepetition(), 1);
}

TEST(Repetition, CountsAcrossLostCastlingRights) {
    GameState& s = State();
    s.ResetGameState(ResetStartPosition);
    PlayAll(s, {"g1f3", "g8f6", "h1g1", "h8g8", "g1h1", "g8h8", "f3g1", "f6g8", "g1f3"});
    EXPECT_EQ(s.IsThreefoldRepetition(), 0);
    PlayAll(s, {"g8f6"});
    EXPECT_EQ(s.IsThreefoldRepetition(), 1);
}

// Plays the opening, then quiet moves up to the ply before the hundredth quiet one, then that one.
void ExpectFiftyMovesAfter(const std::vector<std::string>& opening, std::uint32_t seed) {
    GameState& s = State();
    s.ResetGameState(ResetStartPosition);
    PlayAll(s, opening);
    ASSERT_EQ(PlayRandomMoves(s, 99, seed, RandomPolicy::QuietAvoidEnds).size(), 99u);
    ExpectEnd(s, GameGoesOn, nullptr);
    ASSERT_EQ(PlayRandomMoves(s, 1, seed, RandomPolicy::QuietAvoidEnds).size(), 1u);
    ExpectEnd(s, GameDrawn, FiftyMoves);
}

TEST(FiftyMoves, DrawnAtTheHundredthPlyAfterAPawnCapture) {
    ExpectFiftyMovesAfter({"e2e4", "d7d5", "e4d5"}, 7);
}

TEST(FiftyMoves, APieceCaptureCountsLikeAPawnMove) {
    ExpectFiftyMovesAfter({"e2e4", "d7d5", "e4d5", "d8d5"}, 12);
}

TEST(LongestGame, DrawnWhenTheHistoryIsFull) {
    GameState& s = State();
    s.ResetGameState(ResetStartPosition);
    const std::vector<std::string> moves = PlayRandomMoves(s, MaxGamePlies - 1, 3, RandomPolicy::AvoidEnds);
    ASSERT_EQ(s.plyCount, MaxGamePlies - 1);
    ExpectEnd(s, GameGoesOn, nullptr);
    PlayRandomMoves(s, 1, 5, RandomPolicy::AvoidEnds);
    ASSERT_EQ(s.plyCount, MaxGamePlies);
    ExpectEnd(s, GameDrawn, LongestGame);
}

// The repetition rule written out plainly: every position of the game (replayed forwards from
// the start) against every earlier one, cell by cell.
Word NaiveRepetition(const std::vector<std::vector<BoardCell>>& positions) {
    auto equal = [](const std::vector<BoardCell>& a, const std::vector<BoardCell>& b) {
        for (int k = 0; k < 64; ++k) {
            if (a[k].piece != b[k].piece) return false;
            if (a[k].piece != PieceNone && a[k].colour != b[k].colour) return false;
        }
        return true;
    };
    for (std::size_t i = 0; i < positions.size(); ++i) {
        int count = 0;
        for (std::size_t j = 0; j < i; ++j)
            count += equal(positions[i], positions[j]);
        if (count >= 2) return 1;
    }
    return 0;
}

std::vector<BoardCell> Cells(const GameState& state) {
    return {&state.board[0][0], &state.board[0][0] + 64};
}

TEST(Repetition, AgreesWithThePairwiseComparisonOnRandomGames) {
    GameState& s = State();
    int repeated = 0, notRepeated = 0, gamesWithRepetition = 0;
    for (std::uint32_t seed = 1; seed <= 40; ++seed) {
        s.ResetGameState(ResetStartPosition);
        std::vector<std::vector<BoardCell>> positions{Cells(s)};
        for (int ply = 0; ply < 90; ++ply) {
            if (PlayRandomMoves(s, 1, seed * 1000 + ply, RandomPolicy::KnightShuffles).empty()) break;
            positions.push_back(Cells(s));
            BoardCell before[8][8];
            std::memcpy(before, s.board, sizeof before);
            const Word fast = s.IsThreefoldRepetition();
            ASSERT_EQ(fast, NaiveRepetition(positions)) << "seed " << seed << " ply " << s.plyCount;
            ASSERT_EQ(std::memcmp(before, s.board, sizeof before), 0);
            ++(fast ? repeated : notRepeated);
        }
        gamesWithRepetition += s.IsThreefoldRepetition();
    }
    // Both answers must have been put to the test.
    EXPECT_GT(repeated, 100);
    EXPECT_GT(notRepeated, 100);
    EXPECT_GT(gamesWithRepetition, 10);
}

}  // namespace
