// The main search: fixed-depth alpha-beta on the real board, a thinker's routine that keeps the
// lowest score and an opponent's routine that keeps the highest, each sorting its moves by a
// one-ply Evaluate, with a look at a hanging recapture on the last ply.
#include "engine/search.h"

#include "core/legal_moves.h"

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

// The opponent's node on the last ply: its moves in generated order, each scored at the horizon,
// the highest score or any at or above `bound`. The moves are generated piece by piece, so that
// the pieces after a cut are never looked at.
Word SearchLastPly(GameState& state, Word bound, const ScoredPosition& before) {
    MoveListEntry list[MoveBufferCapacity];
    const Word side = state.otherSide;
    state.PrepareKingTests(side);
    state.moveCount = 0;
    Word best = NodeStartLow;
    Word next = 0;
    for (Word square = 0; square < 64; ++square) {
        const BoardCell& cell = state.board[square / 8][square % 8];
        if (cell.piece == PieceNone || cell.colour != side) continue;
        GenerateMovesAt(state, square, list, side);
        for (; next < state.moveCount; ++next) {
            // A quiet move is scored from its record alone: at the horizon nothing else of the
            // position after it is read.
            const MoveListEntry& move = list[next];
            MoveRecord* record = &state.history[CheckedIndex(state.plyCount, HistoryCapacity)];
            state.DescribeMove(record, move.fromFile, move.fromRow, move.toFile, move.toRow, Queen);
            ++state.searchNodes;
            Word score;
            if (record->capturedPiece == PieceNone) {
                score = EvaluateAfterMove(state, *record, before);
            } else {
                state.MakeMove(record, move.fromFile, move.fromRow, move.toFile, move.toRow, Silent, Queen);
                ++state.plyCount;
                score = LeafScore(state, before);
                --state.plyCount;
                state.TakeBackMove(record);
            }
            if (score > best) best = score;
            if (best >= bound) return best;
        }
    }

    // No legal move: the opponent is mated, at the last ply the farthest from the root, or
    // stalemated.
    if (state.moveCount == 0)
        return state.IsSquareAttacked(side, state.kingFile, state.kingRow) ? OpponentMatedBase : 0;
    return best;
}

Word OpponentNode(GameState& state, Word depth, Word bound, const ScoredPosition& here);

// The thinker's node: the lowest score of its moves, or any score at or below `bound`. `here` is
// the score of the position on the board, handed down from the node above.
Word ThinkerNode(GameState& state, Word depth, Word bound, const ScoredPosition& here) {
    MoveListEntry list[MoveBufferCapacity];
    state.GenerateLegalMoves(list, state.sideToMove);
    const Word n = state.moveCount;

    // No legal move: the thinker is mated, the worst score of all, or stalemated, a draw at 0.
    if (n == 0)
        return state.IsSquareAttacked(state.sideToMove, state.kingFile, state.kingRow) ? ThinkerMated : 0;

    // Start from being mated and try the best-looking moves first.
    Word best = ThinkerMated;
    OrderEntry order[MoveBufferCapacity];
    PresortMoves(state, list, n, order, 1, here);

    // At the top of the tree the root search takes the sorted moves over.
    if (depth == state.level) {
        for (Word a = 0; a < n - 1; ++a)
            SortPass(order, n, a);
        return SearchRoot(state, list, order, n, depth, RootMain);
    }

    // Each move in that order; a score at or below the bound is one the opponent's node above will
    // not take, so the other moves need no look.
    for (Word k = 0; k < n; ++k) {
        SortPass(order, n, k);
        MoveRecord* record = MakeSearchMove(state, list[order[k].index]);
        ++state.searchNodes;
        ++state.plyCount;
        const Word score = OpponentNode(state, depth, best, ScoreAfterMove(state, *record, here));
        --state.plyCount;
        state.TakeBackMove(record);
        if (score < best) best = score;
        if (best <= bound) return best;
    }
    return best;
}

// The opponent's node: the highest score of its moves, or any score at or above `bound`.
Word OpponentNode(GameState& state, Word depth, Word bound, const ScoredPosition& here) {
    if (depth == 0) return SearchLastPly(state, bound, here);
    MoveListEntry list[MoveBufferCapacity];
    state.GenerateLegalMoves(list, state.otherSide);
    const Word n = state.moveCount;

    // No legal move: the opponent is mated, the nearer the root the better for the thinker,
    // or stalemated.
    if (n == 0) {
        const Word mated = state.IsSquareAttacked(state.otherSide, state.kingFile, state.kingRow);
        return mated ? OpponentMatedBase - depth : 0;
    }

    // Above the last ply: sorted moves, each answered one ply shallower, cut at the bound.
    Word best = NodeStartLow;
    OrderEntry order[MoveBufferCapacity];
    PresortMoves(state, list, n, order, 0, here);
    for (Word k = 0; k < n; ++k) {
        SortPass(order, n, k);
        MoveRecord* record = MakeSearchMove(state, list[order[k].index]);
        ++state.searchNodes;
        ++state.plyCount;
        const Word score = ThinkerNode(state, depth - 1, best, ScoreAfterMove(state, *record, here));
        --state.plyCount;
        state.TakeBackMove(record);
        if (score > best) best = score;
        if (best >= bound) break;
    }
    return best;
}

} // namespace

void PresortMoves(GameState& state, const MoveListEntry* list, Word n, OrderEntry* order, Word thinkerNode,
                  const ScoredPosition& before) {
    MoveRecord* record = &state.history[CheckedIndex(state.plyCount, HistoryCapacity)];
    for (Word i = 0; i < n; ++i) {
        const MoveListEntry& move = list[i];
        state.DescribeMove(record, move.fromFile, move.fromRow, move.toFile, move.toRow, Queen);
        const Word score = EvaluateAfterMove(state, *record, before);
        order[CheckedIndex(i, MoveBufferCapacity)] = {i, thinkerNode ? -score : score};
    }
}

void SortPass(OrderEntry* order, Word n, Word a) {
    for (Word b = a + 1; b < n; ++b)
        if (order[a].key < order[b].key) {
            const OrderEntry swap = order[a];
            order[a] = order[b];
            order[b] = swap;
        }
}

// The thinker's node from the position on the board, scored afresh; at the root it hands over
// to the root search.
Word GameState::SearchThinkerNode(Word depth, Word bound) {
    return ThinkerNode(*this, depth, bound, ScorePosition(*this));
}

// The opponent's node from the position on the board, scored afresh.
Word GameState::SearchOpponentNode(Word depth, Word bound) {
    return OpponentNode(*this, depth, bound, ScorePosition(*this));
}
