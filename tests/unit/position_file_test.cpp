// Position files: the line written for a position, and what the reader makes of lines of this
// system and of others, with the plausibility test behind it.
#include <gtest/gtest.h>

#include <string>

#include "double/host_double.h"
#include "records/position_file.h"
#include "support/board_setup.h"
#include "support/record_games.h"

namespace {

GameState& Scratch() {
    static GameState g;
    return g;
}

GameState& Parse(const std::string& line) {
    previewGame.ParsePosition(Text(line.c_str()));
    return previewGame;
}

std::string Status(const std::string& line) {
    return Str(Parse(line).previewStatus);
}

TEST(PositionLine, StartPositionAndAnOpening) {
    GameState& g = Scratch();
    ASSERT_TRUE(PlayLine(g, ""));
    const std::string start = Str(PositionLine(g.board, White));
    EXPECT_EQ(start, "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w - - 0 0\"");
    EXPECT_EQ(start.size(), 54u);
    ASSERT_TRUE(PlayLine(g, "e2e4 e7e5 g1f3"));
    const std::string opening = Str(PositionLine(g.board, Black));
    EXPECT_EQ(opening, "rnbqkbnr/pppp1ppp/8/4p3/4P3/5N2/PPPP1PPP/RNBQKB1R b - - 0 0\"");
    EXPECT_EQ(opening.size(), 60u);
}

TEST(PositionFile, ReadsBackWhatWasWritten) {
    GameState& g = Scratch();
    for (std::uint32_t seed = 1; seed <= 40; ++seed) {
        PlayRandomGame(g, seed, static_cast<int>(seed * 7 % 150));
        const GameState& r = Parse(Str(PositionLine(g.board, g.sideToMove)));
        ASSERT_EQ(BoardLetters(r.board), BoardLetters(g.board)) << seed;
        EXPECT_EQ(r.sideToMove, g.sideToMove);
        EXPECT_EQ(r.setupFirstMover, g.sideToMove);
        EXPECT_EQ(BoardLetters(r.startBoard), BoardLetters(g.board));
        EXPECT_EQ(r.plyCount, 0);
    }
}

TEST(PositionFile, StartPositionIsAcceptedForTwoPeople) {
    previewGame.sides[White].kind = SideComputer;
    const GameState& r = Parse("rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w - - 0 0\"");
    EXPECT_TRUE(r.previewStatus.Equals(""));
    EXPECT_EQ(r.sideToMove, White);
    EXPECT_EQ(r.sides[White].kind, SideHuman);
    EXPECT_EQ(r.sides[Black].kind, SideHuman);
    EXPECT_STREQ(r.sides[White].name, "");
    EXPECT_EQ(r.setupStart, 0);
}

TEST(PositionFile, SideLetterIsReadBehindTheFirstBlank) {
    const std::string board = "4k3/8/8/8/8/8/8/R3K3";
    EXPECT_EQ(Parse(board + " W").sideToMove, White);
    EXPECT_EQ(Parse(board + " w").sideToMove, White);
    EXPECT_EQ(Parse(board + " B").sideToMove, Black);
    EXPECT_EQ(Parse(board + " x").sideToMove, Black);
    EXPECT_EQ(Parse(board + " ").sideToMove, Black);
    EXPECT_EQ(Parse(board).sideToMove, Black);
    EXPECT_EQ(Parse("   " + board + " w").sideToMove, White);
    EXPECT_EQ(Parse("4k3/8/8/8/8/8/8/R3K3w").sideToMove, Black);
}

TEST(PositionFile, AnEightTakesTheCharacterBehindIt) {
    EXPECT_EQ(Parse("4k3/8/8/8/8/4K3/8/8 w").sideToMove, White);
    EXPECT_EQ(Parse("4k3/8/8/8/8/4K3/8/8 w").board[2][4].piece, King);
    // Behind this "8" stands a queen, which goes with it; the rows below slide down by one.
    const GameState& g = Parse("4k3/8Q/8/8/8/8/R7/4K3 w");
    EXPECT_EQ(BoardLetters(g.board),
              std::string(4, '.') + "k" + std::string(51, '.') + "R" + std::string(7, '.'));
    EXPECT_EQ(Str(g.previewStatus), ErrorPositionText);
}

TEST(PositionFile, PiecesOutsideTheBoardAreLeftOut) {
    const GameState& g = Parse("4k3/8/8/8/8/8/8/4K2R1Q w");
    EXPECT_EQ(g.board[0][7].piece, Rook);
    EXPECT_EQ(BoardLetters(g.board).find('Q'), std::string::npos);
    EXPECT_EQ(Parse("4k3/8/8/8/8/8/8/R3K3/q7 w").board[0][0].piece, Rook);
    EXPECT_EQ(BoardLetters(previewGame.board).find('q'), std::string::npos);
    EXPECT_EQ(Parse("4k3/8/8/8/8/8/8/R3K3/q7 w").previewStatus.Length(), 0);
    EXPECT_EQ(Parse("4k3/8/8/8/8/8/8/R3K209Q w").board[0][7].piece, Queen);
}

TEST(PositionFile, AnFenTagReadsAsAFinishedGame) {
    const GameState& g = Parse("[FEN \"rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1\"]");
    EXPECT_EQ(BoardLetters(g.board), "N" + std::string(63, '.'));
    EXPECT_EQ(g.sideToMove, Black);
    EXPECT_EQ(Str(g.previewStatus), GameOverText);
}

TEST(ValidatePosition, MaterialAPawnCannotHaveBecome) {
    EXPECT_EQ(Status("4k3/8/8/8/8/8/8/R3K3 w"), "");
    EXPECT_EQ(Status("4k3/8/8/8/8/8/8/R3K2k w"), ErrorPositionText);
    EXPECT_EQ(Status("4k3/8/8/8/8/8/8/R7 w"), ErrorPositionText);
    EXPECT_EQ(Status("4k3/8/8/8/8/8/8/R3K1P1 w"), ErrorPositionText);
    EXPECT_EQ(Status("3pk3/8/8/8/8/8/8/R3K3 w"), ErrorPositionText);
    // Three bishops, two on light squares: one extra.
    EXPECT_EQ(Status("4k3/8/8/8/8/8/PPPPPPPP/BB1BK3 w"), ErrorPositionText);
    EXPECT_EQ(Status("4k3/8/8/8/8/8/PPPPPPP1/BB1BK3 w"), "");
    // Two bishops on squares of one colour count as one extra.
    EXPECT_EQ(Status("4k3/8/8/8/8/8/PPPPPPP1/B1B1K3 w"), "");
    EXPECT_EQ(Status("4k3/8/8/8/8/8/PPPPPPPP/B1B1K3 w"), ErrorPositionText);
    EXPECT_EQ(Status("4k3/8/8/8/8/8/PPPPPPP1/QQ2K3 w"), "");
    EXPECT_EQ(Status("4k3/8/8/8/8/8/PPPPPPPP/QQ2K3 w"), ErrorPositionText);
    EXPECT_EQ(Status("4k3/8/8/8/8/8/PPPPPPP1/NNN1K3 w"), "");
    EXPECT_EQ(Status("4k3/8/8/8/8/8/PPPPPPPP/RRR1K3 w"), ErrorPositionText);
    EXPECT_EQ(Status("rrr1k3/pppppppp/8/8/8/8/8/R3K3 w"), ErrorPositionText);
}

TEST(ValidatePosition, TheSideThatJustMovedCannotBeInCheck) {
    EXPECT_EQ(Status("4k3/8/8/8/8/8/8/R3K2R w"), "");
    EXPECT_EQ(Status("4k3/8/8/8/8/8/8/4R1K1 w"), ErrorPositionText);
    EXPECT_EQ(Status("4k3/8/8/8/8/8/8/4R1K1 b"), "");
}

TEST(ValidatePosition, AFinishedPositionIsGameOverAboveAllElse) {
    EXPECT_EQ(Status("4k3/8/8/8/8/8/8/4K3 w"), GameOverText);
    EXPECT_EQ(Status("8/8/8/8/8/8/8/8 w"), GameOverText);
    EXPECT_EQ(Status("R3k3/8/4K3/8/8/8/8/8 b"), GameOverText);
    EXPECT_EQ(Status("k7/2Q5/1K6/8/8/8/8/8 b"), GameOverText);
    EXPECT_EQ(Status("k7/2Q5/1K6/8/8/8/8/7P b"), GameOverText);
}

} // namespace
