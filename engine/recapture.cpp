// The recapture test of the last ply: can the thinker take back on the square of the opponent's
// capture, and, when it cannot, has it a legal move at all? Aimed at that square, not a move list.
#include "core/legal_moves.h"
#include "engine/search.h"

namespace {

constexpr Word Directions[8][2] = {{0, 1}, {0, -1}, {1, 0}, {-1, 0}, {1, 1}, {1, -1}, {-1, 1}, {-1, -1}};
constexpr Word KnightJumps[8][2] = {{1, 2}, {2, 1}, {2, -1}, {1, -2}, {-1, -2}, {-2, -1}, {-2, 1}, {-1, 2}};

// Whether the piece of `colour` on (file, row) may take on (toFile, toRow) without leaving its
// king attacked: tried on the board and undone, as the move generators try every move.
Word CaptureIsLegal(GameState& state, Word colour, Word file, Word row, Word toFile, Word toRow) {
    BoardCell& from = state.board[row][file];
    BoardCell& to = state.board[toRow][toFile];
    const Word takenPiece = to.piece, takenColour = to.colour;
    to.piece = from.piece;
    to.colour = colour;
    from.piece = PieceNone;
    const Word attacked = to.piece == King ? state.IsSquareAttacked(colour, toFile, toRow)
                                           : state.IsSquareAttacked(colour, state.kingFile, state.kingRow);
    from.piece = to.piece;
    to.piece = takenPiece;
    to.colour = takenColour;
    return !attacked;
}

// Whether a legal move of `colour` takes on (toFile, toRow), which holds an enemy piece: the first
// piece on each line from there (a slider of that line, or a king or pawn one step away), and
// the knights a jump away. Pawns capture from rows 1 to 6 only, white ones upwards.
Word CanTakeOn(GameState& state, Word colour, Word toFile, Word toRow) {
    for (const auto& direction : Directions) {
        const Word df = direction[0], dr = direction[1];
        const bool diagonal = df != 0 && dr != 0;
        Word file = toFile + df, row = toRow + dr;
        while (GameState::IsOnBoard(file, row) && state.board[row][file].piece == PieceNone) {
            file += df;
            row += dr;
        }
        if (!GameState::IsOnBoard(file, row)) continue;
        const BoardCell& cell = state.board[row][file];
        if (cell.colour != colour) continue;
        const bool adjacent = file == toFile + df && row == toRow + dr;
        const bool pawnTakes = diagonal && adjacent && cell.piece == Pawn && row >= 1 && row <= 6 &&
                               dr == (colour == White ? -1 : 1);
        const bool takes = cell.piece == Queen || cell.piece == (diagonal ? Bishop : Rook) ||
                           (adjacent && cell.piece == King) || pawnTakes;
        if (takes && CaptureIsLegal(state, colour, file, row, toFile, toRow)) return 1;
    }
    for (const auto& jump : KnightJumps) {
        const Word file = toFile + jump[0], row = toRow + jump[1];
        if (!GameState::IsOnBoard(file, row)) continue;
        const BoardCell& cell = state.board[row][file];
        if (cell.piece == Knight && cell.colour == colour &&
            CaptureIsLegal(state, colour, file, row, toFile, toRow))
            return 1;
    }
    return 0;
}

// Whether a legal move of `colour` lands on (toFile, toRow), whatever stands there: the whole
// list of legal moves, searched.
Word CanMoveTo(GameState& state, Word colour, Word toFile, Word toRow) {
    MoveListEntry list[MoveBufferCapacity];
    state.GenerateLegalMoves(list, colour);
    for (Word i = 0; i < state.moveCount; ++i)
        if (list[i].toFile == toFile && list[i].toRow == toRow) return 1;
    return 0;
}

// Whether `colour` has any legal move: the generators square by square, up to the first move.
Word HasLegalMove(GameState& state, Word colour) {
    MoveListEntry list[MoveBufferCapacity];
    state.moveCount = 0;
    for (Word square = 0; square < 64; ++square) {
        const BoardCell& cell = state.board[square / 8][square % 8];
        if (cell.piece == PieceNone || cell.colour != colour) continue;
        GenerateMovesAt(state, square, list, colour);
        if (state.moveCount != 0) return 1;
    }
    return 0;
}

} // namespace

// After the opponent's capture on (toFile, toRow): 1 when the thinker can take back there, -1
// when it cannot, 0 when it is stalemated and ThinkerMated when it is mated. The generators'
// king and count fields are left as they were, since the last ply generates its moves around it.
Word GameState::CheckRecapture(Word toFile, Word toRow) {
    const Word savedKingFile = kingFile, savedKingRow = kingRow;
    const Word savedEveryTry = everyTryTestsKing, savedCount = moveCount;
    PrepareKingTests(sideToMove);
    // In the search the square holds the opponent's piece, so only a capture can land there;
    // any other square gets the whole list.
    const BoardCell& target = board[toRow][toFile];
    const bool enemy = target.piece != PieceNone && target.colour != sideToMove;
    Word result = 1;
    if (!(enemy ? CanTakeOn(*this, sideToMove, toFile, toRow)
                : CanMoveTo(*this, sideToMove, toFile, toRow))) {
        if (HasLegalMove(*this, sideToMove))
            result = -1;
        else
            result = IsSquareAttacked(sideToMove, kingFile, kingRow) ? ThinkerMated : 0;
    }
    kingFile = savedKingFile;
    kingRow = savedKingRow;
    everyTryTestsKing = savedEveryTry;
    moveCount = savedCount;
    return result;
}
