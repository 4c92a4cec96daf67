// Saving and loading through the host: when nothing happens, what the user is asked and told, what
// is written under which name, what the load preview makes of a file, and what a load makes of it.
#include <gtest/gtest.h>

#include <cstring>

#include "core/navigation.h"
#include "double/host_double.h"
#include "records/game_file.h"
#include "records/load_file.h"
#include "records/position_file.h"
#include "support/board_setup.h"

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

TEST(Saving, OfferIsMadeOnlyForAnActiveUnsavedGame) {
    Running("", "e2e4").gameDirty = 0;
    g.OfferToSave();
    Running("", "e2e4").gameActive = 0;
    g.OfferToSave();
    EXPECT_TRUE(Host().questions.empty());
    Running("", "e2e4");
    Host().yesNoAnswers = {0};
    g.OfferToSave();
    EXPECT_EQ(Host().questions, Strings{SaveGameQuestion});
    EXPECT_TRUE(Host().files.empty());
    EXPECT_EQ(g.gameDirty, 0);
    Running("", "e2e4");
    Host().yesNoAnswers = {1};
    g.OfferToSave();
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
    Running("", "e2e4 e7e5 g1f3", 2).SavePosition();
    EXPECT_EQ(Host().files[positionName], "rnbqkbnr/pppp1ppp/8/4p3/4P3/8/PPPP1PPP/RNBQKBNR w - - 0 0\"");
    EXPECT_EQ(g.gameDirty, 1);
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

TEST(LoadFile, PreviewShowsWhatTheFileHoldsOrWhyNotAndTheButtonsFollow) {
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

    // Load needs a file that was read, Delete a selected row.
    preview.previewStatus = Text(FileNotSelectedText);
    LoadButtons buttons = LoadButtonStates(preview, 0, -1);
    EXPECT_FALSE(buttons.loadEnabled || buttons.deleteEnabled);
    EXPECT_STREQ(preview.previewStatus.Chars(), FileNotFoundText);
    PreviewSelectedFile(preview, LoadPositions, Opened("8/8/8/8/8/8/8/8 w"));
    buttons = LoadButtonStates(preview, 2, 0);
    EXPECT_TRUE(!buttons.loadEnabled && buttons.deleteEnabled);
    PreviewSelectedFile(preview, LoadGames, Opened("1. d4 "));
    buttons = LoadButtonStates(preview, 3, 1);
    EXPECT_TRUE(buttons.loadEnabled && buttons.deleteEnabled);
}

TEST(LoadFile, SavedGameLoadsBackWithItsListNamesClocksAndLevel) {
    Running("", "e2e4 e7e5 g1f3 b8c6 f1b5 a7a6 b5c6 d7c6 e1g1 c8g4 d2d3");
    g.level = 2;
    g.sides[White].clockSeconds = 65;
    const std::vector<std::string> rows = Host().lists[movesListWindow].rows;
    g.SaveGame();
    target.sides[White].kind = SideComputer;
    target.setupStart = target.thinkPending = 1;
    PreviewSelectedFile(preview, LoadGames, Opened(Host().files[gameName]));
    LoadPreviewedGame(target, preview, LoadGames, &movesListWindow);
    EXPECT_EQ(Host().lists[movesListWindow].rows, rows);
    EXPECT_EQ(Host().lists[movesListWindow].selection, 11);
    EXPECT_EQ(BoardLetters(target.board), BoardLetters(g.board));
    EXPECT_STREQ(target.sides[Black].name, ComputerName);
    EXPECT_TRUE(target.sides[Black].kind == SideComputer && target.sides[White].kind == SideHuman);
    EXPECT_TRUE(target.sides[White].clockSeconds == 65 && target.level == 2 && target.sideToMove == Black);
    EXPECT_TRUE(target.gameActive == 1 && target.gameDirty == 0 && target.thinkPending == 0 &&
                target.setupStart == 0);
    target.OfferToSave();
    EXPECT_TRUE(Host().questions.empty());
}

TEST(LoadFile, PositionLoadsAsTheStartOfAnAnalysisForTwoPeople) {
    ResetHost();
    movesListWindow = &listControl;
    PreviewSelectedFile(preview, LoadPositions, Opened("4k3/8/8/8/8/8/q7/4K3 b - - 0 0\""));
    LoadPreviewedGame(target, preview, LoadPositions, &movesListWindow);
    EXPECT_EQ(Host().lists[movesListWindow].rows, std::vector<std::string>{" 0."});
    EXPECT_TRUE(target.setupStart == 1 && target.setupMode == 0 && target.plyCount == 0);
    EXPECT_TRUE(target.sideToMove == Black && target.setupFirstMover == Black);
    EXPECT_EQ(BoardLetters(target.startBoard), BoardLetters(target.board));
    EXPECT_TRUE(target.sides[White].kind == SideHuman && target.sides[Black].kind == SideHuman);
    EXPECT_EQ(target.loadDialogKind, LoadPositions);
}

} // namespace
