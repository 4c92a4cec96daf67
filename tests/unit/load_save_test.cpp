// Saving and loading through the host: when nothing happens, what the user is asked and told, what
// is written under which name, what the load preview and a load make of a file; position lines.
#include <gtest/gtest.h>

#include <cstring>

#include "core/navigation.h"
#include "double/host_double.h"
#include "records/game_file.h"
#include "records/load_file.h"
#include "records/position_file.h"
#include "support/random_game.h"

namespace {

int listControl;
using Strings = std::vector<std::string>;
const std::string gameName = "[Player 1]-[Computer {Velok-3}]-[09_03_2007]-[14-35].pgn";
const std::string positionName = "[09_03_2007] [14-35].fen";

GameState g;

// The game of `line` from `fen` (the start position when empty), running and unsaved, its list
// showing row `shown` (the last row when negative).
GameState& Running(const std::string& fen, const std::string& line, Word shown = -1) {
    ResetHost();
    if (fen.empty()) {
        EXPECT_TRUE(PlayLine(g, line));
    } else {
        SetUpGame(g, fen);
        for (std::size_t at = 0; at < line.size(); at += 5)
            EXPECT_TRUE(PlayMove(g, line.substr(at, 4)));
    }
    std::strcpy(g.sides[White].name, "Player 1");
    std::strcpy(g.sides[Black].name, ComputerName);
    g.sides[Black].kind = SideComputer;
    g.gameActive = g.gameDirty = 1;
    movesListWindow = &listControl;
    g.RebuildMovesList(&movesListWindow);
    Host().lists[movesListWindow].selection = shown < 0 ? g.plyCount : shown;
    SelectListRow(g, previewGame, movesListWindow);
    Host().saveNames = {"="};
    return g;
}

TEST(Saving, GameGoesUnderItsNameWithEveryMoveAndCountsAsSaved) {
    Running("", "e2e4 e7e5 g1f3 b8c6 f1b5 a7a6 b5c6 d7c6 e1g1 c8g4", 3).SaveGame();
    EXPECT_EQ(Host().files[gameName], GameFileOf(g));
    EXPECT_TRUE(Host().files[gameName].ends_with(" 5. O-O Bg4 "));
    EXPECT_EQ(Host().saveTitles, Strings{"Save game"});
    EXPECT_EQ(Host().messages, Strings{GameSavedText});
    EXPECT_EQ(g.gameDirty, 0);
    g.SaveGame(); // nothing new since: silent
    EXPECT_EQ(Host().saveTitles.size(), 1u);

    Running("", "f2f3 e7e5 g2g4 d8h4", 1);
    Host().saveNames = {"mine"};
    g.SaveGame();
    EXPECT_NE(Host().files["mine.pgn"].find("[Result \"0 - 1\"]"), std::string::npos);

    Running("", "e2e4");
    Host().saveNames = {""};
    g.SaveGame();
    Running("", "e2e4");
    Host().writeFails = true;
    g.SaveGame();
    EXPECT_EQ(Host().messages, Strings{WriteFailedText});
    Running("", "").SaveGame();
    Running("4k3/8/8/8/8/8/8/R3K3 w", "a1a2").SaveGame();
    EXPECT_EQ(Host().messages, Strings{SetupGameRefusedText});
    EXPECT_TRUE(Host().saveTitles.empty() && Host().files.empty());
    EXPECT_EQ(g.gameDirty, 1);
}

TEST(Saving, OfferSavesTheGameOrTheBeginPositionOfASetUpOne) {
    Running("", "e2e4");
    Host().yesNoAnswers = {1};
    g.OfferToSave();
    EXPECT_EQ(Host().questions, Strings{SaveGameQuestion});
    EXPECT_EQ(Host().questionDefaults, std::vector<AskDefault>{DefaultYes});
    EXPECT_EQ(Host().files.size(), 1u);

    // A set-up game offers its begin position, whatever row is shown.
    Running("4k3/8/8/8/8/8/8/R3K3 b", "e8d8 a1a8 d8e7");
    Host().yesNoAnswers = {1};
    g.OfferToSave();
    EXPECT_EQ(Host().questions, Strings{SaveBeginPositionQuestion});
    EXPECT_EQ(Host().files[positionName], "4k3/8/8/8/8/8/8/R3K3 b - - 0 0\"");
    EXPECT_EQ(Host().messages, Strings{PositionSavedText});
    EXPECT_EQ(g.board[0][0].piece, Rook);
    EXPECT_EQ(g.gameDirty, 0);
}

TEST(Saving, PositionOfTheShownRowWithItsSideToMove) {
    Running("4k3/8/8/8/8/8/8/R3K3 b", "e8d8 a1a8", 1).SavePosition();
    EXPECT_EQ(Host().files[positionName], "3k4/8/8/8/8/8/8/R3K3 w - - 0 0\"");
    EXPECT_EQ(g.gameDirty, 1);
    Running("4k3/8/8/8/8/8/8/R3K3 b", "e8d8 a1a8", 0).SavePosition();
    EXPECT_EQ(g.gameDirty, 0); // the begin position of a set-up game is its save

    // A finished position is saved only on purpose.
    Running("", "f2f3 e7e5 g2g4 d8h4").SavePosition();
    EXPECT_EQ(Host().questions, Strings{GameOverWarning});
    EXPECT_EQ(Host().questionDefaults, std::vector<AskDefault>{DefaultNo});
    EXPECT_TRUE(Host().files.empty());
}

SelectedFile Opened(const std::string& bytes) {
    return SelectedFile{true, static_cast<std::uint32_t>(bytes.size()), bytes.data()};
}

GameState source, preview, target;

TEST(LoadFile, PreviewShowsWhatTheFileHoldsOrWhyNot) {
    ASSERT_TRUE(PlayLine(source, "e2e4 e7e5 g1f3"));
    const std::string game = GameFileOf(source), black = Str(PositionLine(source.board, Black));
    const std::string gameLetters = BoardLetters(source.board);
    const struct {
        Word kind;
        std::string bytes; // "closed" for a file that did not open, "huge" for one of a megabyte
        const char* status;
        std::string letters; // the board the preview shows, when checked
    } cases[] = {
        {LoadGames, game, "", gameLetters},
        {LoadGames, game + std::string(MaxLoadFileBytes + 1 - game.size(), ' '), FileTooBigText, gameLetters},
        {LoadGames, "closed", ErrorOpenFileText, gameLetters},
        {LoadGames, std::string("1. e4 e5 ") + '\0' + "2. Nf3 ", "", ""},
        {LoadGames, "[FEN \"8/8/8/8/8/8/8/8 w\"]\r\n\r\n1. e4 ", NotBeginPositionText, ""},
        {LoadPositions, black, "", gameLetters},
        {LoadPositions, "huge", FileTooBigText, gameLetters},
        {LoadPositions, "4k2P/8/8/8/8/8/8/4K3 w - - 0 0\"", ErrorPositionText, ""},
        {LoadPositions, "", GameOverText, ""},
    };
    for (const auto& c : cases) {
        PreviewSelectedFile(preview, c.kind,
                            c.bytes == "closed" ? SelectedFile{false, 0, nullptr}
                            : c.bytes == "huge" ? SelectedFile{true, 1u << 20, nullptr}
                                                : Opened(c.bytes));
        EXPECT_STREQ(preview.previewStatus.Chars(), c.status) << c.bytes;
        EXPECT_TRUE(c.letters.empty() || BoardLetters(preview.board) == c.letters) << c.bytes;
    }
    const std::string cut = std::string("1. e4 e5 ") + '\0' + "2. Nf3 ";
    PreviewSelectedFile(preview, LoadGames, Opened(cut));
    EXPECT_EQ(preview.plyCount, 2); // the text ends at the first zero byte
}

TEST(LoadFile, SavedGameLoadsBackWithItsNamesClocksAndLevel) {
    Running("", "e2e4 e7e5 g1f3 b8c6 f1b5 a7a6 b5c6 d7c6 e1g1 c8g4 d2d3");
    g.level = 2;
    g.sides[White].clockSeconds = 65;
    g.SaveGame();
    target.sides[White].kind = SideComputer;
    target.setupStart = target.thinkPending = 1;
    PreviewSelectedFile(preview, LoadGames, Opened(Host().files[gameName]));
    LoadPreviewedGame(target, preview, LoadGames, &movesListWindow);
    EXPECT_STREQ(target.sides[Black].name, ComputerName);
    EXPECT_TRUE(target.sides[Black].kind == SideComputer && target.sides[White].kind == SideHuman);
    EXPECT_TRUE(target.sides[White].clockSeconds == 65 && target.level == 2 && target.sideToMove == Black);
    EXPECT_TRUE(target.gameActive == 1 && target.gameDirty == 0 && target.thinkPending == 0 &&
                target.setupStart == 0);
}

// Lines of random games read back: the same cells, and a set-up game with that side to move.
TEST(PositionFile, ReadsBackWhatWasWritten) {
    ASSERT_TRUE(PlayLine(g, "e2e4 e7e5 g1f3"));
    EXPECT_EQ(Str(PositionLine(g.board, Black)),
              "rnbqkbnr/pppp1ppp/8/4p3/4P3/5N2/PPPP1PPP/RNBQKB1R b - - 0 0\"");
    for (std::uint32_t seed = 1; seed <= 40; ++seed) {
        g.ResetGameState(ResetStartPosition);
        PlayRandomMoves(g, static_cast<Word>(seed * 7 % 150), seed, RandomPolicy::Varied);
        previewGame.ParsePosition(PositionLine(g.board, g.sideToMove));
        const GameState& r = previewGame;
        ASSERT_EQ(BoardLetters(r.board), BoardLetters(g.board)) << seed;
        EXPECT_EQ(BoardLetters(r.startBoard), BoardLetters(g.board));
        EXPECT_TRUE(r.sideToMove == g.sideToMove && r.setupFirstMover == g.sideToMove && r.plyCount == 0);
    }
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
        {"3pk3/8/8/8/8/8/8/R3K3 w", error},
        {"4k3/8/8/8/8/8/PPPPPPPP/BB1BK3 w", error}, // three bishops, two on light squares
        {"4k3/8/8/8/8/8/PPPPPPP1/BB1BK3 w", ok},
        {"4k3/8/8/8/8/8/PPPPPPPP/B1B1K3 w", error},
        {"4k3/8/8/8/8/8/PPPPPPP1/QQ2K3 w", ok},
        {"4k3/8/8/8/8/8/PPPPPPPP/QQ2K3 w", error},
        {"4k3/8/8/8/8/8/8/4R1K1 w", error},
        {"4k3/8/8/8/8/8/8/4R1K1 b", ok},
        {"4k3/8/8/8/8/8/8/4K3 w", over},
        {"R3k3/8/4K3/8/8/8/8/8 b", over},
        {"k7/2Q5/1K6/8/8/8/8/7P b", over},
    };
    for (const auto& c : cases) {
        previewGame.ParsePosition(Text(c.line));
        EXPECT_EQ(Str(previewGame.previewStatus), c.status) << c.line;
    }
}

} // namespace
