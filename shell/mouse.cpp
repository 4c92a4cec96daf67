// Two-click play: a release of the play button on an own piece selects it and shows its
// targets, a release on a target hands the move to the game, anything else is refused by a mark.
#include "core/game_state.h"
#include "core/navigation.h"
#include "records/settings.h"
#include "shell/board_geometry.h"
#include "shell/main_window.h"
#include "shell/set_position.h"
#include "shell/shell_state.h"

namespace {

// Repaints the whole window with erase.
void RepaintAll() {
    InvalidateRect(shellState.mainWindow, nullptr, TRUE);
}

// Selects the piece clicked, or deselects it when it was the selected one; a piece that cannot
// move is not selected, but the click still ends a former selection.
void SelectOwnPiece(Word side, Word file, Word row) {
    BoardCell& cell = game.board[row][file];
    const Word old = cell.mark;
    game.ClearMarks(MarkNone);
    if (old == MarkNone) {
        game.MarkLegalTargets(side, file, row);
        if (game.legalTargetCount != 0) cell.mark = MarkFrom;
    }
    RepaintAll();
}

// With a piece selected: plays the move to a legal target, from list row r on, or refuses
// the square with a short-lived mark.
void ClickTarget(Word side, Word file, Word row, Word r) {
    BoardCell& cell = game.board[row][file];
    if (cell.legalTarget) {
        if (!(r == game.plyCount && game.CheckGameEnd(side, NoMessage) != GameGoesOn)) {
            cell.mark = MarkTo;
            TakeBackToRow(game, r);
            game.PlayChosenMove(&movesListWindow);
            UpdateMenuState();
        }
    } else {
        game.ClearMarks(MarkRefused);
        cell.mark = MarkRefused;
    }
    RepaintAll();
}

} // namespace

// A click in play or analysis, for `side`, the side to move at list row r of rowCount rows.
void OnPlayClick(UINT message, Word file, Word row, Word r, Word rowCount, Word side) {
    if (!game.gameActive) return;
    if (rowCount == r + 1 && game.CheckGameEnd(side, NoMessage) != GameGoesOn) return;
    if (game.sides[side].kind != SideHuman || message != shellState.playButtonMessage) return;
    const BoardCell& cell = game.board[row][file];
    if (cell.piece != PieceNone && cell.colour == side) {
        SelectOwnPiece(side, file, row);
        return;
    }
    Word fromFile = 0, fromRow = 0;
    if (game.FindMarkedCell(MarkFrom, fromFile, fromRow)) ClickTarget(side, file, row, r);
}

// Turns a button release into a square and the list row in view, and passes it on to play.
void OnBoardClick(UINT message, LPARAM lParam) {
    const int x = LOWORD(lParam), y = HIWORD(lParam);
    Word file = 0, row = 0;
    const bool onBoard = HitTestSquare(displaySettings, x, y, file, row);
    const Word r = static_cast<Word>(SendMessageA(shellState.movesListWindow, LB_GETCURSEL, 0, 0));
    const Word rowCount = static_cast<Word>(SendMessageA(shellState.movesListWindow, LB_GETCOUNT, 0, 0));
    if (r < 0) return;
    const Word side = game.SideAtListIndex(r);
    if (!onBoard) return;
    if (game.setupMode) {
        OnSetupClick(message, file, row, r);
        return;
    }
    OnPlayClick(message, file, row, r, rowCount, side);
}
