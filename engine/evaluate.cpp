// The static score: a sum of pieceSquare over the cells, in which material and every positional
// rule of the think are already baked, and a penalty for doubled and isolated pawns.
#include "engine/evaluation.h"

#include <cstring>

// The score of the position on the board, seen from otherSide: positive is good for it.
Word GameState::Evaluate() {
    // The per-file counts start empty for this position.
    std::memset(fileCounts, 0, sizeof fileCounts);
    Word score = 0;

    // Empty cells read pieceSquare[colour][0], which is all zero, so no cell needs a test; their
    // counts land in the unused piece-0 rows, cleared again below.
    for (Word row = 0; row < 8; ++row)
        for (Word file = 0; file < 8; ++file) {
            const BoardCell& cell = board[row][file];
            score += pieceSquare[cell.colour][cell.piece][row][file];
            ++fileCounts[cell.colour][cell.piece][file];
        }
    std::memset(fileCounts[White][PieceNone], 0, sizeof fileCounts[White][PieceNone]);
    std::memset(fileCounts[Black][PieceNone], 0, sizeof fileCounts[Black][PieceNone]);

    // Doubled and isolated pawns count against their own side.
    using evaluation::PawnPenalty;
    return score + PawnPenalty(fileCounts[Opposite(otherSide)][Pawn]) -
           PawnPenalty(fileCounts[otherSide][Pawn]);
}
