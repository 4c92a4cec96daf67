// The load dialog's rules: what the preview makes of a selected file's bytes, which buttons the
// dialog allows, what a load makes of the game, and where the preview's tiles come from.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "double/host_double.h"
#include "records/game_file.h"
#include "records/load_file.h"
#include "records/position_file.h"
#include "shell/board_geometry.h"
#include "support/board_setup.h"
#include "support/record_games.h"

namespace {

using Strings = std::vector<std::string>;

// The bytes of a file that opened, whole.
SelectedFile Opened(const std::string& bytes) {
    return SelectedFile{true, static_cast<std::uint32_t>(bytes.size()), bytes.data()};
}

// Piece and colour of every occupied cell, rank 8 first, as a FEN-like picture for messages.
std::string Picture(const BoardCell (&board)[8][8]) {
    std::string picture;
    for (Word row = 7; row >= 0; --row) {
        for (Word file = 0; file < 8; ++file) {
            const BoardCell& cell = board[row][file];
            const char letter = ".PNBRQK"[cell.piece];
            picture +=
                cell.piece != PieceNone && cell.colour == Black ? static_cast<char>(letter + 32) : letter;
        }
        if (row > 0) picture += '/';
    }
    return picture;
}

// Ten moves of a running game between Player 1 and the computer at level 2.
constexpr const char* ExampleLine = "e2e4 e7e5 g1f3 b8c6 f1b5 a7a6 b5c6 d7c6 e1g1 c8g4";

// The knights out and home again, 100 times: the longest game a file holds.
std::string LongestGameLine() {
    std::string line;
    for (int lap = 0; lap < 100; ++lap)
        line += "g1f3 g8f6 f3g1 f6g8 ";
    return line;
}

class LoadFile : public ::testing::Test {
  protected:
    void SetUp() override {
        ResetHost();
        source.ResetGameState(ResetStartPosition);
        preview.ResetGameState(ResetStartPosition);
        target.ResetGameState(ResetStartPosition);
    }
    void TearDown() override { movesListWindow = nullptr; }

    // The example game with its names, kinds, clocks and level, as the writer saves it.
    std::string ExampleFile() {
        EXPECT_TRUE(PlayLine(source, ExampleLine));
        std::strcpy(source.sides[White].name, "Player 1");
        std::strcpy(source.sides[Black].name, ComputerName);
        source.sides[Black].kind = SideComputer;
        source.level = 2;
        source.sides[White].clockSeconds = 65;
        source.sides[Black].clockSeconds = 12;
        return GameFileOf(source);
    }

    // Rows the moves list shows for `state`, written into a list of their own.
    static Strings RowsOf(GameState& state) {
        static int otherList = 0;
        ListHandle other = &otherList;
        state.RebuildMovesList(&other);
        return Host().lists[other].rows;
    }

