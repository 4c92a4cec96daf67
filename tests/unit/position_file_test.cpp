// Position files: the line written for a position, and what the reader makes of lines of this
// system and of others, with the plausibility test behind it.
#include <gtest/gtest.h>

#include "double/host_double.h"
#include "records/position_file.h"
#include "support/random_game.h"

namespace {

GameState& Parse(const std::string& line) {
    previewGame.ParsePosition(Text(line.c_str()));
    return previewGame;
}

std::string Status(const std::string& line) {
    return Str(Parse(line).previewStatus);
}

// Lines of random games read back: the same cells, and a set-up game with that side to move.
TEST(PositionFile, ReadsBackWhatWasWritten) {
    static GameState g;
    ASSERT_TRUE(PlayLine(g, "e2e4 e7e5 g1f3"));
    EXPECT_EQ(Str(PositionLine(g.board, Black)),
              "rnbqkbnr/pppp1ppp/8/4p3/4P3/5N2/PPPP1PPP/RNBQKB1R b - - 0 0\"");
    for (std::uint32_t seed = 1; seed <= 40; ++seed) {
        g.ResetGameState(ResetStartPosition);
        PlayRandomMoves(g, static_cast<Word>(seed * 7 % 150), seed, RandomPolicy::Varied);
        const GameState& r = Parse(Str(PositionLine(g.board, g.sideToMove)));
        ASSERT_EQ(BoardLetters(r.board), BoardLetters(g.board)) << seed;
        EXPECT_EQ(BoardLetters(r.startBoard), BoardLetters(g.board));
        EXPECT_TRUE(r.sideToMove == g.sideToMove && r.setupFirstMover == g.sideToMove && r.plyCount == 0);
    }
}

TEST(PositionFile, SideLetterIsReadBehindTheFirstBlank) {
    const std::string board = "4k3/8/8/8/8/8/8/R3K3";
    for (const std::string& white : {board + " W", board + " w", "   " + board + " w"})
        EXPECT_EQ(Parse(white).sideToMove, White) << white;
    for (const std::string& black : {board + " B", board + " x", board, board + "w"})
        EXPECT_EQ(Parse(black).sideToMove, Black) << black;
}

TEST(PositionFile, AnEightTakesTheCharacterBehindIt) {
    // Behind this "8" stands a queen, which goes with it; the rows below slide down by one.
    const GameState& g = Parse("4k3/8Q/8/8/8/8/R7/4K3 w");
    EXPECT_EQ(BoardLetters(g.board),
              std::string(4, '.') + "k" + std::string(51, '.') + "R" + std::string(7, '.'));
    EXPECT_EQ(Str(g.previewStatus), ErrorPositionText);
}

// What a promotion cannot give, a side in check that has just moved, and a finished position.
TEST(ValidatePosition, RefusesWhatNoGameCanReach) {
    const std::string ok, error = ErrorPositionText, over = GameOverText;
    const struct {
        const char* line;
        const std::string& status;
    } cases[] = {
        {"4k3/8/8/8/8/8/8/R3K2R w", ok},
        {"4k3/8/8/8/8/8/8/R3K2k w", error},
        {"4k3/8/8/8/8/8/8/R7 w", error},
        {"4k3/8/8/8/8/8/8/R3K1P1 w", error},
        {"3pk3/8/8/8/8/8/8/R3K3 w", error},
        {"4k3/8/8/8/8/8/PPPPPPPP/BB1BK3 w", error}, // three bishops, two on light squares
        {"4k3/8/8/8/8/8/PPPPPPP1/BB1BK3 w", ok},
        {"4k3/8/8/8/8/8/PPPPPPP1/B1B1K3 w", ok},
        {"4k3/8/8/8/8/8/PPPPPPPP/B1B1K3 w", error},
        {"4k3/8/8/8/8/8/PPPPPPP1/QQ2K3 w", ok},
        {"4k3/8/8/8/8/8/PPPPPPPP/QQ2K3 w", error},
        {"4k3/8/8/8/8/8/PPPPPPP1/NNN1K3 w", ok},
        {"rrr1k3/pppppppp/8/8/8/8/8/R3K3 w", error},
        {"4k3/8/8/8/8/8/8/4R1K1 w", error},
        {"4k3/8/8/8/8/8/8/4R1K1 b", ok},
        {"4k3/8/8/8/8/8/8/4K3 w", over},
        {"8/8/8/8/8/8/8/8 w", over},
        {"R3k3/8/4K3/8/8/8/8/8 b", over},
        {"k7/2Q5/1K6/8/8/8/8/7P b", over},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Status(c.line), c.status) << c.line;
}

} // namespace
