// Saving games and positions through the host: when nothing happens, what the user is asked and
// told, what is written under which name, and when the game counts as saved.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "double/host_double.h"
#include "core/navigation.h"
#include "records/game_file.h"
#include "records/position_file.h"
#include "support/board_setup.h"
#include "support/record_games.h"

namespace {

using Strings = std::vector<std::string>;

const std::string exampleName = "[Player 1]-[Computer {Velok-3}]-[09_03_2007]-[14-35].pgn";
const std::string positionName = "[09_03_2007] [14-35].fen";

class Saving : public ::testing::Test {
  protected:
    void SetUp() override { ResetHost(); }
    void TearDown() override { movesListWindow = nullptr; }

    // The game of the worked example, running, unsaved, with its list showing the last row.
    GameState& ExampleGame() {
        EXPECT_TRUE(PlayLine(g, "e2e4 e7e5 g1f3 b8c6 f1b5 a7a6 b5c6 d7c6 e1g1 c8g4"));
        std::strcpy(g.sides[White].name, "Player 1");
        std::strcpy(g.sides[Black].name, ComputerName);
        g.sides[Black].kind = SideComputer;
        g.level = 2;
        g.sides[White].clockSeconds = 65;
        g.sides[Black].clockSeconds = 12;
        g.gameActive = g.gameDirty = 1;
        ShowMovesList(g, g.plyCount);
        return g;
    }

    // A set-up game from `fen`, with the moves of `line` played from it and the last row shown.
    GameState& SetUpGame(const char* fen, const std::string& line) {
        SetUpBoard(g, fen);
        g.setupStart = 1;
        std::memcpy(g.startBoard, g.board, sizeof g.board);
        for (std::size_t at = 0; at < line.size(); at += 5)
            EXPECT_TRUE(PlayMove(g, line.substr(at, 4)));
        g.gameActive = g.gameDirty = 1;
        ShowMovesList(g, g.plyCount);
        return g;
    }

