// Game files: a running game's file to the byte, the token of each kind of move, random games
// written and read back whole, and what the reader makes of files of other programs.
#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <sstream>

#include "double/host_double.h"
#include "records/game_file.h"
#include "support/random_game.h"

namespace {

GameState game;

void Name(GameState& g, const char* white, const char* black) {
    std::strcpy(g.sides[White].name, white);
    std::strcpy(g.sides[Black].name, black);
    g.sides[White].kind = std::strcmp(white, ComputerName) == 0 ? SideComputer : SideHuman;
    g.sides[Black].kind = std::strcmp(black, ComputerName) == 0 ? SideComputer : SideHuman;
}

TEST(GameFile, RunningGameIsWrittenToTheByte) {
    GameState& g = game;
    ASSERT_TRUE(PlayLine(g, "e2e4 e7e5 g1f3 b8c6 f1b5 a7a6 b5c6 d7c6 e1g1 c8g4"));
    Name(g, "Player 1", ComputerName);
    g.level = 2;
    g.sides[White].clockSeconds = 10 * 3600 + 65;
    g.sides[Black].clockSeconds = 12;
    EXPECT_EQ(GameFileOf(g, LocalTime{2007, 3, 9, 14, 5}),
              "[Event \"Velok-3: Local game {Human VS Computer}\"]\r\n[Site \"Local\"]\r\n[Round \"-\"]\r\n"
              "[White \"Player 1\"]\r\n[Black \"Computer {Velok-3}\"]\r\n[Date \"2007.03.09\"]\r\n"
              "[Result \"? - ?\"]\r\n{VELOK-3 INFORMATION; TIME WHITE SIDE = 10:01:05; TIME BLACK SIDE = "
              "00:00:12; GAME LEVEL = 2;}\r\n\r\n1. e4 e5 2. Nf3 Nc6 3. Bb5 a6 4. Bxc6 dxc6 5. O-O Bg4 ");
    Name(g, "a<b>c\"d\\e/f*g?h:i|j", "Bob");
    EXPECT_EQ(Str(DefaultGameFileName(g, "9 mars 2007", LocalTime{2007, 3, 9, 7, 5})),
              "[abcdefghij]-[Bob]-[9______2007]-[07-05]");

    // Between two people there is no level; the result follows the end of the game.
    ASSERT_TRUE(PlayLine(g, "f2f3 e7e5 g2g4 d8h4"));
    const std::string file = GameFileOf(g);
    EXPECT_NE(file.find("{Human VS Human}\"]\r\n"), std::string::npos);
    EXPECT_NE(file.find("[Result \"0 - 1\"]"), std::string::npos);
    EXPECT_TRUE(file.ends_with("TIME BLACK SIDE = 00:00:00;}\r\n\r\n1. f3 e5 2. g4 Qh4# ")) << file;
    ASSERT_TRUE(PlayLine(g, "e2e4 e7e5 f1c4 b8c6 d1h5 g8f6 h5f7"));
    EXPECT_NE(GameFileOf(g).find("[Result \"1 - 0\"]"), std::string::npos);
    EXPECT_STREQ(ResultText(GameStalemate, White), "1/2 - 1/2");
}

TEST(GameFile, EachKindOfMoveHasItsToken) {
    const struct {
        const char *fen, *move;
        Word promotion;
        const char* token;
    } cases[] = {
        {"4k3/8/8/3pP3/8/8/8/4K3 w - d6", "e5d6", Queen, "exd6"},
        {"8/4P3/8/7k/8/8/8/K7 w", "e7e8", Queen, "e8+=Q"},
        {"3r3k/4P1pp/8/8/8/8/8/K7 w", "e7d8", Rook, "exd8#=R"},
        {"r3k3/8/8/8/8/8/8/3K4 b q", "e8c8", Queen, "O-O-O"},
        {"4k3/8/8/R7/8/8/8/R3K3 w", "a1a3", Queen, "R1a3"},
        {"4k3/8/8/8/8/5N2/8/1N2K3 w", "b1d2", Queen, "Nbd2"},
        {"4k3/8/8/5Q2/8/8/8/1Q2KQ2 w", "b1d3", Queen, "Qb1d3"},
        {"4k3/8/8/3b4/8/5N2/8/1N5K w", "b1d2", Queen, "Nd2"}, // the other knight is pinned
    };
    static GameState played, scratch;
    for (const auto& c : cases) {
        SetUpBoard(played, c.fen);
        ASSERT_TRUE(PlayMove(played, c.move, c.promotion)) << c.fen << " " << c.move;
        SetUpBoard(scratch, c.fen);
        EXPECT_EQ(Str(MoveToken(played, played.plyCount - 1, scratch)), c.token) << c.fen << " " << c.move;
    }
}

// Random games with promotions to every piece and castling on both wings come back whole.
TEST(GameFile, RandomGamesAreReadBackAsTheyWereWritten) {
    GameState& g = game;
    std::map<std::string, int> seen;
    for (std::uint32_t seed = 1; seed <= 60; ++seed) {
        g.ResetGameState(ResetStartPosition);
        PlayRandomMoves(g, 160, seed, RandomPolicy::Varied);
        Name(g, seed % 3 ? "Player 1" : ComputerName, seed % 2 ? "x y" : ComputerName);
        g.level = static_cast<Word>(1 + seed % 3);
        g.sides[White].clockSeconds = static_cast<Word>(seed * 97);
        const std::string file = GameFileOf(g);
        previewGame.ParseGame(Text(file.c_str()));
        const GameState& r = previewGame;
        ASSERT_EQ(r.plyCount, g.plyCount) << file;
        for (Word i = 0; i < g.plyCount; ++i) {
            const MoveRecord &a = g.history[i], &b = r.history[i];
            ASSERT_TRUE(a.fromFile == b.fromFile && a.fromRow == b.fromRow && a.toFile == b.toFile &&
                        a.toRow == b.toRow && a.placedPiece == b.placedPiece)
                << "ply " << i << " of " << file;
        }
        for (Word colour : {White, Black}) {
            EXPECT_STREQ(r.sides[colour].name, g.sides[colour].name);
            EXPECT_EQ(r.sides[colour].kind, g.sides[colour].kind);
            EXPECT_EQ(r.sides[colour].clockSeconds, g.sides[colour].clockSeconds);
        }
        const bool computer = g.sides[White].kind == SideComputer || g.sides[Black].kind == SideComputer;
        EXPECT_TRUE(!computer || r.level == g.level);
        std::istringstream tokens(file.substr(file.rfind("\r\n") + 2));
        for (std::string token; tokens >> token;)
            for (const char* form : {"O-O", "O-O-O", "=Q", "=R", "=B", "=N"})
                seen[form] += token.ends_with(form);
    }
    for (const char* form : {"O-O", "O-O-O", "=Q", "=R", "=B", "=N"})
        EXPECT_GT(seen[form], 0) << form;
}

// Moves written by hand or by other programs: how many plies are read, and the last of them.
TEST(GameFile, ReaderTakesWhatItCanAndStopsAtTheRest) {
    const GameState& g = previewGame;
    const struct {
        const char* moves;
        Word plies;
        const char* last; // the last move read, from and to squares
    } cases[] = {
        {"1. e4 e5", 1, "e2e4"}, // a token counts only with a separator behind it
        {"1. e4\ne5 2. Nf3\n", 0, ""},
        {"1. e4 e5 2. Nf3 1-0 ", 3, "g1f3"},
        {"1. e2-e4 e7-e5 2. Ng1-f3 Nb8-c6 3. Bf1-c4 Ng8-f6 4. 0-0 Pd7-d6 ", 8, "d7d6"},
        {"1. d4 d5 2. Nf3 Nf6 3. Nd2 ", 5, "f3d2"}, // ambiguous: the last candidate
        {"1. d4 d5 2. Nf3 Nf6 3. Ncd2 ", 4, "g8f6"},
        {"1. h4 g5 2. hxg5 Bg7 3. g6 Nf6 4. gxh7 Rg8 5. hxg8+=N ", 9, "h7g8"},
        {"1. h4 g5 2. hxg5 Bg7 3. g6 Nf6 4. gxh7 Rg8 5. h8=K ", 8, "h8g8"},
    };
    for (const auto& c : cases) {
        previewGame.ParseGame(Text(c.moves));
        ASSERT_EQ(g.plyCount, c.plies) << c.moves;
        if (c.plies > 0) {
            const MoveRecord& r = g.history[c.plies - 1];
            EXPECT_EQ(SquareName(r.fromFile, r.fromRow) + SquareName(r.toFile, r.toRow), c.last) << c.moves;
        }
    }
    previewGame.ParseGame(Text("1. e4 [FEN \"8/8/8/8/8/8/8/8 w - - 0 1\"]"));
    EXPECT_TRUE(g.previewStatus.Equals(NotBeginPositionText));
}

} // namespace
