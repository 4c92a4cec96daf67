// MakeMove and TakeBackMove: play a move on the board into its history record and undo it from
// the record alone. Inline, since they run at every node of the search.
#pragma once

// Included at the end of core/game_state.h.

inline void GameState::MakeMove(MoveRecord* record, Word fromFile, Word fromRow, Word toFile, Word toRow,
                                Word silent, Word promotionPiece) {
    // The record keeps everything TakeBackMove needs to undo the move.
    DescribeMove(record, fromFile, fromRow, toFile, toRow, promotionPiece);
    BoardCell& from = board[fromRow][fromFile];
    BoardCell& to = board[toRow][toFile];

    // A human side may be asked for its promotion piece through the dialog.
    if (silent == AskPromotion && record->movedPiece == Pawn &&
        toRow == (record->movedColour == White ? 7 : 0) && sides[record->movedColour].kind == SideHuman)
        record->placedPiece = HostChoosePromotion(record->movedColour);
    if (record->extraPiece == Pawn) {
        // En passant: the victim stands beside the origin, on its row.
        board[fromRow][toFile].piece = PieceNone;
    } else if (record->extraPiece == Rook) {
        // Castling: the rook goes with the king.
        board[fromRow][record->extraFromFile].piece = PieceNone;
        board[fromRow][record->extraToFile].piece = Rook;
        board[fromRow][record->extraToFile].colour = record->extraColour;
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

// Fills the record of a move without touching the board: the search scores quiet moves from it
// alone, and MakeMove plays it. A promotion places `promotionPiece`; MakeMove may ask a human
// instead. Fields a move does not use are left as they were.
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
        // En passant: a diagonal pawn move onto an empty cell. A diagonal step crosses one row, so
        // the victim stands on the origin's row.
        if (fromFile != toFile && record->capturedPiece == PieceNone) {
            record->extraFromRow = fromRow;
            record->extraColour = fromRow >= toRow ? White : Black;
            record->extraPiece = Pawn;
            record->extraFromFile = toFile;
        }
    } else if (record->movedPiece == King && fromFile == 4 && (fromRow == 0 || fromRow == 7) &&
               (toFile == 6 || toFile == 2)) {
        // Castling is a king's move of two files from e1 or e8; the rook goes with it.
        record->extraFromFile = toFile == 6 ? 7 : 0;
        record->extraFromRow = fromRow;
        record->extraToFile = toFile == 6 ? 5 : 3;
        record->extraToRow = fromRow;
        record->extraPiece = Rook;
        record->extraColour = fromRow == 0 ? White : Black;
    }
}
