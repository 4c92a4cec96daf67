// Board geometry for the per-square routines, all of it evaluated by the compiler: a square is
// file + 8 * row, and a step that would leave the board is simply not instantiated.
#pragma once

#if defined(__GNUC__)
#define VELOK_INLINE inline __attribute__((always_inline))
#else
#define VELOK_INLINE inline
#endif

namespace squares {

constexpr int FileOf(int square) { return square % 8; }
constexpr int RowOf(int square) { return square / 8; }

// True when (file + df, row + dr) of `square` lies on the board.
constexpr bool OnBoard(int square, int df, int dr) {
    return FileOf(square) + df >= 0 && FileOf(square) + df <= 7 && RowOf(square) + dr >= 0 &&
           RowOf(square) + dr <= 7;
}

constexpr int Offset(int square, int df, int dr) { return square + df + 8 * dr; }

}  // namespace squares
