// Dispatch into the per-square families: one switch on the square number for the attack test
// and one for the move generators, used by IsSquareAttacked, GenerateLegalMoves and MarkLegalTargets.
#pragma once

#include "core/game_state.h"

Word AttackTestAt(const GameState& state, int square, Word colour);
void GenerateMovesAt(GameState& state, int square, MoveListEntry* buffer, Word colour);
