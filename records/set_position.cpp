// Setting up a position by hand on `game`: entering the mode, placing pieces from the palette of
// list rows, and the tests that end the mode and start analysis of the position.
#include "records/set_position.h"

#include <cstring>

#include "records/material.h"

namespace {

// What the tests at the end of set-up look for on the board: each king, and anything else.
struct KingsAndOthers {
    bool whiteKing = false;
    bool blackKing = false;
    bool otherPiece = false;
};

KingsAndOthers FindKingsAndOthers(const BoardCell (&board)[8][8]) {
    KingsAndOthers found;
    for (const auto& cells : board)
        for (const BoardCell& cell : cells) {
            if (cell.piece == King)
                (cell.colour == White ? found.whiteKing : found.blackKing) = true;
            else if (cell.piece != PieceNone)
                found.otherPiece = true;
        }
    return found;
}

// The message that refuses the pieces on the board, or null when both kings and something else
// stand there.
const char* MissingPieceRefusal(const BoardCell (&board)[8][8]) {
    const KingsAndOthers found = FindKingsAndOthers(board);
    if (!found.whiteKing && !found.blackKing) return KingsNotFoundText;
    if (!found.whiteKing) return WhiteKingNotFoundText;
    if (!found.blackKing) return BlackKingNotFoundText;
    if (!found.otherPiece) return OnlyKingsText;
    return nullptr;
}

// The message that refuses the position with `firstMover` to move, or null when a game can start
// there: the side that would have just moved cannot stand in check, and the game must not be over
// before it begins. A file of -1 asks about that colour's king.
const char* PlayRefusal(GameState& state, Word firstMover) {
    if (firstMover == White && state.IsSquareAttacked(Black, -1, -1)) return BlackKingInCheckText;
    if (firstMover == Black && state.IsSquareAttacked(White, -1, -1)) return WhiteKingInCheckText;
    if (state.CheckGameEnd(firstMover, NoMessage) != GameGoesOn) return SetupFinishedText;
    return nullptr;
}

} // namespace

void EnterSetPosition(GameState& state, Word movesListShown) {
    // The palette lives in the list, so a hidden list leaves nothing to choose from.
    if (!movesListShown) {
        HostShowMessage(MovesListNeededText);
        return;
    }
    // The game so far may be saved first; then the board is emptied.
    state.OfferToSave();
    state.ResetGameState(ResetEmpty);
    // No row is selected, so clicks on the board do nothing until one is chosen.
    if (movesListWindow != nullptr) {
        HostListReset(movesListWindow);
        for (const char* text : SetupRowTexts)
            HostListAdd(movesListWindow, text);
    }
    // Set-up mode on an empty game, drawn at once.
    state.setupMode = 1;
    state.plyCount = 0;
    state.gameActive = 1;
    HostRepaintWindow(true);
}

Word CheckPlacement(const GameState& state, Word piece, Word colour, Word file, Word row) {
    const PieceCounts pieces = CountPieces(state.board);
    const BishopCounts bishops = CountBishopsBySquareColour(state.board);
    const Word(&count)[7] = pieces.byPiece[colour];
    const Word missing = 8 - count[Pawn];
    const Word extra = ExtraPieces(pieces, bishops, colour);
    // One more promoted piece needs a pawn that is not yet spent on another.
    const bool pawnToSpare = missing > extra;
    switch (piece) {
    case Pawn: return row != 0 && row != 7 && count[Pawn] + extra < 8;
    case Knight: return count[Knight] < 2 || pawnToSpare;
    case Bishop: return bishops.bySquare[colour][SameParitySquare(file, row)] == 0 || pawnToSpare;
    case Rook: return count[Rook] < 2 || pawnToSpare;
    case Queen: return count[Queen] == 0 || pawnToSpare;
    case King: return count[King] == 0;
    default: return 0;
    }
}

void PlaceFromPalette(GameState& state, Word paletteRow, Word colour, Word file, Word row) {
    BoardCell& cell = state.board[row][file];
    if (paletteRow >= SetupPawnRow && paletteRow <= SetupKingRow) {
        const Word piece = paletteRow + 1;
        // The same click takes away what it would place.
        if (cell.piece == piece && cell.colour == colour) {
            cell.piece = PieceNone;
            HostRepaintWindow(true);
            return;
        }
        // A piece being replaced does not count against the one that replaces it.
        const Word saved = cell.piece;
        cell.piece = PieceNone;
        if (!CheckPlacement(state, piece, colour, file, row)) {
            cell.piece = saved;
            return;
        }
        cell.piece = piece;
        cell.colour = colour;
        HostRepaintWindow(true);
        return;
    }
    if (paletteRow == SetupClearRow && cell.piece != PieceNone) {
        cell.piece = PieceNone;
        HostRepaintWindow(true);
    }
}

Word LeaveSetPosition(GameState& state, Word r) {
    // The pieces first: both kings and something besides them.
    const char* refusal = MissingPieceRefusal(state.board);
    // A refused try leaves its side in setupFirstMover; the next try sets it anew.
    if (refusal == nullptr) {
        state.setupFirstMover = r - SetupWhiteMoveRow;
        refusal = PlayRefusal(state, state.setupFirstMover);
    }
    if (refusal != nullptr) {
        HostShowMessage(refusal);
        return 0;
    }
    // The list shows the single row " 0.", selected.
    state.setupStart = 1;
    if (movesListWindow != nullptr) state.RebuildMovesList(&movesListWindow);
    state.setupMode = 0;
    state.sideToMove = state.setupFirstMover;
    // Two people with no names and no clocks; the position is the game's start and counts as
    // unsaved work.
    state.sides[White] = SideRecord{};
    state.sides[Black] = SideRecord{};
    state.gameActive = 1;
    state.gameDirty = 1;
    std::memcpy(static_cast<void*>(state.startBoard), state.board, sizeof state.startBoard);
    HostRepaintWindow(true);
    return 1;
}
