// Games written by the writer and read back by the reader: the same moves, names, kinds, clocks
// and level, for games chosen for their moves and for many games played at random.
#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "double/host_double.h"
#include "records/game_file.h"
#include "support/record_games.h"

namespace {

GameState& Written() {
    static GameState g;
    return g;
}

// Writes `g` out, reads it back into previewGame and compares what the file is meant to carry.
void ExpectRoundTrip(GameState& g) {
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
    if (g.sides[White].kind == SideComputer || g.sides[Black].kind == SideComputer) {
        EXPECT_EQ(r.level, g.level);
    }
    EXPECT_TRUE(r.previewStatus.Equals(""));
}

void Name(GameState& g, const char* white, const char* black) {
    std::strcpy(g.sides[White].name, white);
    std::strcpy(g.sides[Black].name, black);
    g.sides[White].kind = std::strcmp(white, ComputerName) == 0 ? SideComputer : SideHuman;
    g.sides[Black].kind = std::strcmp(black, ComputerName) == 0 ? SideComputer : SideHuman;
}

// The tokens of the moves line of the file of `g`.
std::vector<std::string> Tokens(GameState& g) {
    const std::string file = GameFileOf(g);
    std::istringstream line(file.substr(file.rfind("\r\n") + 2));
    std::vector<std::string> tokens;
    std::string word;
    while (line >> word)
        if (word.back() != '.') tokens.push_back(word);
    return tokens;
}

// Games chosen for the token their last move makes.
TEST(GameFileRoundTrip, ChosenGames) {
    GameState& g = Written();
    const std::string promotionLine = "h2h4 g7g5 h4g5 f8g7 g5g6 g8f6 g6h7 h8g8 ";
    const struct {
        std::string line;
        std::string lastToken;
    } games[] = {
        {"e2e4 e7e5 f1c4 b8c6 d1h5 g8f6 h5f7", "Qxf7#"},
        // castling on both wings, en passant for both sides
        {"e2e4 d7d5 e4e5 f7f5 e5f6 b8c6 g1f3 d8d6 f1e2 c8e6 e1g1 e8c8 a2a3 d5d4 c2c4 d4c3", "dxc3"},
        {promotionLine + "h7g8q", "hxg8+=Q"},
        {promotionLine + "h7h8q", "h8=Q"},
        {promotionLine + "h7g8r", "hxg8+=R"},
        {promotionLine + "h7h8r", "h8=R"},
        {promotionLine + "h7g8b", "hxg8=B"},
        {promotionLine + "h7g8n", "hxg8=N"},
        {"e2e4 h7h5 d2d4 h5h4 e1d2 h4h3 d2d3 h3g2 a2a3 g2f1b", "gxf1+=B"},
        {"e2e4 h7h5 d2d4 h5h4 e1d2 h4h3 a2a3 h3g2 a3a4 g2f1n", "gxf1+=N"},
        {"g1f3 d7d5 d2d4 g8f6 b1d2", "Nbd2"},
        // three knights, one of them promoted, can take on e7
        {promotionLine + "h7g8n a7a6 b1c3 a6a5 c3d5 a5a4 g1f3 b7b6 f3h4 b6b5 h4f5 b5b4 g8e7", "Ng8xe7"},
    };
    for (const auto& game : games) {
        SCOPED_TRACE(game.line);
        ASSERT_TRUE(PlayLine(g, game.line));
        Name(g, "Player 1", ComputerName);
        g.level = 2;
        g.sides[White].clockSeconds = 3 * 3600 + 7;
        g.sides[Black].clockSeconds = 59;
        EXPECT_EQ(Tokens(g).back(), game.lastToken);
        ExpectRoundTrip(g);
    }
}

TEST(GameFileRoundTrip, NamesAndLevelsOfEveryKindOfGame) {
    GameState& g = Written();
    ASSERT_TRUE(PlayLine(g, "d2d4 d7d5"));
    const char* names[][2] = {
        {"Ann", "Bob"}, {ComputerName, "Bob"}, {ComputerName, ComputerName}, {"a b c", "x"}};
    for (auto& pair : names)
        for (Word level = 1; level <= 3; ++level) {
            Name(g, pair[0], pair[1]);
            g.level = level;
            ExpectRoundTrip(g);
        }
}

// How a token of a knight, bishop, rook or queen tells its piece apart from rivals: "", "file",
// "row" or "both".
std::string Disambiguation(std::string token) {
    if (token.find_first_of("NBRQ") != 0) return "";
    std::erase_if(token, [](char c) { return c == 'x' || c == '+' || c == '#'; });
    if (token.size() == 5) return "both";
    if (token.size() != 4) return "";
    return token[1] >= 'a' && token[1] <= 'h' ? "file" : "row";
}

// Random games reach most forms of token; each must come back as it was written.
TEST(GameFileRoundTrip, RandomGamesComeBackWhole) {
    GameState& g = Written();
    std::map<std::string, int> seen;
    for (std::uint32_t seed = 1; seed <= 60; ++seed) {
        PlayRandomGame(g, seed, 160);
        Name(g, "Player 1", "Player 2");
        SCOPED_TRACE(seed);
        ExpectRoundTrip(g);
        for (const std::string& token : Tokens(g)) {
            const std::string told = Disambiguation(token);
            if (!told.empty()) ++seen["by " + told];
            if (token == "O-O" || token == "O-O-O") ++seen[token];
            const auto equals = token.find('=');
            if (equals != std::string::npos) ++seen[token.substr(equals)];
        }
    }
    for (const char* form : {"by file", "by row", "O-O", "O-O-O", "=Q", "=R", "=B", "=N"})
        EXPECT_GT(seen[form], 0) << form;
}

} // namespace
