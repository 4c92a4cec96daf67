// The computer's turn: the think driver and the choice of the search by what the opponent
// has left. The members themselves are declared in GameState.
#pragma once

#include "core/game_state.h"

// Values of enginePhase: normal play, or which mating evaluator scores the leaves.
enum EnginePhase : Word {
    PhaseNormal = 0,
    PhaseRookQueen = 1,
    PhaseTwoBishops = 2,
    PhaseBishopKnightDark = 3,
    PhaseBishopKnightLight = 4,
};

// The phase for the side to move as thinker, from the pieces on the board alone.
Word ChooseEnginePhase(const GameState& state);
