// The pawn penalty of Evaluate and the search's shortcut for the score after one move: the
// position before the move and the cells the move touched give the same number as a whole
// evaluation would.
#pragma once

#include <cstring>

#include "core/game_state.h"

namespace evaluation {

constexpr Word PawnFaultCost = 20;

// Bits set in a byte, by table: the shipped 32-bit build has no population count instruction.
struct BitCounts {
    std::uint8_t of[256];
    constexpr BitCounts() : of{} {
        for (unsigned i = 1; i < 256; ++i)
            of[i] = static_cast<std::uint8_t>(of[i >> 1] + (i & 1));
    }
};
inline constexpr BitCounts Bits;

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

} // namespace evaluation

// A position's score as the search keeps it for the moves from there: Evaluate() and the pawns
// on each file, by colour, that it counted.
struct ScoredPosition {
    Word score;
    std::uint8_t pawns[2][8];
};

// Evaluate() of the position on the board, with its pawn counts.
inline ScoredPosition ScorePosition(GameState& state) {
    ScoredPosition position;
    position.score = state.Evaluate();
    std::memcpy(position.pawns[White], state.fileCounts[White][Pawn], 8);
    std::memcpy(position.pawns[Black], state.fileCounts[Black][Pawn], 8);
    return position;
}

// Evaluate() of the position just made by `record` from `before`: the change of the cells the
// move touched, and where pawns moved, went or came, the change of the pawn penalty.
inline Word EvaluateAfterMove(const GameState& state, const MoveRecord& record,
                              const ScoredPosition& before) {
    const Word mover = record.movedColour;
    const Word other = Opposite(mover);
    const auto& own = state.pieceSquare[mover];
    Word score = before.score + own[record.placedPiece][record.toRow][record.toFile] -
                 own[record.movedPiece][record.fromRow][record.fromFile] -
                 state.pieceSquare[other][record.capturedPiece][record.toRow][record.toFile];
    if (record.extraPiece == Rook)
        score += own[Rook][record.extraToRow][record.extraToFile] -
                 own[Rook][record.extraFromRow][record.extraFromFile];
    if (record.movedPiece != Pawn && record.capturedPiece != Pawn) return score;

    // A pawn moved, was taken or promoted: count the files anew.
    std::uint8_t pawns[2][8];
    std::memcpy(pawns, before.pawns, sizeof pawns);
    if (record.movedPiece == Pawn) --pawns[mover][record.fromFile];
    if (record.placedPiece == Pawn) ++pawns[mover][record.toFile];
    if (record.capturedPiece == Pawn) --pawns[other][record.toFile];
    if (record.extraPiece == Pawn) {
        // En passant: the pawn taken stands beside the target.
        score -= state.pieceSquare[record.extraColour][Pawn][record.extraFromRow][record.extraFromFile];
        --pawns[record.extraColour][record.extraFromFile];
    }
    const Word thinker = Opposite(state.otherSide);
    using evaluation::PawnPenalty;
    return score + PawnPenalty(pawns[thinker]) - PawnPenalty(pawns[state.otherSide]) -
           PawnPenalty(before.pawns[thinker]) + PawnPenalty(before.pawns[state.otherSide]);
}

// The ScoredPosition after `record`, from the one before it: EvaluateAfterMove and the pawn counts
// the move changed, so that a node needs no whole Evaluate of its own.
inline ScoredPosition ScoreAfterMove(const GameState& state, const MoveRecord& record,
                                     const ScoredPosition& before) {
    ScoredPosition after;
    after.score = EvaluateAfterMove(state, record, before);
    std::memcpy(after.pawns, before.pawns, sizeof after.pawns);
    if (record.movedPiece == Pawn) --after.pawns[record.movedColour][record.fromFile];
    if (record.placedPiece == Pawn) ++after.pawns[record.movedColour][record.toFile];
    if (record.capturedPiece == Pawn) --after.pawns[Opposite(record.movedColour)][record.toFile];
    if (record.extraPiece == Pawn) --after.pawns[record.extraColour][record.extraFromFile];
    return after;
}
