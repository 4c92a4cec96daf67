// The two switches on the square number that select a member of each per-square family; the
// 64 instances of each template are made here and nowhere else.
#include "core/legal_moves.h"
#include "core/squares/square_moves.h"

#include <utility>

#define VELOK_SQUARES_8(base, CASE) \
    CASE(base + 0) CASE(base + 1) CASE(base + 2) CASE(base + 3) CASE(base + 4) CASE(base + 5) CASE(base + 6) CASE(base + 7)
#define VELOK_SQUARES_64(CASE)                                                                            \
    VELOK_SQUARES_8(0, CASE) VELOK_SQUARES_8(8, CASE) VELOK_SQUARES_8(16, CASE) VELOK_SQUARES_8(24, CASE) \
    VELOK_SQUARES_8(32, CASE) VELOK_SQUARES_8(40, CASE) VELOK_SQUARES_8(48, CASE) VELOK_SQUARES_8(56, CASE)

Word AttackTestAt(const GameState& state, int square, Word colour) {
    switch (square) {
#define VELOK_ATTACK_CASE(sq) \
    case sq: return state.SquareAttackTest<sq>(colour);
        VELOK_SQUARES_64(VELOK_ATTACK_CASE)
#undef VELOK_ATTACK_CASE
    default: return 0;
    }
}

void GenerateMovesAt(GameState& state, int square, MoveListEntry* buffer, Word colour) {
    switch (square) {
#define VELOK_MOVES_CASE(sq) \
    case sq: state.GenerateSquareMoves<sq>(buffer, colour); return;
        VELOK_SQUARES_64(VELOK_MOVES_CASE)
#undef VELOK_MOVES_CASE
    default: return;
    }
}

// GenerateLegalMoves calls the 64 generators in square order with no dispatch at all.
template <int... Squares>
static void GenerateAll(GameState& state, MoveListEntry* buffer, Word colour,
                        std::integer_sequence<int, Squares...>) {
    (state.GenerateSquareMoves<Squares>(buffer, colour), ...);
}

void GameState::GenerateLegalMoves(MoveListEntry* buffer, Word colour) {
    PrepareKingTests(colour);
    moveCount = 0;
    GenerateAll(*this, buffer, colour, std::make_integer_sequence<int, 64>{});
}
