// Test helpers for the engine: a think's preparation and one search root.
#include "support/engine_setup.h"

#include "engine/search.h"
#include "engine/think_driver.h"

void PrepareThink(GameState& state) {
    state.otherSide = Opposite(state.sideToMove);
    state.PreparePieceSquare();
}

Word SearchRootScore(GameState& state, Word level) {
    PrepareThink(state);
    state.level = level;
    state.thinking = 1;
    state.bestMove.fromFile = NoMoveByte;
    return state.SearchThinkerNode(level, NodeStartLow);
}

Word MateRootScore(GameState& state) {
    PrepareThink(state);
    state.enginePhase = ChooseEnginePhase(state);
    state.thinking = 1;
    state.bestMove.fromFile = NoMoveByte;
    return state.MateThinkerNode(MateSearchDepth, 1, NodeStartLow);
}
