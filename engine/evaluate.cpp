// The static score: a sum of pieceSquare over the cells, in which material and every positional
// rule of the think are already baked, and a penalty for doubled and isolated pawns.
#include "core/game_state.h"

#include <cstring>

namespace {

constexpr Word PawnFaultCost = 20;

// Bits set in a byte, by table: the shipped 32-bit build has no population count instruction.
struct BitCounts {
    std::uint8_t of[256];
    constexpr BitCounts() : of{} {
        for (unsigned i = 1; i < 256; ++i)
            of[i] = static_cast<std::uint8_t>(of[i >> 1] + (i & 1));
    }
};
constexpr BitCounts Bits;

// 20 for every file with two or more pawns and for every file whose pawns have no neighbour.
inline Word PawnPenalty(const std::uint8_t (&counts)[8]) {
    unsigned occupied = 0, doubled = 0;
    for (unsigned file = 0; file < 8; ++file) {
        occupied |= static_cast<unsigned>(counts[file] != 0) << file;
        doubled |= static_cast<unsigned>(counts[file] > 1) << file;
    }
    const unsigned isolated = occupied & ~((occupied << 1) | (occupied >> 1));
    return PawnFaultCost * static_cast<Word>(Bits.of[doubled] + Bits.of[isolated & 0xFF]);
}

} // namespace

// The score of the position on the board, seen from otherSide: positive is good for it.
Word GameState::Evaluate() {
    // Step 1.
    std::memset(fileCounts, 0, sizeof fileCounts);
    Word score = 0;

    // Step 2. Empty cells read pieceSquare[colour][0], which is all zero, so no cell needs a
    // test; their counts land in the unused piece-0 rows, cleared again below.
    for (Word row = 0; row < 8; ++row)
        for (Word file = 0; file < 8; ++file) {
            const BoardCell& cell = board[row][file];
            score += pieceSquare[cell.colour][cell.piece][row][file];
            ++fileCounts[cell.colour][cell.piece][file];
        }
    std::memset(fileCounts[White][PieceNone], 0, sizeof fileCounts[White][PieceNone]);
    std::memset(fileCounts[Black][PieceNone], 0, sizeof fileCounts[Black][PieceNone]);

    // Steps 3 and 4.
    return score + PawnPenalty(fileCounts[Opposite(otherSide)][Pawn]) -
           PawnPenalty(fileCounts[otherSide][Pawn]);
}
