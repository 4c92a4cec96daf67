// The mating search against a lone king: six plies at every level, moves in three passes
// (captures, then quiet moves of the minor pieces, pawns and king, then the rest), with the
// phase's evaluator at the horizon.
#include "engine/search.h"

namespace {

// Fills `order` with the n indices of `list` in the order of the three passes.
void OrderByPasses(const GameState& state, const MoveListEntry* list, Word n, Word* order) {
    Word placed = 0;
    for (Word i = 0; i < n; ++i)
        if (state.board[list[i].toRow][list[i].toFile].piece != PieceNone)
            order[CheckedIndex(placed++, MoveBufferCapacity)] = i;
    for (Word pass = 2; pass <= 3; ++pass)
        for (Word i = 0; i < n; ++i) {
            if (state.board[list[i].toRow][list[i].toFile].piece != PieceNone) continue;
            const Word mover = state.board[list[i].fromRow][list[i].fromFile].piece;
            const bool light = mover == Bishop || mover == Knight || mover == Pawn || mover == King;
            if (light == (pass == 2)) order[CheckedIndex(placed++, MoveBufferCapacity)] = i;
        }
}

inline MoveRecord* MakeMateMove(GameState& state, const MoveListEntry& move) {
    MoveRecord* record = &state.history[CheckedIndex(state.plyCount, HistoryCapacity)];
    state.MakeMove(record, move.fromFile, move.fromRow, move.toFile, move.toRow, Silent, Queen);
    return record;
}

// The evaluator of the think's phase.
Word EvaluatePhase(GameState& state) {
    switch (state.enginePhase) {
    case 1: return state.EvaluateMateRookQueen();
    case 2: return state.EvaluateMateBishops();
    case 3: return state.EvaluateMateBishopKnight(state.mateDiagonal);
    default: return state.EvaluateMateBishopKnight(state.mateDiagonalMirror);
    }
}

} // namespace

// The thinker's node of the mating search; the root (isRoot 1) takes its moves in list order.
Word GameState::MateThinkerNode(Word depth, Word isRoot, Word bound) {
    MoveListEntry list[MoveBufferCapacity];
    GenerateLegalMoves(list, sideToMove);
    const Word n = moveCount;

    // Mated or stalemated, scored as in the main search.
    if (n == 0) return IsSquareAttacked(sideToMove, kingFile, kingRow) ? ThinkerMated : 0;

    // The root goes through the root search, with its moves in list order.
    if (isRoot == 1) return SearchRoot(*this, list, nullptr, n, depth, RootMate);
    Word best = ThinkerMated;

    // Captures first, then quiet moves of the light pieces, then the rest; stop at the bound.
    Word order[MoveBufferCapacity];
    OrderByPasses(*this, list, n, order);
    for (Word k = 0; k < n; ++k) {
        MoveRecord* record = MakeMateMove(*this, list[order[k]]);
        ++searchNodes;
        ++plyCount;
        const Word score = MateOpponentNode(depth, best);
        --plyCount;
        TakeBackMove(record);
        if (score < best) best = score;
        if (best <= bound) return best;
    }
    return best;
}

// The opponent's node of the mating search; at depth 0 its moves are scored by the evaluator.
Word GameState::MateOpponentNode(Word depth, Word bound) {
    MoveListEntry list[MoveBufferCapacity];
    GenerateLegalMoves(list, otherSide);
    const Word n = moveCount;

    // The lone king's side cannot move: a quicker mate scores better, a stalemate is level.
    if (n == 0) return IsSquareAttacked(otherSide, kingFile, kingRow) ? OpponentMatedBase - depth : 0;

    // Above the horizon each move is answered by a thinker's node; at it, by the phase's evaluator.
    Word best = NodeStartLow;
    Word order[MoveBufferCapacity];
    OrderByPasses(*this, list, n, order);
    for (Word k = 0; k < n; ++k) {
        MoveRecord* record = MakeMateMove(*this, list[order[k]]);
        ++searchNodes;
        ++plyCount;
        const Word score = depth != 0 ? MateThinkerNode(depth - 1, 0, best) : EvaluatePhase(*this);
        --plyCount;
        TakeBackMove(record);
        if (score > best) best = score;
        if (best >= bound) return best;
    }
    return best;
}
