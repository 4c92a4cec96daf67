// The moves list: its rows for every kind of move, the check and mate signs found on the scratch
// replay, the prefixes by history index, and a list that does not exist yet.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "core/replay.h"
#include "double/host_double.h"
#include "support/board_setup.h"
#include "support/click_play.h"

namespace {

using Rows = std::vector<std::string>;

const std::string Blanks(11, ' ');

GameState& State() {
    static GameState state;
    return state;
}

GameState& StartGame() {
    ResetHost();
    GameState& s = State();
    s.ResetGameState(ResetStartPosition);
    s.gameActive = 1;
    return s;
}

GameState& SetUpGameFrom(const char* fen) {
    ResetHost();
    SetUpGame(State(), fen);
    return State();
}

void Click(GameState& state, const std::vector<std::string>& moves) {
    ASSERT_EQ(ClickMoves(state, moves), moves.size());
}

TEST(MovesList, RowsOfTheOpeningWithCastling) {
    GameState& s = StartGame();
    Click(s, {"e2e4", "e7e5", "g1f3", "b8c6", "f1b5", "a7a6", "b5c6", "d7c6", "e1g1"});
    const Rows expected = {
        " 0.",        " 1. e2-e4",      Blanks + "e7-e5", " 2. Ng1-f3",     Blanks + "Nb8-c6",
        " 3. Bf1-b5", Blanks + "a7-a6", " 4. Bb5xc6",     Blanks + "d7xc6", " 5. 0-0"};
    EXPECT_EQ(ClickListRows(), expected);
    EXPECT_EQ(ClickListSelection(), 9);
}

TEST(MovesList, EmptyGameHasTheFirstRowSelected) {
    GameState& s = StartGame();
    s.RebuildMovesList(&clickList);
    EXPECT_EQ(ClickListRows(), Rows{" 0."});
    EXPECT_EQ(ClickListSelection(), 0);
}

TEST(MovesList, NothingHappensWithoutAControl) {
    GameState& s = StartGame();
    ASSERT_TRUE(PlayMove(s, "e2e4"));
    ListHandle none = nullptr;
    s.RebuildMovesList(&none);
    s.RebuildMovesList(nullptr);
    EXPECT_TRUE(Host().lists.empty());
}

TEST(MovesList, PrefixGoesByMoveNumberNotByWidth) {
    GameState& s = StartGame();
    // Knights out and back by different roads, so that no placement stands three times.
    Click(s, {"g1f3", "g8f6", "b1c3", "b8c6", "f3g5", "f6g4", "c3b5", "c6b4", "g5f3", "g4f6", "b5c3", "b4c6",
              "f3h4", "f6h5", "c3e4", "c6e5", "h4f3", "h5f6"});
    ASSERT_EQ(ClickListRows().size(), 19u);
    EXPECT_EQ(ClickListRows()[17], " 9. Nh4-f3");
    EXPECT_EQ(ClickListRows()[18], Blanks + "Nh5-f6");
    Click(s, {"e4g5"});
    EXPECT_EQ(ClickListRows()[19], " 10. Ne4-g5");
}

TEST(MovesList, PromotionWithCaptureAndCheck) {
    GameState& s = SetUpGameFrom("3r3k/4P3/8/8/8/8/8/4K3 w");
    Click(s, {"e7d8"});
    EXPECT_EQ(ClickListRows(), (Rows{" 0.", " 1. e7xd8=Q+"}));
    EXPECT_EQ(Host().promotionAsks, std::vector<std::int32_t>{White});
}

TEST(MovesList, EnPassantNamesTheSquareThePawnGoesTo) {
    GameState& s = StartGame();
    Click(s, {"e2e4", "a7a6", "e4e5", "d7d5", "e5d6"});
    EXPECT_EQ(ClickListRows().back(), " 3. e5xd6");
}

TEST(MovesList, CastlingThatGivesCheckHasNoSign) {
    GameState& s = SetUpGameFrom("5k2/8/8/8/8/8/8/4K2R w");
    Click(s, {"e1g1"});
    EXPECT_EQ(ClickListRows().back(), " 1. 0-0");
    ASSERT_TRUE(s.IsSquareAttacked(Black, 5, 7));

    SetUpGameFrom("r3k3/8/8/8/8/8/8/3K4 b");
    Click(s, {"e8c8"});
    EXPECT_EQ(ClickListRows().back(), " 1. 0-0-0");
    ASSERT_TRUE(s.IsSquareAttacked(White, 3, 0));
}

TEST(MovesList, BlackCastlingLong) {
    GameState& s = StartGame();
    Click(s, {"d2d4", "d7d5", "c1f4", "c8f5", "b1c3", "b8c6", "d1d2", "d8d7", "e2e3", "e8c8"});
    EXPECT_EQ(ClickListRows().back(), Blanks + "0-0-0");
}

TEST(MovesList, CaptureWithCheckAndMateWithMateSignOnly) {
    GameState& s = SetUpGameFrom("r6k/8/8/8/8/8/8/R3K3 w");
    Click(s, {"a1a8"});
    EXPECT_EQ(ClickListRows().back(), " 1. Ra1xa8+");

    StartGame();
    Click(s, {"f2f3", "e7e5", "g2g4", "d8h4"});
    EXPECT_EQ(ClickListRows().back(), Blanks + "Qd8-h4#");
}

TEST(MovesList, SetUpGameWithBlackFirstNumbersByIndex) {
    GameState& s = SetUpGameFrom("4k3/4p3/8/8/8/8/4P3/4K3 b");
    Click(s, {"e7e5", "e2e4", "e8d7"});
    EXPECT_EQ(ClickListRows(), (Rows{" 0.", " 1. e7-e5", Blanks + "e2-e4", " 2. Ke8-d7"}));
}

TEST(MovesList, KnightPromotionChecksLaterAsAKnight) {
    GameState& s = SetUpGameFrom("8/1P5p/4k3/8/8/8/8/K7 w");
    Host().promotionAnswer = Knight;
    Click(s, {"b7b8", "e6e5", "b8c6"});
    EXPECT_EQ(ClickListRows(), (Rows{" 0.", " 1. b7-b8=N", Blanks + "Ke6-e5", " 2. Nb8-c6+"}));
}

TEST(MovesList, LeavesTheGameAsItWas) {
    GameState& s = StartGame();
    Click(s, {"e2e4", "d7d5", "e4d5", "g8f6"});
    static GameState before;
    before = s;
    s.RebuildMovesList(&clickList);
    EXPECT_EQ(std::memcmp(before.board, s.board, sizeof s.board), 0);
    EXPECT_EQ(std::memcmp(before.history, s.history, sizeof s.history), 0);
    EXPECT_EQ(before.plyCount, s.plyCount);
    EXPECT_EQ(before.sideToMove, s.sideToMove);
}

TEST(Replay, RebuildsTheBoardOfEveryRow) {
    // Forward replay against the boards the game passed through, en passant, castling and a
    // promotion included.
    GameState& s = SetUpGameFrom("r3k2r/P2p2p1/8/4P3/8/8/8/R3K2R b");
    const std::vector<std::string> moves = {"d7d5", "e5d6", "e8c8", "a7a8", "g7g5", "e1g1", "h8h2"};
    std::vector<std::vector<BoardCell>> boards{{&s.board[0][0], &s.board[0][0] + 64}};
    Host().promotionAnswer = Bishop;
    for (const std::string& move : moves) {
        ASSERT_TRUE(ClickMove(s, move)) << move;
        boards.push_back({&s.board[0][0], &s.board[0][0] + 64});
    }
    static GameState scratch;
    for (Word r = 0; r <= s.plyCount; ++r) {
        ReplayPlies(s, r, scratch);
        for (int k = 0; k < 64; ++k) {
            const BoardCell& cell = scratch.board[k / 8][k % 8];
            ASSERT_EQ(cell.piece, boards[r][k].piece) << "row " << r << " square " << k;
            if (cell.piece != PieceNone) {
                ASSERT_EQ(cell.colour, boards[r][k].colour) << "row " << r;
            }
        }
        EXPECT_EQ(scratch.plyCount, r);
        EXPECT_EQ(scratch.sideToMove, r % 2 == 0 ? Black : White);
    }
    EXPECT_EQ(scratch.board[7][0].piece, Bishop);
}

}  // namespace
