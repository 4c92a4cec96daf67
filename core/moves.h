// MakeMove and TakeBackMove: play a move on the board into its history record and undo it from
// the record alone. Inline, since they run at every node of the search.
#pragma once

// Included at the end of core/game_state.h.

inline void GameState::MakeMove(MoveRecord* record, Word fromFile, Word fromRow, Word toFile, Word toRow,
                                Word silent, Word promotionPiece) {
    BoardCell& from = board[fromRow][fromFile];
    BoardCell& to = board[toRow][toFile];

    // The record keeps everything TakeBackMove needs to undo the move.
    record->fromFile = fromFile;
    record->fromRow = fromRow;
    record->toFile = toFile;
    record->toRow = toRow;
    record->movedPiece = from.piece;
    record->movedColour = from.colour;
    record->capturedPiece = to.piece;
    record->placedPiece = from.piece;
    record->extraPiece = PieceNone;
    record->extraFromFile = -1;
    record->extraToFile = -1;

    if (record->movedPiece == Pawn) {
        // Promotion: a human may be asked through the dialog; otherwise the given piece is placed.
        if ((record->movedColour == White && toRow == 7) || (record->movedColour == Black && toRow == 0)) {
            if (sides[record->movedColour].kind != SideHuman)
                record->placedPiece = promotionPiece;
            else if (silent == AskPromotion)
                record->placedPiece = HostChoosePromotion(record->movedColour);
            else
                record->placedPiece = promotionPiece;
        }
        // En passant: a diagonal pawn move onto an empty cell.
        if (fromFile != toFile && record->capturedPiece == PieceNone) {
            // A diagonal pawn step crosses one row, so the victim stands on the origin's row:
            // toRow + 1 when the mover goes down the board, toRow - 1 when it goes up. Indexing by
            // fromRow says so without an index the optimiser cannot bound.
            board[fromRow][toFile].piece = PieceNone;
            record->extraFromRow = fromRow;
            record->extraColour = fromRow >= toRow ? White : Black;
            record->extraPiece = Pawn;
            record->extraFromFile = toFile;
        }
    } else if (record->movedPiece == King && fromFile == 4 && (fromRow == 0 || fromRow == 7) &&
               (toFile == 6 || toFile == 2)) {
        // Castling is a king's move of two files from e1 or e8; the rook goes with it.
        const Word rookFrom = toFile == 6 ? 7 : 0;
        const Word rookTo = toFile == 6 ? 5 : 3;
        const Word rookColour = fromRow == 0 ? White : Black;
        board[fromRow][rookFrom].piece = PieceNone;
        board[fromRow][rookTo].piece = Rook;
        board[fromRow][rookTo].colour = rookColour;
        record->extraFromFile = rookFrom;
        record->extraFromRow = fromRow;
        record->extraToFile = rookTo;
        record->extraToRow = fromRow;
        record->extraPiece = Rook;
        record->extraColour = rookColour;
    }

    // The moving piece lands, as the promoted piece when it promotes.
    to.piece = record->placedPiece;
    to.colour = record->movedColour;
    from.piece = PieceNone;
}

inline void GameState::TakeBackMove(const MoveRecord* record) {
    BoardCell& from = board[record->fromRow][record->fromFile];
    BoardCell& to = board[record->toRow][record->toFile];
    from.piece = record->movedPiece;
    from.colour = record->movedColour;
    to.piece = record->capturedPiece;
    to.colour = Opposite(record->movedColour);
    if (record->extraPiece != PieceNone) {
        if (record->extraFromFile != -1) {
            BoardCell& extra = board[record->extraFromRow][record->extraFromFile];
            extra.piece = record->extraPiece;
            extra.colour = record->extraColour;
        }
        if (record->extraToFile != -1) board[record->extraToRow][record->extraToFile].piece = PieceNone;
    }
}

// The same fields, in the same way, as MakeMove writes them: a silent promotion places the given
// piece whoever moves, and fields MakeMove leaves untouched stay untouched here too.
inline void GameState::DescribeMove(MoveRecord* record, Word fromFile, Word fromRow, Word toFile, Word toRow,
                                    Word promotionPiece) const {
    const BoardCell& from = board[fromRow][fromFile];
    record->fromFile = fromFile;
    record->fromRow = fromRow;
    record->toFile = toFile;
    record->toRow = toRow;
    record->movedPiece = from.piece;
    record->movedColour = from.colour;
    record->capturedPiece = board[toRow][toFile].piece;
    record->placedPiece = from.piece;
    record->extraPiece = PieceNone;
    record->extraFromFile = -1;
    record->extraToFile = -1;

    if (record->movedPiece == Pawn) {
        if ((record->movedColour == White && toRow == 7) || (record->movedColour == Black && toRow == 0))
            record->placedPiece = promotionPiece;
        if (fromFile != toFile && record->capturedPiece == PieceNone) {
            record->extraFromRow = fromRow;
            record->extraColour = fromRow >= toRow ? White : Black;
            record->extraPiece = Pawn;
            record->extraFromFile = toFile;
        }
    } else if (record->movedPiece == King && fromFile == 4 && (fromRow == 0 || fromRow == 7) &&
               (toFile == 6 || toFile == 2)) {
        record->extraFromFile = toFile == 6 ? 7 : 0;
        record->extraFromRow = fromRow;
        record->extraToFile = toFile == 6 ? 5 : 3;
        record->extraToRow = fromRow;
        record->extraPiece = Rook;
        record->extraColour = fromRow == 0 ? White : Black;
    }
}
