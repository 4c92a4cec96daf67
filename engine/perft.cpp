// The perft walk: every legal move of the tree made on the board and taken back, with each
// promotion walked once per piece it can become.
#include "engine/perft.h"

namespace {

constexpr Word PromotionPieces[4] = {Queen, Rook, Bishop, Knight};

// True when the listed move takes a pawn to its last row.
bool Promotes(const GameState& state, const MoveListEntry& m) {
    const BoardCell& from = state.board[m.fromRow][m.fromFile];
    return from.piece == Pawn && (m.toRow == 7 || m.toRow == 0);
}

template <bool Bulk> std::uint64_t Walk(GameState& state, Word depth);

// Plays one move with the given promotion piece, counts the tree below it and takes it back.
template <bool Bulk>
std::uint64_t CountBelow(GameState& state, const MoveListEntry& m, Word piece, Word depth) {
    MoveRecord* record = &state.history[CheckedIndex(state.plyCount, HistoryCapacity)];
    state.MakeMove(record, m.fromFile, m.fromRow, m.toFile, m.toRow, Silent, piece);
    ++state.plyCount;
    state.sideToMove = Opposite(state.sideToMove);
    const std::uint64_t nodes = Walk<Bulk>(state, depth - 1);
    state.sideToMove = Opposite(state.sideToMove);
    --state.plyCount;
    state.TakeBackMove(record);
    return nodes;
}

template <bool Bulk> std::uint64_t Walk(GameState& state, Word depth) {
    if (depth <= 0) return 1;
    MoveListEntry moves[MoveBufferCapacity];
    state.GenerateLegalMoves(moves, state.sideToMove);
    const Word n = state.moveCount;
    if (Bulk && depth == 1) {
        std::uint64_t count = static_cast<std::uint64_t>(n);
        for (Word i = 0; i < n; ++i)
            if (Promotes(state, moves[i])) count += 3;
        return count;
    }
    std::uint64_t nodes = 0;
    for (Word i = 0; i < n; ++i) {
        const int kinds = Promotes(state, moves[i]) ? 4 : 1;
        for (int k = 0; k < kinds; ++k)
            nodes += CountBelow<Bulk>(state, moves[i], PromotionPieces[k], depth);
    }
    return nodes;
}

} // namespace

std::uint64_t Perft(GameState& state, Word depth) {
    return Walk<false>(state, depth);
}
std::uint64_t PerftBulk(GameState& state, Word depth) {
    return Walk<true>(state, depth);
}

Word PerftDivide(GameState& state, Word depth, PerftRootCount (&out)[PerftRootCapacity]) {
    MoveListEntry moves[MoveBufferCapacity];
    state.GenerateLegalMoves(moves, state.sideToMove);
    const Word n = state.moveCount;
    Word count = 0;
    for (Word i = 0; i < n && count < PerftRootCapacity; ++i) {
        const bool promotes = Promotes(state, moves[i]);
        for (int k = 0; k < (promotes ? 4 : 1) && count < PerftRootCapacity; ++k) {
            const Word piece = promotes ? PromotionPieces[k] : PieceNone;
            out[count++] = {moves[i], piece,
                            CountBelow<true>(state, moves[i], promotes ? piece : Queen, depth)};
        }
    }
    return count;
}
