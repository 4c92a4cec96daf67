// The material a side may hold if every piece above the starting set came from a pawn: counts by
// piece and by colour of square, shared by the position file check and by set-up on the board.
#pragma once

#include "core/game_state.h"

// How many pieces of each code (index 1 to 6; index 0 unused) each colour has on the board.
struct PieceCounts {
    Word byPiece[2][7];
};

// How many bishops each colour has on squares of each kind: index 0 for squares whose file and row
// differ in parity, index 1 for squares where they agree.
struct BishopCounts {
    Word bySquare[2][2];
};

// The bishop index of a square: 1 when file and row have the same parity, else 0.
constexpr Word SameParitySquare(Word file, Word row) {
    return (file % 2 == row % 2) ? 1 : 0;
}

PieceCounts CountPieces(const BoardCell (&board)[8][8]);
BishopCounts CountBishopsBySquareColour(const BoardCell (&board)[8][8]);

// Pieces of `colour` beyond the set a side starts with (two knights, two rooks, one queen, one
// bishop on each colour of square): each of them can only stand there as a promoted pawn.
Word ExtraPieces(const PieceCounts& pieces, const BishopCounts& bishops, Word colour);
