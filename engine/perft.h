// Perft: the number of leaves of the legal move tree of a given depth, counted the way the
// published figures count them, for the UCI command "go perft" and the move generator's tests.
#pragma once

#include <cstdint>

#include "core/game_state.h"

// One root move of a divided count: the move, the piece a promoting pawn becomes (PieceNone for
// any other move) and the leaves below it.
struct PerftRootCount {
    MoveListEntry move;
    Word promotionPiece;
    std::uint64_t nodes;
};

// The game lists a promotion once and asks for the piece when it is played; the published
// counts take it as four moves. A promoting root move therefore fills four entries.
constexpr Word PerftRootCapacity = MoveBufferCapacity;

// Leaf count of the tree of `depth` plies below the position of `state` (1 at depth 0), every
// leaf made and taken back. The side to move is `sideToMove`; the state is left as it was.
std::uint64_t Perft(GameState& state, Word depth);

// The same, with the last ply counted from the size of the move list.
std::uint64_t PerftBulk(GameState& state, Word depth);

// The count of `depth` plies split by root move into `out`, in generated order, promotions in
// the order queen, rook, bishop, knight. Returns the number of entries written.
Word PerftDivide(GameState& state, Word depth, PerftRootCount (&out)[PerftRootCapacity]);
