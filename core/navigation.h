// Walking through a game in its moves list: a selected row puts its position on the board, and a
// move made there takes back everything behind it. History is rebuilt by replay, never by undo.
#pragma once

#include "core/game_state.h"

// Rebuilds in `workspace` the position after the first r records of `source`: from the start
// position, or from the set-up position of a game that began with one.
void ReplayToRow(const GameState& source, Word r, GameState& workspace);

// Reaction to a new selection in the moves list `list`: the board of `state` shows the position
// of the selected row, replayed in `workspace`, and any selection on the board ends. A played
// game keeps its end (plyCount, side to move) until a move is made from the row; a game from a
// set-up position takes the row as its end at once and keeps the records behind it.
void SelectListRow(GameState& state, GameState& workspace, ListHandle list);

// Selects the last row of `list` and shows its position, as a user's selection of it would.
void ReturnToLastRow(GameState& state, GameState& workspace, ListHandle list);

// Makes row r, whose position the board shows, the end of the game just before a move is handed
// over from it: the move is then recorded at index r and the rows behind it go.
void TakeBackToRow(GameState& state, Word r);
