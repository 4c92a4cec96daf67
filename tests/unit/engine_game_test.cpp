// Whole games between two computer sides through ThinkDriver, one think per pending turn, until
// the game's end: after every think the board is what the recorded moves give when replayed,
// and the game ends with a game-over message.
#include <gtest/gtest.h>

#include <cstdlib>

#include "double/host_double.h"
#include "support/engine_setup.h"

namespace {

GameState& State() {
    static GameState state;
    return state;
}

GameState& Replay() {
    static GameState state;
    return state;
}

// Replays the history of `game` from `fen` (after its first `skip` plies, which SetUpBoard made)
// and compares the cells.
void ExpectBoardFromHistory(GameState& game, const std::string& fen) {
    GameState& replay = Replay();
    if (fen.empty())
        replay.ResetGameState(ResetStartPosition);
    else
        SetUpBoard(replay, fen);
    for (Word i = replay.plyCount; i < game.plyCount; ++i) {
        const MoveRecord& r = game.history[i];
        ASSERT_TRUE(
            PlayMove(replay, SquareName(r.fromFile, r.fromRow) + SquareName(r.toFile, r.toRow), Queen))
            << "ply " << i;
    }
    for (Word row = 0; row < 8; ++row)
        for (Word file = 0; file < 8; ++file) {
            ASSERT_EQ(game.board[row][file].piece, replay.board[row][file].piece) << SquareName(file, row);
            if (game.board[row][file].piece != PieceNone) {
                ASSERT_EQ(game.board[row][file].colour, replay.board[row][file].colour)
                    << SquareName(file, row);
            }
        }
    ASSERT_EQ(game.sideToMove, replay.sideToMove);
}

// Lets the two computer sides play from the position of `fen` (the start position when empty)
// after `opening` is played, until no think is pending.
void PlayOut(const std::string& fen, const std::string& opening, Word level) {
    GameState& s = State();
    if (fen.empty())
        s.ResetGameState(ResetStartPosition);
    else
        SetUpBoard(s, fen);
    if (!opening.empty()) {
        ASSERT_TRUE(PlayMove(s, opening));
    }
    const std::string start = fen;
    s.sides[White].kind = s.sides[Black].kind = SideComputer;
    s.level = level;
    s.gameActive = 1;
    s.thinkPending = 1;
    ResetHost();
    Word thinks = 0;
    while (s.thinkPending && thinks <= MaxGamePlies) {
        const Word plies = s.plyCount;
        s.ThinkDriver();
        ++thinks;
        ASSERT_EQ(s.plyCount, plies + 1);
        ASSERT_EQ(s.thinking, 0);
        ASSERT_LE(s.plyCount, MaxGamePlies);
        // The replay starts from the set-up cells; the opening move is in the history.
        ExpectBoardFromHistory(s, start);
    }
    EXPECT_NE(s.CheckGameEnd(s.sideToMove, NoMessage), GameGoesOn);
    ASSERT_EQ(Host().messages.size(), 1u);
    EXPECT_EQ(Host().messages[0].rfind("Game over", 0), 0u) << Host().messages[0];
}

TEST(ComputerGames, FromTheStartPosition) {
    std::srand(7);
    PlayOut("", "", 1);
}

TEST(ComputerGames, RookAgainstKingIsMated) {
    PlayOut("8/8/8/4k3/8/8/8/R3K3 b", "e5d5", 2);
}

TEST(ComputerGames, QueenAgainstKingIsMated) {
    PlayOut("8/8/3k4/8/8/8/8/3QK3 b", "d6e5", 1);
}

TEST(ComputerGames, PawnEndingPlaysToItsEnd) {
    PlayOut("8/5pk1/6p1/8/8/6P1/5PK1/8 w", "g2h3", 1);
}

TEST(ComputerGames, MiddlegamePlaysToItsEnd) {
    PlayOut("r1bq1rk1/2p1bppp/p1np1n2/1p2p3/4P3/1BP2N1P/PP1P1PP1/RNBQR1K1 b", "c8b7", 1);
}

} // namespace
