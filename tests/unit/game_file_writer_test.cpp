// The game file writer: the file of a running game to the byte, the tags and comment of other
// games, each form of move token, and the default file names.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "double/host_double.h"
#include "records/game_file.h"
#include "support/board_setup.h"
#include "support/record_games.h"

namespace {

const LocalTime savedAt{2007, 3, 9, 14, 35};

void NameSide(GameState& g, Word colour, const char* name, Word kind) {
    std::strcpy(g.sides[colour].name, name);
    g.sides[colour].kind = kind;
}

std::string FileOf(GameState& g) {
    return GameFileOf(g, savedAt);
}

// The token of `move` played from the position `fen`, worked out on a scratch game.
std::string TokenOf(const char* fen, const char* move, Word promotion = Queen) {
    static GameState played, scratch;
    SetUpBoard(played, fen);
    EXPECT_TRUE(PlayMove(played, move, promotion)) << fen << " " << move;
    SetUpBoard(scratch, fen);
    return Str(MoveToken(played, played.plyCount - 1, scratch));
}

// The tenth line of the file, the moves.
std::string MovesLine(const std::string& file) {
    return file.substr(file.rfind("\r\n") + 2);
}

GameState& Game() {
    static GameState g;
    return g;
}

TEST(GameFileWriter, WritesTheRunningGameToTheByte) {
    GameState& g = Game();
    ASSERT_TRUE(PlayLine(g, "e2e4 e7e5 g1f3 b8c6 f1b5 a7a6 b5c6 d7c6 e1g1 c8g4"));
    NameSide(g, White, "Player 1", SideHuman);
    NameSide(g, Black, ComputerName, SideComputer);
    g.level = 2;
    g.sides[White].clockSeconds = 65;
    g.sides[Black].clockSeconds = 12;

    const std::string expected =
        "[Event \"Velok-3: Local game {Human VS Computer}\"]\r\n"
        "[Site \"Local\"]\r\n"
        "[Round \"-\"]\r\n"
        "[White \"Player 1\"]\r\n"
        "[Black \"Computer {Velok-3}\"]\r\n"
        "[Date \"2007.03.09\"]\r\n"
        "[Result \"? - ?\"]\r\n"
        "{VELOK-3 INFORMATION; TIME WHITE SIDE = 00:01:05; TIME BLACK SIDE = 00:00:12; GAME LEVEL = 2;}\r\n"
        "\r\n"
        "1. e4 e5 2. Nf3 Nc6 3. Bb5 a6 4. Bxc6 dxc6 5. O-O Bg4 ";
    EXPECT_EQ(FileOf(g), expected);
    EXPECT_EQ(FileOf(g).size(), 321u);
    EXPECT_EQ(Str(DefaultGameFileName(g, "09.03.2007", savedAt)),
              "[Player 1]-[Computer {Velok-3}]-[09_03_2007]-[14-35]");
}

TEST(GameFileWriter, GameBetweenPeopleHasNoLevel) {
    GameState& g = Game();
    ASSERT_TRUE(PlayLine(g, "e2e4"));
    NameSide(g, White, "Ann", SideHuman);
    NameSide(g, Black, "Bob", SideHuman);
    g.level = 2;
    const std::string file = FileOf(g);
    EXPECT_NE(file.find("[Event \"Velok-3: Local game {Human VS Human}\"]\r\n"), std::string::npos);
    EXPECT_NE(
        file.find(
            "\r\n{VELOK-3 INFORMATION; TIME WHITE SIDE = 00:00:00; TIME BLACK SIDE = 00:00:00;}\r\n\r\n"),
        std::string::npos);
    EXPECT_EQ(MovesLine(file), "1. e4 ");
}

TEST(GameFileWriter, ClocksAndDatesArePaddedToTwoDigits) {
    GameState& g = Game();
    ASSERT_TRUE(PlayLine(g, "e2e4"));
    NameSide(g, White, ComputerName, SideComputer);
    g.sides[White].clockSeconds = 10 * 3600 + 2 * 60 + 5;
    g.sides[Black].clockSeconds = 3599;
    g.level = 3;
    Text header = GameFileHeader(g, LocalTime{2026, 11, 1, 0, 0}, "? - ?");
    const std::string text = Str(header);
    EXPECT_NE(text.find("{Computer VS Human}"), std::string::npos);
    EXPECT_NE(text.find("[Date \"2026.11.01\"]"), std::string::npos);
    EXPECT_NE(text.find("TIME WHITE SIDE = 10:02:05; TIME BLACK SIDE = 00:59:59; GAME LEVEL = 3;}"),
              std::string::npos);
}

TEST(GameFileWriter, ResultFollowsTheEndOfTheGame) {
    GameState& g = Game();
    ASSERT_TRUE(PlayLine(g, "f2f3 e7e5 g2g4 d8h4"));
    std::string file = FileOf(g);
    EXPECT_NE(file.find("[Result \"0 - 1\"]"), std::string::npos);
    EXPECT_EQ(MovesLine(file), "1. f3 e5 2. g4 Qh4# ");

    ASSERT_TRUE(PlayLine(g, "e2e4 e7e5 f1c4 b8c6 d1h5 g8f6 h5f7"));
    file = FileOf(g);
    EXPECT_NE(file.find("[Result \"1 - 0\"]"), std::string::npos);
    EXPECT_EQ(MovesLine(file), "1. e4 e5 2. Bc4 Nc6 3. Qh5 Nf6 4. Qxf7# ");

    EXPECT_STREQ(ResultText(GameStalemate, White), "1/2 - 1/2");
    EXPECT_STREQ(ResultText(GameDrawn, Black), "1/2 - 1/2");
}

TEST(MoveToken, PawnsAreNamedByTheirFileOnlyWhenTheyCapture) {
    EXPECT_EQ(TokenOf("4k3/8/8/3p4/2P1P3/8/8/4K3 w", "e4d5"), "exd5");
    EXPECT_EQ(TokenOf("4k3/8/8/3p4/2P1P3/8/8/4K3 w", "e4e5"), "e5");
    EXPECT_EQ(TokenOf("4k3/8/8/3pP3/8/8/8/4K3 w - d6", "e5d6"), "exd6");
}

TEST(MoveToken, SignStandsBeforeThePromotion) {
    EXPECT_EQ(TokenOf("8/4P3/8/8/8/7k/8/K7 w", "e7e8"), "e8=Q");
    EXPECT_EQ(TokenOf("8/4P3/8/7k/8/8/8/K7 w", "e7e8"), "e8+=Q");
    EXPECT_EQ(TokenOf("3r3k/4P1pp/8/8/8/8/8/K7 w", "e7d8"), "exd8#=Q");
    EXPECT_EQ(TokenOf("3r3k/4P1pp/8/8/8/8/8/K7 w", "e7d8", Knight), "exd8=N");
    EXPECT_EQ(TokenOf("3r3k/4P1pp/8/8/8/8/8/K7 w", "e7d8", Rook), "exd8#=R");
    EXPECT_EQ(TokenOf("8/8/8/8/8/8/3p4/K6k b", "d2d1", Bishop), "d1=B");
}

TEST(MoveToken, CastlingCarriesNoSign) {
    EXPECT_EQ(TokenOf("5k2/8/8/8/8/8/8/4K2R w K", "e1g1"), "O-O");
    EXPECT_EQ(TokenOf("r3k3/8/8/8/8/8/8/3K4 b q", "e8c8"), "O-O-O");
    EXPECT_EQ(TokenOf("r3k3/8/8/8/8/8/8/3K4 b q", "e8d8"), "Kd8");
}

TEST(MoveToken, RivalsThatCanReachTheSquareAreToldApart) {
    EXPECT_EQ(TokenOf("4k3/8/8/R7/8/8/8/R3K3 w", "a1a3"), "R1a3");
    EXPECT_EQ(TokenOf("4k3/8/8/8/8/5N2/8/1N2K3 w", "b1d2"), "Nbd2");
    EXPECT_EQ(TokenOf("4k3/8/8/5Q2/8/8/8/1Q2KQ2 w", "b1d3"), "Qb1d3");
    EXPECT_EQ(TokenOf("4k3/8/8/8/8/5N2/8/1N2K3 w", "f3d2"), "Nfd2");
    EXPECT_EQ(TokenOf("4k3/8/8/8/8/8/4K3/R6R w", "a1d1"), "Rad1");
    EXPECT_EQ(TokenOf("r3k3/8/8/8/8/8/8/R3K3 w", "a1a8"), "Rxa8+");
}

TEST(MoveToken, PinnedRivalsAreIgnored) {
    EXPECT_EQ(TokenOf("4k3/8/8/3b4/8/5N2/8/1N5K w", "b1d2"), "Nd2");
}

TEST(DefaultNames, DropWhatAFileNameMayNotHold) {
    GameState& g = Game();
    g.ResetGameState(ResetStartPosition);
    NameSide(g, White, "a<b>c\"d\\e/f*g?h:i|j", SideHuman);
    NameSide(g, Black, "Bob", SideHuman);
    EXPECT_EQ(Str(DefaultGameFileName(g, "2007/3/9", LocalTime{2007, 3, 9, 7, 5})),
              "[abcdefghij]-[Bob]-[2007_3_9]-[07-05]");
    EXPECT_EQ(Str(DefaultPositionFileName("09.03.2007", savedAt)), "[09_03_2007] [14-35]");
}

TEST(DefaultNames, LookAtTheFirst126CharactersOfTheDate) {
    const std::string date(200, '1');
    EXPECT_EQ(DateForFileName(date.c_str()).Length(), 126);
    EXPECT_EQ(Str(DateForFileName("9 mars 2007")), "9______2007");
}

} // namespace
