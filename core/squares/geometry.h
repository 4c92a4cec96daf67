// Board geometry for the per-square routines, all of it evaluated by the compiler: a square is
// file + 8 * row, and a step that would leave the board is simply not instantiated.
#pragma once

// Rays, steps and tries are folded into their square's routine; the routines themselves stay
// separate functions, which keeps each one small enough to compile and to sit in the cache.
#if defined(__GNUC__)
#define VELOK_INLINE inline __attribute__((always_inline))
#define VELOK_ROUTINE __attribute__((noinline))
#else
#define VELOK_INLINE inline
#define VELOK_ROUTINE
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
