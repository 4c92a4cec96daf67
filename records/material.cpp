// Counting the pieces of a board and the pieces that can only have come from promotions.
#include "records/material.h"

PieceCounts CountPieces(const BoardCell (&board)[8][8]) {
    PieceCounts counts{};
    for (const auto& cells : board)
        for (const BoardCell& cell : cells)
            if (cell.piece > PieceNone && cell.piece <= King) ++counts.byPiece[cell.colour][cell.piece];
    return counts;
}

BishopCounts CountBishopsBySquareColour(const BoardCell (&board)[8][8]) {
    BishopCounts counts{};
    for (Word row = 0; row < 8; ++row)
        for (Word file = 0; file < 8; ++file) {
            const BoardCell& cell = board[row][file];
            if (cell.piece == Bishop) ++counts.bySquare[cell.colour][SameParitySquare(file, row)];
        }
    return counts;
}

Word ExtraPieces(const PieceCounts& pieces, const BishopCounts& bishops, Word colour) {
    auto above = [](Word count, Word limit) { return count > limit ? count - limit : 0; };
    const Word(&n)[7] = pieces.byPiece[colour];
    return above(n[Knight], 2) + above(n[Rook], 2) + above(n[Queen], 1) +
           above(bishops.bySquare[colour][0], 1) + above(bishops.bySquare[colour][1], 1);
}
