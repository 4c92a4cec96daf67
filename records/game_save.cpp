// Saving a game from the Game menu, and the offer to save before a game is left: the decisions
// around the game file, with the user's answers and the file itself going through the host.
#include "records/game_file.h"
#include "records/position_file.h"

#include "core/navigation.h"

Text saveFileName;

namespace {

// Rows of the moves list that stand for moves. Without a list there is nothing but the history;
// a list can never show more moves than the game holds.
Word ListedMoveCount(const GameState& state) {
    if (movesListWindow == nullptr) return state.plyCount;
    const Word listed = HostListCount(movesListWindow) - 1;
    if (listed < 0) return 0;
    return listed < state.plyCount ? listed : state.plyCount;
}

// How the game stands at its end. While the board shows an earlier row, the end is rebuilt in
// the work space, so that the result is the game's and not that of the row on display.
Word GameEndForFile(GameState& state) {
    if (state.pliesNotShown == 0) return state.CheckGameEnd(state.sideToMove, NoMessage);
    ReplayToRow(state, state.plyCount, previewGame);
    return previewGame.CheckGameEnd(state.sideToMove, NoMessage);
}

} // namespace

void GameState::SaveGame() {
    // Nothing new, a set-up game, or no moves.
    if (!gameDirty) return;
    if (setupStart) {
        HostShowMessage(SetupGameRefusedText);
        return;
    }
    if (plyCount == 0) return;

    // The text, with the date and time read once for the file and its name.
    const LocalTime now = HostLocalTime();
    Text file = GameFileHeader(*this, now, ResultText(GameEndForFile(*this), sideToMove));
    file.AppendText(GameFileMoves(*this, ListedMoveCount(*this)));

    // The name, which the user may change.
    char shortDate[127];
    HostShortDate(shortDate, sizeof shortDate);
    saveFileName = DefaultGameFileName(*this, shortDate, now);
    if (!HostAskSaveName(saveFileName, SaveDialogTitle(*this))) return;

    // The file, and only when it is really there does the game count as saved.
    Text fileName(saveFileName);
    fileName.Append(".pgn");
    if (!HostWriteSaveFile(fileName.Chars(), file.Chars(), file.Length())) {
        HostShowMessage(WriteFailedText);
        return;
    }
    gameDirty = 0;
    HostShowMessage(GameSavedText);
}

void GameState::OfferToSave() {
    if (!gameActive || !gameDirty) return;
    if (!setupStart) {
        if (HostAskYesNo(SaveGameQuestion, DefaultYes))
            SaveGame();
        else
            gameDirty = 0;
        return;
    }
    // A set-up game is kept as its begin position: show row 0 and save what it shows.
    if (!HostAskYesNo(SaveBeginPositionQuestion, DefaultYes)) {
        gameDirty = 0;
        return;
    }
    if (movesListWindow != nullptr) HostListSelect(movesListWindow, 0);
    for (Word row = 0; row < 8; ++row)
        for (Word file = 0; file < 8; ++file) {
            board[row][file].piece = startBoard[row][file].piece;
            board[row][file].colour = startBoard[row][file].colour;
        }
    HostRepaintWindow(true);
    SavePosition();
}
