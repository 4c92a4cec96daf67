// The one rule by which a position is rebuilt from the history: a scratch state starts where the
// game began and plays the records forwards. The moves list, the game file and the list rows use it.
#pragma once

#include "core/game_state.h"

// Resets `scratch` to the position `source` began from: the start position with White to move,
// or, for a game from a set-up position, its startBoard with setupFirstMover to move.
void ReplayStart(const GameState& source, GameState& scratch);

// Plays source.history[index] on `scratch` into the same index of its history, silently and with
// the recorded promotion piece; then scratch.plyCount is index + 1 and its sideToMove flipped.
void ReplayRecord(const GameState& source, Word index, GameState& scratch);

// ReplayStart, then the first `count` records of `source`.
void ReplayPlies(const GameState& source, Word count, GameState& scratch);
