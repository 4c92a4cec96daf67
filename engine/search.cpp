// The main search: fixed-depth alpha-beta on the real board, a thinker's routine that keeps the
// lowest score and an opponent's routine that keeps the highest, each sorting its moves by a
// one-ply Evaluate, with a look at a hanging recapture on the last ply.
#include "engine/search.h"

namespace {

// Plays list entry `move` into the next history record, as every search move is played.
inline MoveRecord* MakeSearchMove(GameState& state, const MoveListEntry& move) {
    MoveRecord* record = &state.history[CheckedIndex(state.plyCount, HistoryCapacity)];
    state.MakeMove(record, move.fromFile, move.fromRow, move.toFile, move.toRow, Silent, Queen);
    return record;
}

// The score of the position after the opponent's last move, at the horizon; `before` is
// Evaluate() of the position before that move.
Word LeafScore(GameState& state, const ScoredPosition& before) {
    const MoveRecord& last = state.history[state.plyCount - 1];
    if (last.capturedPiece == PieceNone) return EvaluateAfterMove(state, last, before);
    if (state.history[state.plyCount - 2].capturedPiece != PieceNone)
        return EvaluateAfterMove(state, last, before);
    switch (state.CheckRecapture(last.toFile, last.toRow)) {
    case 0: return 0;
    case ThinkerMated: return ThinkerMated;
    case 1: {
        // The capturing piece is struck off; what takes it back is not moved.
        if (last.placedPiece != Pawn)
            return EvaluateAfterMove(state, last, before) -
                   state.pieceSquare[last.movedColour][last.placedPiece][last.toRow][last.toFile];
        BoardCell& target = state.board[last.toRow][last.toFile];
        target.piece = PieceNone;
        const Word score = state.Evaluate();
        target.piece = last.placedPiece;
        return score;
    }
    default: return EvaluateAfterMove(state, last, before);
    }
}

} // namespace

void PresortMoves(GameState& state, const MoveListEntry* list, Word n, OrderEntry* order, Word thinkerNode) {
    MoveRecord* record = &state.history[CheckedIndex(state.plyCount, HistoryCapacity)];
    const ScoredPosition before = ScorePosition(state);
    for (Word i = 0; i < n; ++i) {
        const MoveListEntry& move = list[i];
        state.MakeMove(record, move.fromFile, move.fromRow, move.toFile, move.toRow, Silent, Queen);
        const Word score = EvaluateAfterMove(state, *record, before);
        order[CheckedIndex(i, MoveBufferCapacity)] = {i, thinkerNode ? -score : score};
        state.TakeBackMove(record);
    }
    // This exact exchange sort decides the order of equal keys, on which the choice rests.
    for (Word a = 0; a < n - 1; ++a)
        for (Word b = a + 1; b < n; ++b)
            if (order[a].key < order[b].key) {
                const OrderEntry swap = order[a];
                order[a] = order[b];
                order[b] = swap;
            }
}

// The thinker's node: the lowest score of its moves, or any score at or below `bound`.
Word GameState::SearchThinkerNode(Word depth, Word bound) {
    MoveListEntry list[MoveBufferCapacity];
    GenerateLegalMoves(list, sideToMove);
    const Word n = moveCount;

    // No legal move: the thinker is mated, the worst score of all, or stalemated, a draw at 0.
    if (n == 0) return IsSquareAttacked(sideToMove, kingFile, kingRow) ? ThinkerMated : 0;

    // Start from being mated and try the best-looking moves first.
    Word best = ThinkerMated;
    OrderEntry order[MoveBufferCapacity];
    PresortMoves(*this, list, n, order, 1);

    // At the top of the tree the root search takes the sorted moves over.
    if (depth == level) return SearchRoot(*this, list, order, n, depth, RootMain);

    // Each move in that order; a score at or below the bound is one the opponent's node above will
    // not take, so the other moves need no look.
    for (Word k = 0; k < n; ++k) {
        MoveRecord* record = MakeSearchMove(*this, list[order[k].index]);
        ++searchNodes;
        ++plyCount;
        const Word score = SearchOpponentNode(depth, best);
        --plyCount;
        TakeBackMove(record);
        if (score < best) best = score;
        if (best <= bound) return best;
    }
    return best;
}

// The opponent's node: the highest score of its moves, or any score at or above `bound`.
Word GameState::SearchOpponentNode(Word depth, Word bound) {
    MoveListEntry list[MoveBufferCapacity];
    GenerateLegalMoves(list, otherSide);
    const Word n = moveCount;

    // No legal move: the opponent is mated, the nearer the root the better for the thinker,
    // or stalemated.
    if (n == 0) return IsSquareAttacked(otherSide, kingFile, kingRow) ? OpponentMatedBase - depth : 0;

    // Below any score a move can get.
    Word best = NodeStartLow;

    // Above the last ply: sorted moves, each answered one ply shallower, cut at the bound.
    if (depth != 0) {
        OrderEntry order[MoveBufferCapacity];
        PresortMoves(*this, list, n, order, 0);
        for (Word k = 0; k < n; ++k) {
            MoveRecord* record = MakeSearchMove(*this, list[order[k].index]);
            ++searchNodes;
            ++plyCount;
            const Word score = SearchThinkerNode(depth - 1, best);
            --plyCount;
            TakeBackMove(record);
            if (score > best) best = score;
            if (best >= bound) break;
        }
        return best;
    }

    // The last ply, in generated order.
    const ScoredPosition before = ScorePosition(*this);
    for (Word i = 0; i < n; ++i) {
        MoveRecord* record = MakeSearchMove(*this, list[i]);
        ++searchNodes;
        ++plyCount;
        const Word score = LeafScore(*this, before);
        --plyCount;
        TakeBackMove(record);
        if (score > best) best = score;
        if (best >= bound) break;
    }
    return best;
}

// After the opponent's capture on (toFile, toRow): 1 when the thinker can take back there, -1
// when it cannot, 0 when it is stalemated and ThinkerMated when it is mated.
Word GameState::CheckRecapture(Word toFile, Word toRow) {
    MoveListEntry list[MoveBufferCapacity];
    GenerateLegalMoves(list, sideToMove);
    if (moveCount == 0) return IsSquareAttacked(sideToMove, kingFile, kingRow) ? ThinkerMated : 0;
    for (Word i = 0; i < moveCount; ++i)
        if (list[i].toFile == toFile && list[i].toRow == toRow) return 1;
    return -1;
}
