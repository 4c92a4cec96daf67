// Rebuilding a position from the history by forward replay on a scratch state; nothing here
// undoes a move.
#include "core/replay.h"

#include <cstring>

void ReplayStart(const GameState& source, GameState& scratch) {
    scratch.ResetGameState(ResetStartPosition);
    if (source.setupStart) {
        std::memcpy(static_cast<void*>(scratch.board), source.startBoard, sizeof scratch.board);
        scratch.sideToMove = source.setupFirstMover;
    }
}

void ReplayRecord(const GameState& source, Word index, GameState& scratch) {
    const MoveRecord& record = source.history[index];
    scratch.MakeMove(&scratch.history[CheckedIndex(index, HistoryCapacity)], record.fromFile, record.fromRow,
                     record.toFile, record.toRow, Silent, record.placedPiece);
    scratch.plyCount = index + 1;
    scratch.sideToMove = Opposite(scratch.sideToMove);
}

void ReplayPlies(const GameState& source, Word count, GameState& scratch) {
    ReplayStart(source, scratch);
    for (Word i = 0; i < count; ++i)
        ReplayRecord(source, i, scratch);
}
