// The engine's base tables and the seven first moves, written by every reset. Rows run from
// White's first rank upwards, files from a to h, as the board does.
#include "core/game_state.h"

#include <cstring>

namespace {

constexpr Word PawnBase[8][8] = {
    {0, 0, 0, 0, 0, 0, 0, 0},         {0, 0, 0, 0, 0, 0, 0, 0}, {1, 2, 5, 0, 0, 5, 2, 1},
    {0, 1, 4, 5, 5, 4, 1, 0},         {1, 2, 5, 6, 6, 5, 2, 1}, {2, 3, 6, 7, 7, 6, 3, 2},
    {10, 20, 30, 40, 40, 30, 20, 10}, {0, 0, 0, 0, 0, 0, 0, 0},
};

constexpr Word KingBase[8][8] = {
    {0, 0, 0, -15, -10, -15, 0, 0},           {-5, -5, -10, -20, -20, -20, -5, -5},
    {-15, -15, -20, -24, -24, -24, -10, -10}, {-30, -30, -40, -48, -48, -40, -20, -20},
    {-30, -30, -40, -48, -48, -40, -20, -20}, {-15, -15, -20, -24, -24, -24, -10, -10},
    {-5, -5, -10, -20, -20, -20, -5, -5},     {0, 0, 0, -15, -10, -15, 0, 0},
};

// Not symmetric between top and bottom; Black uses it unchanged.
constexpr Word KnightBase[8][8] = {
    {0, 1, 2, 3, 3, 2, 1, 0}, {2, 3, 4, 5, 5, 4, 3, 2}, {3, 4, 5, 6, 6, 5, 4, 3}, {4, 5, 6, 8, 8, 6, 5, 4},
    {4, 5, 6, 8, 8, 6, 5, 4}, {3, 4, 5, 6, 6, 5, 4, 3}, {2, 3, 4, 4, 4, 4, 3, 2}, {0, 1, 2, 3, 3, 2, 1, 0},
};

constexpr Word BishopBase[8][8] = {
    {0, 0, 0, 0, 0, 0, 0, 0}, {0, 5, 3, 3, 3, 3, 5, 0}, {0, 6, 6, 6, 6, 6, 6, 0}, {0, 6, 6, 6, 6, 6, 6, 0},
    {0, 6, 6, 6, 6, 6, 6, 0}, {0, 6, 6, 6, 6, 6, 6, 0}, {0, 5, 3, 3, 3, 3, 5, 0}, {0, 0, 0, 0, 0, 0, 0, 0},
};

constexpr Word MateCorner[8][8] = {
    {-40, -30, -30, -30, -30, -30, -30, -40}, {-30, -30, -20, -20, -20, -20, -30, -30},
    {-30, -20, -10, -10, -10, -10, -20, -30}, {-30, -20, -10, 0, 0, -10, -20, -30},
    {-30, -20, -10, 0, 0, -10, -20, -30},     {-30, -20, -10, -10, -10, -10, -20, -30},
    {-30, -30, -20, -20, -20, -20, -30, -30}, {-40, -30, -30, -30, -30, -30, -30, -40},
};

constexpr Word MateEdge[8][8] = {
    {-40, -35, -33, -31, -31, -33, -35, -40}, {-34, -30, -20, -20, -20, -20, -30, -34},
    {-32, -20, -10, -10, -10, -10, -20, -32}, {-30, -20, -10, 0, 0, -10, -20, -30},
    {-30, -20, -10, 0, 0, -10, -20, -30},     {-32, -20, -10, -10, -10, -10, -20, -32},
    {-34, -30, -20, -20, -20, -20, -30, -34}, {-40, -35, -33, -31, -31, -33, -35, -40},
};

// -10 times the distance from the diagonal h1-a8: the dark corners a1 and h8 are the deepest.
constexpr Word MateDiagonal[8][8] = {
    {-70, -60, -50, -40, -30, -20, -10, 0}, {-60, -50, -40, -30, -20, -10, 0, -10},
    {-50, -40, -30, -20, -10, 0, -10, -20}, {-40, -30, -20, -10, 0, -10, -20, -30},
    {-30, -20, -10, 0, -10, -20, -30, -40}, {-20, -10, 0, -10, -20, -30, -40, -50},
    {-10, 0, -10, -20, -30, -40, -50, -60}, {0, -10, -20, -30, -40, -50, -60, -70},
};

constexpr MoveListEntry OpeningMoves[OpeningMoveCount] = {
    {3, 1, 3, 3}, {4, 1, 4, 3}, {1, 0, 2, 2}, {6, 0, 5, 2}, {1, 1, 1, 2}, {6, 1, 6, 2}, {2, 1, 2, 2},
};

} // namespace

void GameState::FillBaseTables() {
    std::memcpy(pawnBase, PawnBase, sizeof pawnBase);
    std::memcpy(kingBase, KingBase, sizeof kingBase);
    std::memcpy(knightBase, KnightBase, sizeof knightBase);
    std::memcpy(bishopBase, BishopBase, sizeof bishopBase);
    std::memcpy(mateCorner, MateCorner, sizeof mateCorner);
    std::memcpy(mateEdge, MateEdge, sizeof mateEdge);
    std::memcpy(mateDiagonal, MateDiagonal, sizeof mateDiagonal);
    for (Word r = 0; r < 8; ++r)
        for (Word f = 0; f < 8; ++f)
            mateDiagonalMirror[r][f] = mateDiagonal[r][7 - f];
    std::memcpy(static_cast<void*>(openingMoves), OpeningMoves, sizeof openingMoves);
}
