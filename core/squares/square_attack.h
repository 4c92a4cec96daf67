// The SquareAttackTest family: is a square attacked by the enemies of `colour`? One routine per
// square, with every ray, jump and pawn probe of that square fixed by the compiler.
#pragma once

#include "core/game_state.h"
#include "core/squares/geometry.h"

namespace squares {

// Walks one ray outward from `Square`, stopping at the first occupied cell. An enemy slider of the
// ray's kind attacks; on the nearest cell an enemy king does too, and on a diagonal an enemy pawn
// that captures towards the square.
template <int Square, int Df, int Dr, int Step>
VELOK_INLINE bool RayAttacks(const BoardCell (&board)[8][8], Word colour) {
    if constexpr (!OnBoard(Square, Df * Step, Dr * Step)) {
        return false;
    } else {
        constexpr int target = Offset(Square, Df * Step, Dr * Step);
        const BoardCell& cell = board[RowOf(target)][FileOf(target)];
        if (cell.piece == PieceNone) return RayAttacks<Square, Df, Dr, Step + 1>(board, colour);
        if (cell.colour == colour) return false;
        constexpr bool diagonal = Df != 0 && Dr != 0;
        if (cell.piece == Queen || cell.piece == (diagonal ? Bishop : Rook)) return true;
        if constexpr (Step == 1) {
            if (cell.piece == King) return true;
            // Black pawns capture towards row 0, white pawns towards row 7, and a pawn on its
            // last or first row attacks nothing.
            if constexpr (diagonal && RowOf(target) >= 1 && RowOf(target) <= 6) {
                if (cell.piece == Pawn) return Dr == 1 ? colour == White : colour == Black;
            }
        }
        return false;
    }
}

template <int Square, int Df, int Dr>
VELOK_INLINE bool KnightAttacks(const BoardCell (&board)[8][8], Word colour) {
    if constexpr (!OnBoard(Square, Df, Dr)) {
        return false;
    } else {
        constexpr int target = Offset(Square, Df, Dr);
        const BoardCell& cell = board[RowOf(target)][FileOf(target)];
        return cell.piece == Knight && cell.colour != colour;
    }
}

}  // namespace squares

template <int Square>
VELOK_ROUTINE Word GameState::SquareAttackTest(Word colour) const {
    using namespace squares;
    // Straight rays (up, down, right, left), then diagonal rays, then knight jumps clockwise from
    // the one nearest to straight up.
    return RayAttacks<Square, 0, 1, 1>(board, colour) || RayAttacks<Square, 0, -1, 1>(board, colour) ||
           RayAttacks<Square, 1, 0, 1>(board, colour) || RayAttacks<Square, -1, 0, 1>(board, colour) ||
           RayAttacks<Square, 1, 1, 1>(board, colour) || RayAttacks<Square, 1, -1, 1>(board, colour) ||
           RayAttacks<Square, -1, 1, 1>(board, colour) || RayAttacks<Square, -1, -1, 1>(board, colour) ||
           KnightAttacks<Square, 1, 2>(board, colour) || KnightAttacks<Square, 2, 1>(board, colour) ||
           KnightAttacks<Square, 2, -1>(board, colour) || KnightAttacks<Square, 1, -2>(board, colour) ||
           KnightAttacks<Square, -1, -2>(board, colour) || KnightAttacks<Square, -2, -1>(board, colour) ||
           KnightAttacks<Square, -2, 1>(board, colour) || KnightAttacks<Square, -1, 2>(board, colour);
}
