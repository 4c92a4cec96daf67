// The moves list of the main window as the way through the game: a new selection, by mouse or by
// the cursor keys, puts that row's position on the board.
#include "core/navigation.h"
#include "shell/main_window.h"

// Handles a notification of the moves list outside set-position mode; only a change of the
// selection does anything.
void OnMovesListNotify(WORD code) {
    if (code != LBN_SELCHANGE) return;
    SelectListRow(game, previewGame, movesListWindow);
}