    static GameState source, preview, target;
    ListHandle list = &testMovesList;
};

GameState LoadFile::source, LoadFile::preview, LoadFile::target;

// ---- What the preview shows for a selected file ----

TEST_F(LoadFile, GameFileShowsThePositionItsMovesReach) {
    PreviewSelectedFile(preview, LoadGames, Opened(ExampleFile()));
    EXPECT_STREQ(preview.previewStatus.Chars(), "");
    EXPECT_EQ(Picture(preview.board), Picture(source.board));
    EXPECT_EQ(preview.plyCount, 10);
}

TEST_F(LoadFile, FileOfExactlyTheLimitIsReadToItsLastByte) {
    // Blanks between the tags and the moves, so that the blank which ends the last move is the
    // 4096th byte: a reader that lost it would not take that move.
    const std::string file = ExampleFile();
    const std::size_t movesAt = file.rfind('}') + 1;
    std::string padded =
        file.substr(0, movesAt) + std::string(MaxLoadFileBytes - file.size(), ' ') + file.substr(movesAt);
    ASSERT_EQ(padded.size(), 4096u);
    ASSERT_EQ(padded.back(), ' ');
    PreviewSelectedFile(preview, LoadGames, Opened(padded));
    EXPECT_STREQ(preview.previewStatus.Chars(), "");
    EXPECT_EQ(preview.plyCount, 10);
    EXPECT_EQ(Picture(preview.board), Picture(source.board));
}

TEST_F(LoadFile, OneByteOverTheLimitIsRefusedAndKeepsTheLastBoard) {
    std::string file = ExampleFile();
    PreviewSelectedFile(preview, LoadGames, Opened(file));
    const std::string shownBefore = Picture(preview.board);

    file.append(MaxLoadFileBytes + 1 - file.size(), ' ');
    PreviewSelectedFile(preview, LoadGames, Opened(file));
    EXPECT_STREQ(preview.previewStatus.Chars(), FileTooBigText);
    EXPECT_EQ(Picture(preview.board), shownBefore);

    // The size alone decides: a file too long is not read, so no bytes come with it.
    PreviewSelectedFile(preview, LoadPositions, SelectedFile{true, 1u << 20, nullptr});
    EXPECT_STREQ(preview.previewStatus.Chars(), FileTooBigText);
}

TEST_F(LoadFile, TextEndsAtTheFirstZeroByte) {
    std::string file = "[White \"Ann\"]\r\n\r\n1. e4 e5 ";
    file += '\0';
    file += "2. Nf3 Nc6 [FEN \"x\"]";
    PreviewSelectedFile(preview, LoadGames, Opened(file));
    EXPECT_STREQ(preview.previewStatus.Chars(), "");
    EXPECT_EQ(preview.plyCount, 2);
    EXPECT_STREQ(preview.sides[White].name, "Ann");
}

TEST_F(LoadFile, FileThatDoesNotOpenOnlySetsTheStatus) {
    PreviewSelectedFile(preview, LoadGames, Opened(ExampleFile()));
    PreviewSelectedFile(preview, LoadGames, SelectedFile{false, 0, nullptr});
    EXPECT_STREQ(preview.previewStatus.Chars(), ErrorOpenFileText);
    EXPECT_EQ(preview.plyCount, 10);
}

TEST_F(LoadFile, EmptyFileIsAGameWithNoMovesOrAPositionWithNoKings) {
    PreviewSelectedFile(preview, LoadGames, Opened(""));
    EXPECT_STREQ(preview.previewStatus.Chars(), "");
    EXPECT_EQ(preview.plyCount, 0);
    EXPECT_STREQ(preview.sides[Black].name, "Player 2");

    PreviewSelectedFile(preview, LoadPositions, Opened(""));
    EXPECT_STREQ(preview.previewStatus.Chars(), GameOverText);
}

TEST_F(LoadFile, GameFromASetUpPositionIsNoGameFile) {
    PreviewSelectedFile(preview, LoadGames, Opened("[FEN \"8/8/8/8/8/8/8/8 w\"]\r\n\r\n1. e4 "));
    EXPECT_STREQ(preview.previewStatus.Chars(), NotBeginPositionText);
}

TEST_F(LoadFile, PositionFilesAreReadByTheirKindAndRefusedWhenImpossibleOrOver) {
    const std::string blackToMove = "rnbqkbnr/pppp1ppp/8/4p3/4P3/5N2/PPPP1PPP/RNBQKB1R b - - 0 0\"";
    PreviewSelectedFile(preview, LoadPositions, Opened(blackToMove));
    EXPECT_STREQ(preview.previewStatus.Chars(), "");
    EXPECT_EQ(preview.sideToMove, Black);
    EXPECT_EQ(Picture(preview.board),
              "rnbqkbnr/pppp.ppp/......../....p.../....P.../.....N../PPPP.PPP/RNBQKB.R");

    // The same line read as a game has no dot, so it is the start position.
    PreviewSelectedFile(preview, LoadGames, Opened(blackToMove));
    EXPECT_EQ(Picture(preview.board),
              "rnbqkbnr/pppppppp/......../......../......../......../PPPPPPPP/RNBQKBNR");

    PreviewSelectedFile(preview, LoadPositions, Opened("4k2P/8/8/8/8/8/8/4K3 w - - 0 0\""));
    EXPECT_STREQ(preview.previewStatus.Chars(), " Error position");
    PreviewSelectedFile(preview, LoadPositions, Opened("4k3/8/8/8/8/8/8/4K3 w - - 0 0\""));
    EXPECT_STREQ(preview.previewStatus.Chars(), " Game over");
}

// ---- Which buttons the dialog allows ----

TEST_F(LoadFile, EmptyFolderSaysFileNotFoundWithBothButtonsOff) {
    preview.previewStatus = Text(FileNotSelectedText);
    const LoadButtons buttons = LoadButtonStates(preview, 0, -1);
    EXPECT_FALSE(buttons.loadEnabled);
    EXPECT_FALSE(buttons.deleteEnabled);
    EXPECT_STREQ(preview.previewStatus.Chars(), FileNotFoundText);
}

TEST_F(LoadFile, ParsedFileAllowsLoadAndDelete) {
    PreviewSelectedFile(preview, LoadGames, Opened(ExampleFile()));
    const LoadButtons buttons = LoadButtonStates(preview, 3, 1);
    EXPECT_TRUE(buttons.loadEnabled);
    EXPECT_TRUE(buttons.deleteEnabled);
    EXPECT_STREQ(preview.previewStatus.Chars(), "");
}

TEST_F(LoadFile, RefusedOrUnselectedFileAllowsNoLoadAndDeleteOnlyWithARow) {
    preview.previewStatus = Text(FileNotSelectedText);
    LoadButtons buttons = LoadButtonStates(preview, 2, -1);
    EXPECT_FALSE(buttons.loadEnabled);
    EXPECT_FALSE(buttons.deleteEnabled);
    EXPECT_STREQ(preview.previewStatus.Chars(), FileNotSelectedText);

    PreviewSelectedFile(preview, LoadPositions, Opened("8/8/8/8/8/8/8/8 w"));
    buttons = LoadButtonStates(preview, 2, 0);
    EXPECT_FALSE(buttons.loadEnabled);
    EXPECT_TRUE(buttons.deleteEnabled);
}

// ---- What a load makes of the game ----

TEST_F(LoadFile, SavedGameLoadsBackWithItsListNamesClocksAndLevel) {
    // Saved through the game's own Save, with the list of the running game beside it.
    ExampleFile();
    source.gameActive = source.gameDirty = 1;
    ShowMovesList(source, source.plyCount);
    Host().saveNames = {"mine"};
    source.SaveGame();
    ASSERT_EQ(Host().files.count("mine.pgn"), 1u);
    const std::string saved = Host().files["mine.pgn"];

    PreviewSelectedFile(preview, LoadGames, Opened(saved));
    const int repaints = Host().windowRepaints;
    LoadPreviewedGame(target, preview, LoadGames, &list);

    EXPECT_EQ(Host().lists[list].rows, RowsOf(source));
    EXPECT_EQ(Host().lists[list].selection, 10);
    EXPECT_EQ(Picture(target.board), Picture(source.board));
    EXPECT_STREQ(target.sides[White].name, "Player 1");
    EXPECT_STREQ(target.sides[Black].name, ComputerName);
    EXPECT_EQ(target.sides[Black].kind, SideComputer);
    EXPECT_EQ(target.sides[White].kind, SideHuman);
    EXPECT_EQ(target.sides[White].clockSeconds, 65);
    EXPECT_EQ(target.sides[Black].clockSeconds, 12);
    EXPECT_EQ(target.level, 2);
    EXPECT_EQ(target.sideToMove, White);
    EXPECT_EQ(target.gameActive, 1);
    EXPECT_EQ(target.gameDirty, 0);
    EXPECT_EQ(target.thinkPending, 0);
    EXPECT_EQ(Host().windowRepaints, repaints + 1);

    // Nothing new to save: leaving the loaded game asks nothing.
    target.OfferToSave();
    EXPECT_TRUE(Host().questions.empty());
}

TEST_F(LoadFile, SideToMoveComesFromThePliesOfTheFile) {
    // After the 400th ply the reader's turn stands at Black, the colour of the last token tried.
    ASSERT_TRUE(PlayLine(source, LongestGameLine()));
    PreviewSelectedFile(preview, LoadGames, Opened(GameFileOf(source)));
    ASSERT_EQ(preview.plyCount, 400);
    LoadPreviewedGame(target, preview, LoadGames, &list);
    EXPECT_EQ(target.sideToMove, White);
    EXPECT_EQ(Host().lists[list].rows.size(), 401u);

    // 31 plies: Black to move.
    ASSERT_TRUE(PlayLine(source, LongestGameLine().substr(0, 31 * 5)));
    PreviewSelectedFile(preview, LoadGames, Opened(GameFileOf(source)));
    LoadPreviewedGame(target, preview, LoadGames, &list);
    EXPECT_EQ(target.plyCount, 31);
    EXPECT_EQ(target.sideToMove, Black);
}

TEST_F(LoadFile, PositionLoadsAsTheStartOfAnAnalysisForTwoPeople) {
    PreviewSelectedFile(preview, LoadPositions, Opened("4k3/8/8/8/8/8/q7/4K3 b - - 0 0\""));
    ASSERT_STREQ(preview.previewStatus.Chars(), "");
    LoadPreviewedGame(target, preview, LoadPositions, &list);

    EXPECT_EQ(Host().lists[list].rows, Strings{" 0."});
    EXPECT_EQ(Host().lists[list].selection, 0);
    EXPECT_EQ(target.setupStart, 1);
    EXPECT_EQ(target.setupMode, 0);
    EXPECT_EQ(target.sideToMove, Black);
    EXPECT_EQ(target.setupFirstMover, Black);
    EXPECT_EQ(target.plyCount, 0);
    EXPECT_EQ(Picture(target.startBoard), Picture(target.board));
    EXPECT_EQ(target.sides[White].kind, SideHuman);
    EXPECT_EQ(target.sides[Black].kind, SideHuman);
    EXPECT_STREQ(target.sides[White].name, "");
    EXPECT_EQ(target.gameActive, 1);
    EXPECT_EQ(target.gameDirty, 0);
    EXPECT_EQ(target.loadDialogKind, LoadPositions);
}

TEST_F(LoadFile, LoadLeavesNothingOfTheGameBefore) {
    // An analysis in set-up with a computer move pending and unsaved work.
    target.setupStart = target.setupMode = 1;
    target.thinkPending = target.gameDirty = 1;
    target.sides[White].kind = SideComputer;
    target.sides[White].clockSeconds = 999;
    target.previewStatus = Text("old");

    PreviewSelectedFile(preview, LoadGames, Opened("1. d4 d5 "));
    LoadPreviewedGame(target, preview, LoadGames, &list);
    EXPECT_EQ(target.setupStart, 0);
    EXPECT_EQ(target.setupMode, 0);
    EXPECT_EQ(target.thinkPending, 0);
    EXPECT_EQ(target.sides[White].kind, SideHuman);
    EXPECT_EQ(target.sides[White].clockSeconds, 0);
    EXPECT_EQ(target.plyCount, 2);
    EXPECT_STREQ(target.previewStatus.Chars(), "");

    // The game owns its texts: the preview's next parse leaves it alone.
    PreviewSelectedFile(preview, LoadGames, Opened("[FEN"));
    EXPECT_STREQ(target.previewStatus.Chars(), "");
}

// ---- Where the preview's tiles come from ----

TEST_F(LoadFile, PreviewTilesAreTheMainBoardsTilesAtHalfSize) {
    // The main board seen from White's side, with no marks, draws the same tiles at 64 pixels.
    ASSERT_TRUE(PlayLine(source, ExampleLine));
    for (auto& cells : source.board)
        for (BoardCell& cell : cells)
            cell.mark = cell.legalTarget = 0;
    const DisplaySettings settings;
    const BoardViewFacts facts{-1, false, White, false, -1, -1};
    for (int i = 0; i < 8; ++i)
        for (int j = 0; j < 8; ++j) {
            Word file = 0, row = 0;
            ScreenToBoard(i, j, 0, file, row);
            const BoardCell& cell = source.board[row][file];
            const SkinTile tile = PreviewTile(cell, file, row);
            const int column = TileColumnOf(source, settings, facts, i, j, file, row);
            EXPECT_EQ(tile.x, column * 32) << SquareName(file, row);
            EXPECT_EQ(tile.y, cell.piece * 32) << SquareName(file, row);
        }
}

} // namespace
