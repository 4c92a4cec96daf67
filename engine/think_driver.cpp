// The computer's turn from first step to last: the first-move table at ply 0, else tables,
// phase and search, then the clock, the marks, the move itself and the hand-over.
#include "engine/think_driver.h"

#include <cstdlib>

#include "engine/search.h"
#include "records/settings.h"

namespace {

// Counts of each piece code of one colour on the board.
struct PieceCounts {
    Word of[7];
};

PieceCounts CountPieces(const GameState& state, Word colour) {
    PieceCounts counts{};
    for (const auto& cells : state.board)
        for (const BoardCell& cell : cells)
            if (cell.piece != PieceNone && cell.colour == colour) ++counts.of[cell.piece];
    return counts;
}

// Whole seconds the thinker has used, counted from the stored seconds at the start of the think.
Word BookedClock(const GameState& state) {
    return static_cast<Word>(state.thinkClockBase + (HostTickCount() - state.thinkStartTick) / 1000);
}

// After the move: the list, the unsaved mark, the turn, and whether the next side thinks at the
// next tick.
void HandOver(GameState& state) {
    state.RebuildMovesList(&movesListWindow);
    if (!state.setupStart) state.gameDirty = 1;
    state.sideToMove = Opposite(state.sideToMove);
    HostRepaintWindow(false);
    if (state.CheckGameEnd(state.sideToMove, ShowMessage) == GameGoesOn &&
        state.sides[state.sideToMove].kind == SideComputer)
        state.thinkPending = 1;
}

// The first move of a game: one of the seven of the table, drawn at random.
void PlayOpeningMove(GameState& state) {
    const MoveListEntry& move = state.openingMoves[std::rand() % OpeningMoveCount];
    state.MakeMove(&state.history[CheckedIndex(state.plyCount, HistoryCapacity)], move.fromFile, move.fromRow,
                   move.toFile, move.toRow, Silent, Queen);
    ++state.plyCount;
    state.ClearMarks(MarkNone);
    HandOver(state);
    if (displaySettings.beepAfterMove) HostBeep();
    state.thinking = 0;
}

} // namespace

Word ChooseEnginePhase(const GameState& state) {
    const PieceCounts own = CountPieces(state, state.sideToMove);
    const PieceCounts their = CountPieces(state, Opposite(state.sideToMove));
    if (their.of[Pawn] + their.of[Knight] + their.of[Bishop] + their.of[Rook] + their.of[Queen] != 0)
        return PhaseNormal;
    if (own.of[Rook] + own.of[Queen] != 0) return PhaseRookQueen;
    if (own.of[Bishop] == 2) return PhaseTwoBishops;
    if (own.of[Bishop] >= 1 && own.of[Knight] >= 1) {
        // The last bishop in board order decides the colour of the corners.
        Word dark = 0;
        for (Word row = 0; row < 8; ++row)
            for (Word file = 0; file < 8; ++file) {
                const BoardCell& cell = state.board[row][file];
                if (cell.piece == Bishop && cell.colour == state.sideToMove) dark = (row + file) % 2 == 0;
            }
        return dark ? PhaseBishopKnightDark : PhaseBishopKnightLight;
    }
    return PhaseNormal;
}

// Searches the side to move's reply into bestMove (first byte 0xFF when there is none), leaving
// board and plyCount as they were, and returns the root's score. Expects `thinking` set;
// clearing it breaks the search off.
Word GameState::ChooseComputerMove() {
    // No move chosen and no node counted yet.
    bestMove.fromFile = NoMoveByte;
    searchNodes = 0;

    // The opponent is the other colour; the thinker's clock runs on from its stored seconds.
    otherSide = Opposite(sideToMove);
    thinkClockBase = static_cast<std::uint32_t>(sides[sideToMove].clockSeconds);
    thinkStartTick = HostTickCount();

    // The tables for this position, and which search the material calls for.
    PreparePieceSquare();
    enginePhase = ChooseEnginePhase(*this);

    // The main search, or the mating search against a lone king; the move played is bestMove,
    // the score is for benchmarks and the UCI front end.
    if (enginePhase == PhaseNormal) return SearchThinkerNode(level, NodeStartLow);
    return MateThinkerNode(MateSearchDepth, 1, NodeStartLow);
}

// One computer move, from the start of the think to the hand-over to the next side.
void GameState::ThinkDriver() {
    // The think begins; the first move of a game is drawn from the opening table without a search.
    thinking = 1;
    thinkPending = 0;
    if (plyCount == 0) {
        PlayOpeningMove(*this);
        return;
    }

    // A busy cursor and an empty progress text, shown before the search starts.
    HostSetBusy(true);
    progressText = Text();
    HostUpdateNow();

    ChooseComputerMove();

    // The time the think took goes onto the clock.
    sides[sideToMove].clockSeconds = BookedClock(*this);

    // The chosen move travels on as two cell marks.
    if (static_cast<std::uint8_t>(bestMove.fromFile) < 255) {
        board[bestMove.fromRow][bestMove.fromFile].mark = MarkFrom;
        board[bestMove.toRow][bestMove.toFile].mark = MarkTo;
    }

    // The marked move is shown, with a beep if asked while the game goes on; then the busy state
    // ends, the title is cleared, queued commands are dropped and an inactive window flashes.
    HostUpdateNow();
    if (displaySettings.beepAfterMove && CheckGameEnd(sideToMove, NoMessage) == GameGoesOn) HostBeep();
    HostSetBusy(false);
    HostShowTitle("");
    HostDropQueuedCommands();
    HostFlashIfInactive();

    // The move is read back from the marks; with none marked nothing is played.
    Word fromFile = 0, fromRow = 0, toFile = 0, toRow = 0;
    if (!FindMarkedCell(MarkFrom, fromFile, fromRow) || !FindMarkedCell(MarkTo, toFile, toRow)) {
        thinking = 0;
        return;
    }

    // A pawn on the last row becomes a queen without a dialog.
    ClearMarks(MarkNone);
    MakeMove(&history[CheckedIndex(plyCount, HistoryCapacity)], fromFile, fromRow, toFile, toRow, Silent,
             Queen);

    // Recorded, then handed over; the think is over.
    ++plyCount;
    HandOver(*this);
    thinking = 0;
}
