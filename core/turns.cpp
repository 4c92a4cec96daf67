// PlayChosenMove: a human's move, handed over as the two cell marks, played and recorded, and the
// turn passed on to the other side, or to nobody when the game is over.
#include "core/game_state.h"

void GameState::PlayChosenMove(const ListHandle* listHandle) {
    // The history is full: the game has ended drawn, and no record is left to write into.
    if (plyCount >= MaxGamePlies) return;
    // Steps 1 and 2.
    Word fromFile = 0, fromRow = 0, toFile = 0, toRow = 0;
    if (!FindMarkedCell(MarkFrom, fromFile, fromRow)) return;
    if (!FindMarkedCell(MarkTo, toFile, toRow)) return;
    // Step 3.
    ClearMarks(MarkNone);
    // Steps 4 and 5. A human promotes through the dialog; the queen is only for a computer side.
    MakeMove(&history[plyCount], fromFile, fromRow, toFile, toRow, AskPromotion, Queen);
    ++plyCount;
    // Step 6.
    RebuildMovesList(listHandle);
    // Step 7. A game from a set-up position was marked unsaved when the position was confirmed.
    if (setupStart == 0) gameDirty = 1;
    // Steps 8 and 9.
    sideToMove = Opposite(sideToMove);
    HostRepaintWindow(false);
    // Step 10. An ended game has shown its message and asks nobody to move.
    if (CheckGameEnd(sideToMove, ShowMessage) != GameGoesOn) return;
    // Step 11.
    if (sides[sideToMove].kind == SideComputer) thinkPending = 1;
}
