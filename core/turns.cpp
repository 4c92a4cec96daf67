// PlayChosenMove: a human's move, handed over as the two cell marks, played and recorded, and the
// turn passed on to the other side, or to nobody when the game is over.
#include "core/game_state.h"

void GameState::PlayChosenMove(const ListHandle* listHandle) {
    // The history is full: the game has ended drawn, and no record is left to write into.
    if (plyCount >= MaxGamePlies) return;
    // The move is where the two marks stand; without both there is nothing to play.
    Word fromFile = 0, fromRow = 0, toFile = 0, toRow = 0;
    if (!FindMarkedCell(MarkFrom, fromFile, fromRow)) return;
    if (!FindMarkedCell(MarkTo, toFile, toRow)) return;
    // The marks have served their purpose once the move is known.
    ClearMarks(MarkNone);
    // A human promotes through the dialog; the queen is only for a computer side.
    MakeMove(&history[CheckedIndex(plyCount, HistoryCapacity)], fromFile, fromRow, toFile, toRow,
             AskPromotion, Queen);
    ++plyCount;
    RebuildMovesList(listHandle);
    // A game from a set-up position was marked unsaved when the position was confirmed.
    if (setupStart == 0) gameDirty = 1;
    // The other side's turn, shown at once.
    sideToMove = Opposite(sideToMove);
    HostRepaintWindow(false);
    // An ended game has shown its message and asks nobody to move.
    if (CheckGameEnd(sideToMove, ShowMessage) != GameGoesOn) return;
    // A computer side starts its think at the next tick.
    if (sides[sideToMove].kind == SideComputer) thinkPending = 1;
}
