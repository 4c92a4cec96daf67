// The cell marks through which a chosen move travels, and the side to move at a row of the
// moves list. MakeMove and TakeBackMove are inline in core/moves.h.
#include "core/game_state.h"

void GameState::ClearMarks(Word value) {
    for (auto& cells : board)
        for (BoardCell& cell : cells)
            if (value == MarkNone || cell.mark == value) cell.mark = MarkNone;
}

Word GameState::FindMarkedCell(Word value, Word& outFile, Word& outRow) const {
    for (Word row = 0; row < 8; ++row)
        for (Word file = 0; file < 8; ++file)
            if (board[row][file].mark == value) {
                outFile = file;
                outRow = row;
                return 1;
            }
    return 0;
}

Word GameState::SideAtListIndex(Word r) const {
    const Word odd = r & 1;  // -1 counts as odd
    const Word reversed = setupStart && setupFirstMover == Black;
    return odd ^ reversed;
}
