// The games of static lifetime and the reset that starts every game, replay and set-up.
#include "core/game_state.h"

#include <cstring>

GameState game;
GameState previewGame;
Placement positionTrail[HistoryCapacity + 1];
ListHandle movesListWindow = nullptr;

void GameState::ResetGameState(Word mode) {
    // Everything to zero, table by table (the two texts own buffers and are emptied as texts), so
    // that no trace of an earlier game survives.
    std::memset(static_cast<void*>(board), 0, sizeof board);
    std::memset(static_cast<void*>(history), 0, sizeof history);
    std::memset(static_cast<void*>(sides), 0, sizeof sides);
    sideToMove = otherSide = plyCount = enginePhase = legalTargetCount = 0;
    gameActive = gameDirty = setupStart = 0;
    std::memset(static_cast<void*>(startBoard), 0, sizeof startBoard);
    setupFirstMover = thinking = 0;
    bestMove = earlierBestMove = MoveListEntry{};
    level = 0;
    std::memset(pawnWork, 0, sizeof pawnWork);
    std::memset(pawnBase, 0, sizeof pawnBase);
    std::memset(fileCounts, 0, sizeof fileCounts);
    std::memset(kingWork, 0, sizeof kingWork);
    std::memset(kingBase, 0, sizeof kingBase);
    kingFile = kingRow = castleTestFile = castleTestRow = 0;
    everyTryTestsKing = pieceTestsKing = 0;
    std::memset(knightBase, 0, sizeof knightBase);
    std::memset(bishopBase, 0, sizeof bishopBase);
    std::memset(mateCorner, 0, sizeof mateCorner);
    std::memset(mateEdge, 0, sizeof mateEdge);
    std::memset(mateDiagonal, 0, sizeof mateDiagonal);
    std::memset(mateDiagonalMirror, 0, sizeof mateDiagonalMirror);
    std::memset(static_cast<void*>(openingMoves), 0, sizeof openingMoves);
    std::memset(static_cast<void*>(legalMoves), 0, sizeof legalMoves);
    std::memset(pieceSquare, 0, sizeof pieceSquare);
    moveCount = 0;
    thinkClockBase = thinkStartTick = 0;
    thinkPending = savedPiece = savedColour = 0;
    std::memset(static_cast<void*>(rootMoves), 0, sizeof rootMoves);
    setupMode = loadDialogKind = 0;
    searchNodes = 0;
    pliesNotShown = 0;
    previewStatus = Text();
    progressText = Text();

    // White moves first, and no move has been played.
    sideToMove = White;
    plyCount = 0;

    // The start position; any other reset leaves the board empty for the caller to fill.
    if (mode == ResetStartPosition) {
        static constexpr Word backRank[8] = {Rook, Knight, Bishop, Queen, King, Bishop, Knight, Rook};
        for (Word file = 0; file < 8; ++file) {
            board[0][file] = {backRank[file], White, MarkNone, 0, 0};
            board[1][file] = {Pawn, White, MarkNone, 0, 0};
            board[6][file] = {Pawn, Black, MarkNone, 0, 0};
            board[7][file] = {backRank[file], Black, MarkNone, 0, 0};
        }
    }

    // The engine's base tables and the first moves.
    FillBaseTables();
}
