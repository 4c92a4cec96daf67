// Test helpers for the engine: prepare a think's tables for the side to move, and run one
// search root as ThinkDriver would, returning its score.
#pragma once

#include <string>

#include "support/board_setup.h"

// otherSide and pieceSquare as a think for the side to move sets them.
void PrepareThink(GameState& state);

// The main search at `level` for the side to move (thinking set, tables prepared); the root's
// score, with the choice in state.bestMove.
Word SearchRootScore(GameState& state, Word level);

// The mating search for the side to move in the phase the think would choose.
Word MateRootScore(GameState& state);