    static GameState g;
};

GameState Saving::g;

TEST_F(Saving, GameGoesUnderItsDefaultNameAndCountsAsSaved) {
    GameState& game = ExampleGame();
    Host().saveNames = {"="};
    game.SaveGame();
    ASSERT_EQ(Host().files.count(exampleName), 1u);
    EXPECT_EQ(Host().files[exampleName].size(), 321u);
    EXPECT_EQ(Host().files[exampleName], GameFileOf(game));
    EXPECT_EQ(Host().saveTitles, Strings{"Save game"});
    EXPECT_EQ(Host().messages, Strings{GameSavedText});
    EXPECT_EQ(game.gameDirty, 0);
    EXPECT_STREQ(saveFileName.Chars(), "[Player 1]-[Computer {Velok-3}]-[09_03_2007]-[14-35]");

    // Nothing new since: the second save is silent.
    Host().saveNames = {"="};
    game.SaveGame();
    EXPECT_EQ(Host().saveTitles.size(), 1u);
    EXPECT_EQ(Host().messages.size(), 1u);
}

TEST_F(Saving, GameGoesUnderTheNameTheUserGives) {
    GameState& game = ExampleGame();
    Host().saveNames = {"my game"};
    game.SaveGame();
    EXPECT_EQ(Host().files.count("my game.pgn"), 1u);
    EXPECT_EQ(Host().files.size(), 1u);
}

TEST_F(Saving, GameWithoutMovesOrFromASetUpPositionIsNotSaved) {
    GameState& game = ExampleGame();
    game.ResetGameState(ResetStartPosition);
    game.gameDirty = 1;
    Host().saveNames = {"="};
    game.SaveGame();
    EXPECT_TRUE(Host().saveTitles.empty());
    EXPECT_TRUE(Host().messages.empty());

    SetUpGame("4k3/8/8/8/8/8/8/R3K3 w", "a1a2");
    Host().saveNames = {"="};
    g.SaveGame();
    EXPECT_EQ(Host().messages, Strings{SetupGameRefusedText});
    EXPECT_TRUE(Host().saveTitles.empty());
    EXPECT_TRUE(Host().files.empty());
    EXPECT_EQ(g.gameDirty, 1);
}

TEST_F(Saving, CancelledOrFailedSaveLeavesTheGameUnsaved) {
    GameState& game = ExampleGame();
    game.SaveGame();
    EXPECT_EQ(Host().saveTitles.size(), 1u);
    EXPECT_TRUE(Host().files.empty());
    EXPECT_TRUE(Host().messages.empty());
    EXPECT_EQ(game.gameDirty, 1);

    Host().saveNames = {"="};
    Host().writeFails = true;
    game.SaveGame();
    EXPECT_EQ(Host().messages, Strings{WriteFailedText});
    EXPECT_EQ(game.gameDirty, 1);
}

TEST_F(Saving, GameFileHoldsEveryListedMoveWhateverRowIsShown) {
    GameState& game = ExampleGame();
    Host().lists[movesListWindow].selection = 3;
    Host().saveNames = {"="};
    game.SaveGame();
    const std::string& file = Host().files[exampleName];
    EXPECT_TRUE(file.ends_with(" 5. O-O Bg4 ")) << file;
}

TEST_F(Saving, ResultIsTheGameEndsWhateverRowIsShown) {
    ASSERT_TRUE(PlayLine(g, "f2f3 e7e5 g2g4 d8h4"));
    g.gameActive = g.gameDirty = 1;
    ShowMovesList(g, g.plyCount);
    SelectListRow(g, previewGame, movesListWindow); // the last row: nothing hidden
    Host().lists[movesListWindow].selection = 1;
    SelectListRow(g, previewGame, movesListWindow);
    ASSERT_GT(g.pliesNotShown, 0);
    Host().saveNames = {"="};
    g.SaveGame();
    ASSERT_EQ(Host().files.size(), 1u);
    EXPECT_NE(Host().files.begin()->second.find("[Result \"0 - 1\"]"), std::string::npos)
        << Host().files.begin()->second;
}

TEST_F(Saving, OfferIsMadeOnlyForAnActiveUnsavedGame) {
    GameState& game = ExampleGame();
    game.gameActive = 0;
    game.OfferToSave();
    game.gameActive = 1;
    game.gameDirty = 0;
    game.OfferToSave();
    EXPECT_TRUE(Host().questions.empty());
    EXPECT_EQ(game.gameDirty, 0);
}

TEST_F(Saving, OfferAnsweredYesSavesTheGame) {
    GameState& game = ExampleGame();
    Host().yesNoAnswers = {1};
    Host().saveNames = {"="};
    game.OfferToSave();
    EXPECT_EQ(Host().questions, Strings{SaveGameQuestion});
    EXPECT_EQ(Host().questionDefaults, std::vector<AskDefault>{DefaultYes});
    EXPECT_EQ(Host().files.count(exampleName), 1u);
    EXPECT_EQ(game.gameDirty, 0);
}

TEST_F(Saving, OfferAnsweredNoLetsTheGameGo) {
    GameState& game = ExampleGame();
    Host().yesNoAnswers = {0};
    game.OfferToSave();
    EXPECT_TRUE(Host().saveTitles.empty());
    EXPECT_EQ(game.gameDirty, 0);
}

TEST_F(Saving, OfferInASetUpGameSavesItsBeginPosition) {
    SetUpGame("4k3/8/8/8/8/8/8/R3K3 b", "e8d8 a1a8 d8e7");
    g.board[0][0].mark = MarkTo;
    g.startBoard[0][0].mark = MarkNone;
    Host().yesNoAnswers = {1};
    Host().saveNames = {"="};
    g.OfferToSave();
    EXPECT_EQ(Host().questions, Strings{SaveBeginPositionQuestion});
    EXPECT_EQ(Host().questionDefaults, std::vector<AskDefault>{DefaultYes});
    EXPECT_EQ(Host().lists[movesListWindow].selection, 0);
    EXPECT_EQ(Host().windowRepaints, 1);
    EXPECT_EQ(g.board[0][0].piece, Rook);
    EXPECT_EQ(g.board[7][0].piece, PieceNone);
    EXPECT_EQ(g.board[0][0].mark, MarkTo);
    EXPECT_EQ(g.plyCount, 3);
    EXPECT_EQ(Host().saveTitles, Strings{"Save position"});
    EXPECT_EQ(Host().files[positionName], "4k3/8/8/8/8/8/8/R3K3 b - - 0 0\"");
    EXPECT_EQ(Host().messages, Strings{PositionSavedText});
    EXPECT_EQ(g.gameDirty, 0);
}

TEST_F(Saving, OfferInASetUpGameAnsweredNoLetsItGo) {
    SetUpGame("4k3/8/8/8/8/8/8/R3K3 w", "a1a2");
    Host().yesNoAnswers = {0};
    g.OfferToSave();
    EXPECT_EQ(Host().questions, Strings{SaveBeginPositionQuestion});
    EXPECT_TRUE(Host().files.empty());
    EXPECT_EQ(Host().windowRepaints, 0);
    EXPECT_EQ(g.gameDirty, 0);
}

TEST_F(Saving, PositionOfTheShownRowWithItsSideToMove) {
    EXPECT_TRUE(PlayLine(g, "e2e4 e7e5 g1f3"));
    g.gameActive = g.gameDirty = 1;
    // The shell shows row 2 by putting its position on the board.
    static GameState row2;
    ASSERT_TRUE(PlayLine(row2, "e2e4 e7e5"));
    std::memcpy(g.board, row2.board, sizeof g.board);
    ShowMovesList(g, 2);
    Host().saveNames = {"="};
    g.SavePosition();
    EXPECT_EQ(Host().files[positionName], "rnbqkbnr/pppp1ppp/8/4p3/4P3/8/PPPP1PPP/RNBQKBNR w - - 0 0\"");
    EXPECT_EQ(Host().saveTitles, Strings{"Save game"});
    EXPECT_EQ(Host().messages, Strings{PositionSavedText});
    EXPECT_EQ(g.gameDirty, 1);

    Host().lists[movesListWindow].selection = 3;
    Host().saveNames = {"="};
    g.SavePosition();
    EXPECT_TRUE(Host().files[positionName].ends_with(" b - - 0 0\"")) << Host().files[positionName];
}

TEST_F(Saving, SetUpGameCountsRowsFromItsFirstMover) {
    SetUpGame("4k3/8/8/8/8/8/8/R3K3 b", "e8d8 a1a8");
    Host().lists[movesListWindow].selection = 1;
    Host().saveNames = {"="};
    g.SavePosition();
    EXPECT_TRUE(Host().files[positionName].ends_with(" w - - 0 0\"")) << Host().files[positionName];
    EXPECT_EQ(g.gameDirty, 1);

    Host().lists[movesListWindow].selection = 0;
    Host().saveNames = {"="};
    g.SavePosition();
    EXPECT_TRUE(Host().files[positionName].ends_with(" b - - 0 0\"")) << Host().files[positionName];
    EXPECT_EQ(g.gameDirty, 0);
}

TEST_F(Saving, FinishedPositionIsSavedOnlyOnPurpose) {
    EXPECT_TRUE(PlayLine(g, "f2f3 e7e5 g2g4 d8h4"));
    ShowMovesList(g, g.plyCount);
    g.SavePosition();
    EXPECT_EQ(Host().questions, Strings{GameOverWarning});
    EXPECT_EQ(Host().questionDefaults, std::vector<AskDefault>{DefaultNo});
    EXPECT_TRUE(Host().saveTitles.empty());

    Host().yesNoAnswers = {1};
    Host().saveNames = {"="};
    g.SavePosition();
    EXPECT_EQ(Host().files.count(positionName), 1u);
}

TEST_F(Saving, FailedPositionWriteIsToldAndChangesNothing) {
    SetUpGame("4k3/8/8/8/8/8/8/R3K3 w", "a1a2");
    Host().lists[movesListWindow].selection = 0;
    Host().saveNames = {"="};
    Host().writeFails = true;
    g.SavePosition();
    EXPECT_EQ(Host().messages, Strings{WriteFailedText});
    EXPECT_EQ(g.gameDirty, 1);
}

} // namespace
