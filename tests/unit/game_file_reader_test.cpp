// The game file reader: what it finds by its marker strings, how it cuts and reads move tokens,
// and where it stops without complaint.
#include <gtest/gtest.h>

#include <string>

#include "double/host_double.h"
#include "records/game_file.h"
#include "support/record_games.h"

namespace {

GameState& Parse(const std::string& text) {
    previewGame.ParseGame(Text(text.c_str()));
    return previewGame;
}

// A file of this system with the given name tags and moves line.
std::string File(const std::string& white, const std::string& black, const std::string& moves,
                 const std::string& level = "") {
    return "[Event \"Velok-3: Local game {Human VS Human}\"]\r\n[Site \"Local\"]\r\n[Round \"-\"]\r\n[White "
           "\"" +
           white + "\"]\r\n[Black \"" + black +
           "\"]\r\n[Date \"2007.03.09\"]\r\n[Result \"? - ?\"]\r\n{VELOK-3 INFORMATION; TIME WHITE SIDE = "
           "00:01:05; "
           "TIME BLACK SIDE = 00:00:12;" +
           level + "}\r\n\r\n" + moves;
}

std::string MoveAt(const GameState& g, Word i) {
    const MoveRecord& r = g.history[i];
    std::string s{static_cast<char>('a' + r.fromFile), static_cast<char>('1' + r.fromRow),
                  static_cast<char>('a' + r.toFile), static_cast<char>('1' + r.toRow)};
    return s;
}

TEST(GameFileReader, ReadsNamesKindsClocksAndMoves) {
    const GameState& g = Parse(File("Player 1", ComputerName, "1. e4 e5 2. Nf3 ", " GAME LEVEL = 1;"));
    EXPECT_EQ(g.plyCount, 3);
    EXPECT_EQ(MoveAt(g, 2), "g1f3");
    EXPECT_STREQ(g.sides[White].name, "Player 1");
    EXPECT_EQ(g.sides[White].kind, SideHuman);
    EXPECT_EQ(g.sides[Black].kind, SideComputer);
    EXPECT_EQ(g.sides[White].clockSeconds, 65);
    EXPECT_EQ(g.sides[Black].clockSeconds, 12);
    EXPECT_EQ(g.level, 1);
    EXPECT_TRUE(g.previewStatus.Equals(""));
}

TEST(GameFileReader, RefusesAGameFromASetUpPositionAndKeepsWhatItHad) {
    Parse(File("A", "B", "1. e4 e5 "));
    const GameState& g = Parse(File("A", "B", "1. e4 ") + "[FEN \"8/8/8/8/8/8/8/8 w - - 0 1\"]");
    EXPECT_TRUE(g.previewStatus.Equals(NotBeginPositionText));
    EXPECT_EQ(g.plyCount, 2);
    EXPECT_TRUE(Parse(File("a[FEN", "B", "1. e4 ")).previewStatus.Equals(NotBeginPositionText));
    EXPECT_TRUE(Parse(File("A", "B", "1. e4 ")).previewStatus.Equals(""));
}

TEST(GameFileReader, NamesAreCutAtTheQuoteOrAt18Characters) {
    EXPECT_STREQ(Parse(File("Nineteen characters", "B", "")).sides[White].name, "Nineteen character");
    EXPECT_STREQ(Parse(File("Bo\"b", "B", "")).sides[White].name, "Bo");
    EXPECT_STREQ(Parse(File("", "", "")).sides[White].name, "Player 1");
    EXPECT_STREQ(Parse(File("", "", "")).sides[Black].name, "Player 2");
    EXPECT_STREQ(Parse("1. e4 e5 ").sides[Black].name, "Player 2");
    EXPECT_STREQ(Parse("[White \"Ann").sides[White].name, "Player 1");
}

TEST(GameFileReader, OnlyTheComputersExactNameMakesAComputerSide) {
    const std::string computerEvent = "[Event \"Velok-3: Local game {Computer VS Computer}\"]\r\n";
    EXPECT_EQ(Parse(computerEvent + File("Computer", "B", "")).sides[White].kind, SideHuman);
    EXPECT_EQ(Parse(File("Computer {Velok-3", "B", "")).sides[White].kind, SideHuman);
    // The name is cut before it is compared.
    EXPECT_EQ(Parse(File("Computer {Velok-3}X", "B", "")).sides[White].kind, SideComputer);
    EXPECT_EQ(Parse(File(ComputerName, "B", "")).sides[White].kind, SideComputer);
}

TEST(GameFileReader, LevelCountsOnlyBesideAComputerAndWithinOneToThree) {
    EXPECT_EQ(Parse(File(ComputerName, "B", "", " GAME LEVEL = 2;")).level, 2);
    EXPECT_EQ(Parse(File(ComputerName, "B", "", " GAME LEVEL = 7;")).level, 3);
    EXPECT_EQ(Parse(File(ComputerName, "B", "", " GAME LEVEL = 0;")).level, 3);
    EXPECT_EQ(Parse(File(ComputerName, "B", "")).level, 3);
    EXPECT_EQ(Parse(File("A", "B", "", " GAME LEVEL = 1;")).level, 3);
    EXPECT_EQ(Parse("[White \"Computer {Velok-3}\"] LEVEL = ").level, 3);
}

TEST(GameFileReader, ClocksNeedEightCharactersWithDigitsInPlace) {
    EXPECT_EQ(GameState::ParseClock(Text("12:34:56")), 12 * 3600 + 34 * 60 + 56);
    EXPECT_EQ(GameState::ParseClock(Text("00:00:99")), 99);
    EXPECT_EQ(GameState::ParseClock(Text("01-02-03")), 3723);
    EXPECT_EQ(GameState::ParseClock(Text("1:02:03;")), 0);
    EXPECT_EQ(GameState::ParseClock(Text("01:02:0")), 0);
    EXPECT_EQ(GameState::ParseClock(Text("01:02:033")), 0);
    EXPECT_EQ(Parse("TIME WHITE SIDE = 1:02:03; TIME BLACK SIDE = 00:00:0").sides[White].clockSeconds, 0);
    EXPECT_EQ(Parse("TIME BLACK SIDE = 00:00:0").sides[Black].clockSeconds, 0);
}

TEST(GameFileReader, ATokenCountsOnlyWithASeparatorBehindIt) {
    EXPECT_EQ(Parse(File("A", "B", "1. e4 e5")).plyCount, 1);
    EXPECT_EQ(Parse(File("A", "B", "1. e4 e5\r\n")).plyCount, 2);
    EXPECT_EQ(Parse(File("A", "B", "1. e4 e5\r")).plyCount, 2);
    EXPECT_EQ(Parse(File("A", "B", "1.e4\ne5\n")).plyCount, 2);
    // A line end counts only where no blank is left: here the first token runs over it.
    EXPECT_EQ(Parse(File("A", "B", "1. e4\ne5 2. Nf3\n")).plyCount, 0);
    EXPECT_EQ(Parse("1. e4 e5 ").plyCount, 2);
    EXPECT_EQ(Parse(File("A", "B", "")).plyCount, 0);
}

TEST(GameFileReader, ALineEndBeforeABlankSpoilsTheToken) {
    const GameState& g = Parse(File("A", "B", "1. e4 e5 2. Nf3 Nc6\r\n3. Bb5 a6 "));
    EXPECT_EQ(g.plyCount, 3);
}

TEST(GameFileReader, StopsAtTheFirstTokenItCannotPlay) {
    EXPECT_EQ(Parse(File("A", "B", "1. e4 e5 2. Nf3 1-0 ")).plyCount, 3);
    EXPECT_EQ(Parse(File("A", "B", "1. e4 e5 2. Nf3 1/2-1/2 ")).plyCount, 3);
    EXPECT_EQ(Parse(File("A", "B", "1. e4 {best} e5 ")).plyCount, 1);
    EXPECT_EQ(Parse(File("A", "B", "1. e4 $1 e5 ")).plyCount, 1);
    EXPECT_EQ(Parse(File("A", "B", "1. e4 * ")).plyCount, 1);
    EXPECT_EQ(Parse(File("A", "B", "1. e4 e5 2. Ke3 Nc6 ")).plyCount, 2);
    EXPECT_EQ(Parse(File("A", "B", "1. e4 e5 2. Nf3 Nc6 3. Bb5 Nf6 4. Nbd2 ")).plyCount, 6);
    EXPECT_EQ(Parse(File("A", "B", "1. e4 e5 2. Ne2e4 ")).plyCount, 2);
    EXPECT_EQ(Parse(File("A", "B", "1. e4 e5 2. Nf3g5 ")).plyCount, 2);
    const GameState& g = Parse(File("A", "B", "1. e4 e5 2. Ng1f3 i6 "));
    EXPECT_EQ(g.plyCount, 3);
    EXPECT_EQ(g.sideToMove, Black);
    EXPECT_TRUE(g.previewStatus.Equals(""));
}

TEST(GameFileReader, ReadsTheMovesListNotationAndPieceLetters) {
    const GameState& g =
        Parse("1. e2-e4 e7-e5 2. Ng1-f3 Nb8-c6 3. Bf1-c4 Ng8-f6 4. 0-0 Pd7-d6 5. b3 Bc8-g4 ");
    ASSERT_EQ(g.plyCount, 10);
    EXPECT_EQ(MoveAt(g, 6), "e1g1");
    EXPECT_EQ(MoveAt(g, 7), "d7d6");
    EXPECT_EQ(MoveAt(g, 8), "b2b3");
    EXPECT_EQ(MoveAt(g, 9), "c8g4");
}

TEST(GameFileReader, AnAmbiguousTokenTakesTheLastCandidate) {
    const GameState& g = Parse("1. d4 d5 2. Nf3 Nf6 3. Nd2 ");
    ASSERT_EQ(g.plyCount, 5);
    EXPECT_EQ(MoveAt(g, 4), "f3d2");
}

TEST(GameFileReader, HintsPickTheNamedFileOrRow) {
    EXPECT_EQ(MoveAt(Parse("1. d4 d5 2. Nf3 Nf6 3. Nbd2 "), 4), "b1d2");
    EXPECT_EQ(MoveAt(Parse("1. d4 d5 2. Nf3 Nf6 3. N1d2 "), 4), "b1d2");
    EXPECT_EQ(Parse("1. d4 d5 2. Nf3 Nf6 3. Ncd2 ").plyCount, 4);
    EXPECT_EQ(Parse("1. d4 d5 2. Nf3 Nf6 3. Nzd2 ").plyCount, 4);
}

TEST(GameFileReader, PromotionLetterChoosesThePiece) {
    const std::string line = "1. h4 g5 2. hxg5 Bg7 3. g6 Nf6 4. gxh7 Rg8 5. ";
    EXPECT_EQ(Parse(line + "hxg8+=N ").board[7][6].piece, Knight);
    EXPECT_EQ(Parse(line + "h8=R ").board[7][7].piece, Rook);
    EXPECT_EQ(Parse(line + "h8=K ").plyCount, 8);
    // A foreign file that does not say what the pawn becomes gets a queen.
    const GameState& g = Parse(line + "h8 ");
    ASSERT_EQ(g.plyCount, 9);
    EXPECT_EQ(g.board[7][7].piece, Queen);
    EXPECT_EQ(g.board[7][7].colour, White);
}

TEST(GameFileReader, TwoHundredPairsAreReadAndTheRestIgnored) {
    std::string moves;
    for (int pair = 1; pair <= 200; ++pair)
        moves += std::to_string(pair) + (pair % 2 ? ". Nf3 Nf6 " : ". Ng1 Ng8 ");
    moves += "201. e4 e5 ";
    const GameState& g = Parse(File("A", "B", moves));
    EXPECT_EQ(g.plyCount, 400);
    EXPECT_EQ(g.board[1][4].piece, Pawn);
}

} // namespace
