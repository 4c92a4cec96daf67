// The root of both searches: passes over the root moves with a poll before each, and the rule
// that turns away from a threefold repetition unless the thinker stands badly.
#include "engine/search.h"

namespace {

// Whether playing `move` repeats a position for the third time, at once or after one reply.
Word AllowsRepetition(GameState& state, const MoveListEntry& move) {
    MoveRecord* record = &state.history[CheckedIndex(state.plyCount, HistoryCapacity)];
    state.MakeMove(record, move.fromFile, move.fromRow, move.toFile, move.toRow, Silent, Queen);
    ++state.plyCount;
    Word rep = state.IsThreefoldRepetition();
    if (rep == 0) {
        state.GenerateLegalMoves(state.rootMoves, Opposite(state.sideToMove));
        const Word replies = state.moveCount;
        for (Word i = 0; i < replies && rep == 0; ++i) {
            const MoveListEntry& reply = state.rootMoves[i];
            MoveRecord* replyRecord = &state.history[CheckedIndex(state.plyCount, HistoryCapacity)];
            state.MakeMove(replyRecord, reply.fromFile, reply.fromRow, reply.toFile, reply.toRow, Silent,
                           Queen);
            ++state.plyCount;
            rep = state.IsThreefoldRepetition();
            --state.plyCount;
            state.TakeBackMove(replyRecord);
        }
    }
    --state.plyCount;
    state.TakeBackMove(record);
    return rep;
}

// The score of root move `move` from the opponent's side, within `bound`.
Word ScoreRootMove(GameState& state, const MoveListEntry& move, Word depth, Word bound, RootSearch kind) {
    MoveRecord* record = &state.history[CheckedIndex(state.plyCount, HistoryCapacity)];
    state.MakeMove(record, move.fromFile, move.fromRow, move.toFile, move.toRow, Silent, Queen);
    ++state.searchNodes;
    ++state.plyCount;
    const Word score =
        kind == RootMain ? state.SearchOpponentNode(depth, bound) : state.MateOpponentNode(depth, bound);
    --state.plyCount;
    state.TakeBackMove(record);
    return score;
}

} // namespace

Word SearchRoot(GameState& state, MoveListEntry* list, const OrderEntry* order, Word n, Word depth,
                RootSearch kind) {
    Word best = ThinkerMated;
    Word bestIndex = 0;

    // No pass has chosen a move yet.
    state.earlierBestMove.fromFile = NoMoveByte;
    for (;;) {
        // One pass over the moves not yet turned away, with a poll before each; a break ends the search.
        for (Word k = 0; k < n; ++k) {
            const Word i = order ? order[k].index : k;
            if (list[i].fromFile == NoMoveByte) continue;
            state.PollDuringThink(k * 100 / n);
            if (!state.thinking) return 0;
            const Word score = ScoreRootMove(state, list[i], depth, best, kind);
            if (score < best) {
                best = score;
                bestIndex = i;
            }
        }

        // The pass's choice. When the thinker stands badly (at or above RepetitionLimit) a repetition
        // suits it: the first pass keeps its choice, a later pass goes back to the first one's.
        state.bestMove = list[bestIndex];
        if (state.earlierBestMove.fromFile == NoMoveByte) {
            state.earlierBestMove = state.bestMove;
        } else if (best >= RepetitionLimit) {
            state.bestMove = state.earlierBestMove;
            return best;
        }
        if (best >= RepetitionLimit) return best;

        // A choice that cannot lead to a threefold repetition is played.
        if (AllowsRepetition(state, state.bestMove) == 0) return best;

        // Otherwise it is struck from the list and the rest searched again, while any is left.
        list[bestIndex].fromFile = NoMoveByte;
        Word remaining = 0;
        for (Word i = 0; i < n; ++i)
            remaining += list[i].fromFile != NoMoveByte;
        if (remaining == 0) return best;

        // The next pass starts afresh and says so in the progress text.
        best = ThinkerMated;
        state.progressText = Text(AltSearchingText);
    }
}
