// The moves list as the way through a game: replaying a row's position onto the board, returning
// to the end, and cutting the game at a row when a move is played there.
#include "core/navigation.h"

#include <cstring>

#include "core/replay.h"

namespace {

// A played game is shown by rows 0 to plyCount; a game from a set-up position keeps its later
// records after a step back, but never more than the history can hold.
Word ShowableRow(const GameState& state, Word r) {
    const Word last = state.setupStart ? MaxGamePlies : state.plyCount;
    return r < last ? r : last;
}

// Puts the position of row r on the board of `state`, whole cells, so that every mark and
// legal-target flag goes with the old position.
void ShowRow(GameState& state, GameState& workspace, Word r) {
    r = ShowableRow(state, r);
    ReplayToRow(state, r, workspace);
    if (state.setupStart) {
        state.sideToMove = state.SideAtListIndex(r);
        state.plyCount = r;
        state.pliesNotShown = 0;
    } else {
        state.pliesNotShown = state.plyCount - r;
    }
    std::memcpy(static_cast<void*>(state.board), workspace.board, sizeof state.board);
    HostRepaintWindow(true);
}

} // namespace

void ReplayToRow(const GameState& source, Word r, GameState& workspace) {
    ReplayPlies(source, r, workspace);
}

void SelectListRow(GameState& state, GameState& workspace, ListHandle list) {
    const Word r = HostListSelection(list);
    if (r < 0) return;
    // The think plays on the board that is shown, so while the computer's move is due or being
    // found the list stays on the last row and the board on the game's end. During the search
    // itself the board is the search's, and only the list is put back.
    if (state.thinking) {
        HostListSelect(list, HostListCount(list) - 1);
        return;
    }
    if (state.thinkPending) {
        ReturnToLastRow(state, workspace, list);
        return;
    }
    ShowRow(state, workspace, r);
}

void ReturnToLastRow(GameState& state, GameState& workspace, ListHandle list) {
    const Word last = HostListCount(list) - 1;
    if (last < 0) return;
    HostListSelect(list, last);
    ShowRow(state, workspace, last);
}

void TakeBackToRow(GameState& state, Word r) {
    state.plyCount = r;
    state.sideToMove = state.SideAtListIndex(r);
    state.pliesNotShown = 0;
}
