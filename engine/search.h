// The searches' shared vocabulary: the order list of a node, the root procedure that both the
// main search and the mating search run, and the text shown while the root avoids a repetition.
#pragma once

#include "core/game_state.h"
#include "engine/evaluation.h"

// One entry of a node's order list: the index of a move in the node's move list and its key.
struct OrderEntry {
    Word index;
    Word key;
};

// The counter at the root of the mating search: three moves of each side.
constexpr Word MateSearchDepth = 2;

// Shown behind the title once the root has turned away from a repetition.
constexpr const char* AltSearchingText = " [alt.searching] ";

// Which opponent routine scores a root move.
enum RootSearch : Word { RootMain = 0, RootMate = 1 };

// Fills `order` with the moves of `list` keyed by a one-ply Evaluate from `before`, the score of
// the position on the board (negated at a thinker's node, so that the best move for the side to
// move sorts first).
void PresortMoves(GameState& state, const MoveListEntry* list, Word n, OrderEntry* order, Word thinkerNode,
                  const ScoredPosition& before);

// Pass `a` of the exchange sort of `order` (highest key first), whose exact swaps decide the order
// of equal keys, on which the choice rests. Pass a fixes entry a from entries a and beyond alone,
// so a node runs each pass just before it takes that entry and none after a cut.
void SortPass(OrderEntry* order, Word n, Word a);

// The root of either search: passes over the moves (in `order`, or in list order when it is
// null), polling before each, then the repetition rule. Leaves the choice in bestMove.
Word SearchRoot(GameState& state, MoveListEntry* list, const OrderEntry* order, Word n, Word depth,
                RootSearch kind);
