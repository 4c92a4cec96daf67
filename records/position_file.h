// Position files: the one-line board and side to move of a saved position, and the status texts
// the load dialog shows for a position it refuses.
#pragma once

#include "core/game_state.h"
#include "records/text.h"

inline constexpr const char* PositionSavedText = "Position saved";
inline constexpr const char* SaveBeginPositionQuestion = "Save begin position?";
inline constexpr const char* GameOverWarning = "Warning. Position status: game over.\nAre you sure?";
inline constexpr const char* ErrorPositionText = " Error position";
inline constexpr const char* GameOverText = " Game over";

// True when no game can reach the position of `state` with its `sideToMove`: a pawn on an edge
// row, a side without exactly one king, more pieces than eight pawns could have become, or the
// side not to move in check.
bool PositionIsImpossible(GameState& state);

// The line of a position file for `board` with `colourToMove` to move.
Text PositionLine(const BoardCell (&board)[8][8], Word colourToMove);
