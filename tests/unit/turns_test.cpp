// Whole games played the way the click handling plays them: the turn handed over, the list
// refilled, each end told once, and the computer asked to move only while the game goes on.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "core/replay.h"
#include "double/host_double.h"
#include "support/board_setup.h"
#include "support/click_play.h"
#include "support/random_game.h"

namespace {

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

// Moves for the game `from` continues with, chosen on a copy so that the game itself is played
// by clicks only.
std::vector<std::string> ChooseMoves(const GameState& from, Word plies, std::uint32_t seed,
                                     RandomPolicy policy) {
    static GameState copy;
    copy = from;
    return PlayRandomMoves(copy, plies, seed, policy);
}

void Click(GameState& state, const std::vector<std::string>& moves) {
    ASSERT_EQ(ClickMoves(state, moves), moves.size());
}

TEST(Turns, AMoveIsRecordedListedAndHandedOver) {
    GameState& s = StartGame();
    Click(s, {"e2e4"});
    EXPECT_EQ(s.plyCount, 1);
    EXPECT_EQ(s.sideToMove, Black);
    EXPECT_EQ(s.board[3][4].piece, Pawn);
    EXPECT_EQ(s.board[3][4].mark, MarkNone);
    EXPECT_EQ(s.gameDirty, 1);
    EXPECT_EQ(s.thinkPending, 0);
    EXPECT_EQ(Host().windowRepaints, 1);
    EXPECT_EQ(ClickListRows(), (std::vector<std::string>{" 0.", " 1. e2-e4"}));
    EXPECT_EQ(ClickListSelection(), 1);
}

TEST(Turns, NothingHappensWithoutBothMarks) {
    GameState& s = StartGame();
    s.board[1][4].mark = MarkFrom;
    s.PlayChosenMove(&clickList);
    s.board[1][4].mark = MarkNone;
    s.board[3][4].mark = MarkTo;
    s.PlayChosenMove(&clickList);
    EXPECT_EQ(s.plyCount, 0);
    EXPECT_EQ(s.sideToMove, White);
    EXPECT_EQ(s.board[1][4].piece, Pawn);
    EXPECT_EQ(s.gameDirty, 0);
    EXPECT_TRUE(Host().lists.empty());
    EXPECT_EQ(Host().windowRepaints, 0);
}

TEST(Turns, AComputerSideToMoveIsAskedToThink) {
    GameState& s = StartGame();
    s.sides[Black].kind = SideComputer;
    Click(s, {"d2d4"});
    EXPECT_EQ(s.thinkPending, 1);

    GameState& t = StartGame();
    t.sides[White].kind = SideComputer;
    t.sideToMove = Black;  // as if the computer had opened
    Click(t, {"d7d5"});
    EXPECT_EQ(t.thinkPending, 1);
}

TEST(Turns, MateByBlackIsToldOnceAndStopsTheComputer) {
    GameState& s = StartGame();
    Click(s, {"f2f3", "e7e5", "g2g4"});
    EXPECT_TRUE(Host().messages.empty());
    s.sides[White].kind = SideComputer;
    Click(s, {"d8h4"});
    EXPECT_EQ(Host().messages, std::vector<std::string>{"Game over.\nBlack wins by checkmate."});
    EXPECT_EQ(s.thinkPending, 0);
    EXPECT_EQ(ClickListRows().back(), Blanks + "Qd8-h4#");
}

TEST(Turns, MateByWhite) {
    GameState& s = StartGame();
    Click(s, {"e2e4", "e7e5", "f1c4", "b8c6", "d1h5", "g8f6"});
    s.sides[Black].kind = SideComputer;
    Click(s, {"h5f7"});
    EXPECT_EQ(Host().messages, std::vector<std::string>{"Game over.\nWhite wins by checkmate."});
    EXPECT_EQ(s.thinkPending, 0);
    EXPECT_EQ(ClickListRows().back(), " 4. Qh5xf7#");
}

TEST(Turns, Stalemate) {
    ResetHost();
    GameState& s = State();
    SetUpGame(s, "7k/8/4Q1K1/8/8/8/8/8 w");
    s.sides[Black].kind = SideComputer;
    Click(s, {"e6f7"});
    EXPECT_EQ(Host().messages, std::vector<std::string>{"Game over.\nStalemate."});
    EXPECT_EQ(s.thinkPending, 0);
    EXPECT_EQ(s.gameDirty, 0);  // moves of a set-up game leave the flag to the set-up
}

TEST(Turns, CapturingTheLastPieceDrawsForWantOfMaterial) {
    ResetHost();
    GameState& s = State();
    SetUpGame(s, "4k3/8/8/8/8/8/3q4/4K3 w");
    Click(s, {"e1d2"});
    EXPECT_EQ(
        Host().messages,
        std::vector<std::string>{
            "Game over.\nNeither player has sufficient material to force checkmate.\nThis game is a draw."});
}

TEST(Turns, KnightsOutAndBackTwiceDrawByRepetition) {
    GameState& s = StartGame();
    Click(s, {"g1f3", "g8f6", "f3g1", "f6g8", "g1f3", "g8f6", "f3g1"});
    EXPECT_TRUE(Host().messages.empty());
    s.sides[White].kind = SideComputer;
    Click(s, {"f6g8"});
    EXPECT_EQ(s.plyCount, 8);
    EXPECT_EQ(Host().messages,
              std::vector<std::string>{
                  "Game over.\nThis position has been repeated three times.\nThis game is a draw."});
    EXPECT_EQ(s.thinkPending, 0);
}

TEST(Turns, FiftyMovesDrawAtTheHundredthQuietPly) {
    GameState& s = StartGame();
    Click(s, {"e2e4", "d7d5", "e4d5"});
    const std::vector<std::string> quiet = ChooseMoves(s, 100, 21, RandomPolicy::QuietAvoidEnds);
    ASSERT_EQ(quiet.size(), 100u);
    Click(s, std::vector<std::string>(quiet.begin(), quiet.end() - 1));
    EXPECT_TRUE(Host().messages.empty());
    Click(s, {quiet.back()});
    EXPECT_EQ(
        Host().messages,
        std::vector<std::string>{
            "Game over.\nNo pawns moved or pieces captured in last fifty moves.\nThis game is a draw."});
    EXPECT_EQ(ClickListRows().size(), 104u);
}

TEST(Turns, TheLongestGameEndsDrawnAndTakesNoFurtherMove) {
    GameState& s = StartGame();
    const std::vector<std::string> moves = ChooseMoves(s, MaxGamePlies, 3, RandomPolicy::AvoidEnds);
    ASSERT_EQ(moves.size(), static_cast<std::size_t>(MaxGamePlies));
    // The first plies are played directly; the clicks begin where the list gets long.
    for (Word i = 0; i < MaxGamePlies - 2; ++i)
        ASSERT_TRUE(PlayMove(s, moves[i]));
    Click(s, {moves[MaxGamePlies - 2]});
    EXPECT_TRUE(Host().messages.empty());
    s.sides[Black].kind = SideComputer;
    Click(s, {moves[MaxGamePlies - 1]});
    EXPECT_EQ(s.plyCount, MaxGamePlies);
    EXPECT_EQ(Host().messages,
              std::vector<std::string>{"Game over.\nThe game has reached 200 moves, the longest a "
                                       "game can be.\nThis game is a draw."});
    EXPECT_EQ(s.thinkPending, 0);
    EXPECT_EQ(ClickListRows().size(), static_cast<std::size_t>(MaxGamePlies + 1));

    // A further pair of marks finds no record left to fill and is left alone.
    MoveListEntry replies[MoveBufferCapacity];
    s.GenerateLegalMoves(replies, s.sideToMove);
    ASSERT_GT(s.moveCount, 0);
    ClickMove(s, MoveName(replies[0]));
    EXPECT_EQ(s.plyCount, MaxGamePlies);
    EXPECT_EQ(ClickListRows().size(), static_cast<std::size_t>(MaxGamePlies + 1));
}

TEST(Turns, PlayingFromAnEarlierRowReplacesTheRestOfTheGame) {
    GameState& s = StartGame();
    Click(s, {"e2e4", "e7e5", "g1f3", "b8c6"});
    // The shell steps the list back to row 2 and hands the move to the side of that row.
    s.plyCount = 2;
    s.sideToMove = s.SideAtListIndex(2);
    static GameState row;
    ReplayPlies(s, 2, row);
    std::memcpy(static_cast<void*>(s.board), row.board, sizeof s.board);
    Click(s, {"f1c4"});
    EXPECT_EQ(s.plyCount, 3);
    EXPECT_EQ(ClickListRows(),
              (std::vector<std::string>{" 0.", " 1. e2-e4", Blanks + "e7-e5", " 2. Bf1-c4"}));
    EXPECT_EQ(ClickListSelection(), 3);
}

}  // namespace
