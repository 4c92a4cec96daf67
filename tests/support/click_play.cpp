// Moves played as a pair of clicks, for the tests of whole games: the selection, the two marks
// and PlayChosenMove, with the list control held by the host double.
#include "support/click_play.h"

#include <cstring>

#include "double/host_double.h"
#include "support/board_setup.h"

namespace {
int listControl;
}

ListHandle clickList = &listControl;

bool ClickMove(GameState& state, const std::string& move) {
    const Word fromFile = move[0] - 'a', fromRow = move[1] - '1', toFile = move[2] - 'a',
               toRow = move[3] - '1';
    state.MarkLegalTargets(state.sideToMove, fromFile, fromRow);
    if (state.legalTargetCount == 0 || !state.board[toRow][toFile].legalTarget) return false;
    state.board[fromRow][fromFile].mark = MarkFrom;
    state.board[toRow][toFile].mark = MarkTo;
    state.PlayChosenMove(&clickList);
    return true;
}

std::size_t ClickMoves(GameState& state, const std::vector<std::string>& moves) {
    std::size_t played = 0;
    while (played < moves.size() && ClickMove(state, moves[played]))
        ++played;
    return played;
}

void SetUpGame(GameState& state, const std::string& fen) {
    SetUpBoard(state, fen);
    state.setupStart = 1;
    state.gameActive = 1;
    std::memcpy(static_cast<void*>(state.startBoard), state.board, sizeof state.startBoard);
}

const std::vector<std::string>& ClickListRows() {
    return Host().lists[clickList].rows;
}
int ClickListSelection() {
    return Host().lists[clickList].selection;
}
