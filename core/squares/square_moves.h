// The GenerateSquareMoves family: the legal moves of the piece on one square, each tried on the
// board before it is listed. Directions, ray lengths and entry bytes are fixed per square.
#pragma once

#include "core/squares/square_attack.h"

template <int From, int To, bool KingMoves>
VELOK_INLINE void GameState::TryMove(MoveListEntry* buffer, Word colour) {
    using namespace squares;
    BoardCell& f = board[RowOf(From)][FileOf(From)];
    BoardCell& t = board[RowOf(To)][FileOf(To)];
    savedPiece = t.piece;
    savedColour = t.colour;
    t.piece = f.piece;
    t.colour = colour;
    f.piece = PieceNone;
    const Word attacked = KingMoves        ? SquareAttackTest<To>(colour)
                          : pieceTestsKing ? IsSquareAttacked(colour, kingFile, kingRow)
                                           : 0;
    if (!attacked) {
        buffer[CheckedIndex(moveCount, MoveBufferCapacity)] = {FileOf(From), RowOf(From), FileOf(To),
                                                               RowOf(To)};
        ++moveCount;
    }
    f.piece = t.piece;
    t.piece = savedPiece;
    t.colour = savedColour;
}

// Slides from `From` along (Df, Dr): an own piece ends the ray, a capture ends it after the try.
template <int From, int Df, int Dr, int Step>
VELOK_INLINE void GameState::TryRay(MoveListEntry* buffer, Word colour) {
    using namespace squares;
    if constexpr (OnBoard(From, Df * Step, Dr * Step)) {
        constexpr int to = Offset(From, Df * Step, Dr * Step);
        const BoardCell& t = board[RowOf(to)][FileOf(to)];
        if (t.piece != PieceNone && t.colour == colour) return;
        TryMove<From, to, false>(buffer, colour);
        if (savedPiece != PieceNone) return;
        TryRay<From, Df, Dr, Step + 1>(buffer, colour);
    }
}

// One knight jump or king step; a step onto an own piece is skipped. A king's step is tested on
// its own target square.
template <int From, int Df, int Dr, bool KingMoves>
VELOK_INLINE void GameState::TryStep(MoveListEntry* buffer, Word colour) {
    using namespace squares;
    if constexpr (OnBoard(From, Df, Dr)) {
        constexpr int to = Offset(From, Df, Dr);
        const BoardCell& t = board[RowOf(to)][FileOf(to)];
        if (t.piece != PieceNone && t.colour == colour) return;
        TryMove<From, to, KingMoves>(buffer, colour);
    }
}

// A pawn capture: only onto an enemy piece, of any kind.
template <int From, int Df, int Dr>
VELOK_INLINE void GameState::TryPawnCapture(MoveListEntry* buffer, Word colour) {
    using namespace squares;
    if constexpr (OnBoard(From, Df, Dr)) {
        constexpr int to = Offset(From, Df, Dr);
        const BoardCell& t = board[RowOf(to)][FileOf(to)];
        if (t.piece != PieceNone && t.colour != colour) TryMove<From, to, false>(buffer, colour);
    }
}

// En passant towards file + Df, read from the last record in force alone.
template <int From, int Df> VELOK_INLINE void GameState::TryEnPassant(MoveListEntry* buffer, Word colour) {
    using namespace squares;
    if constexpr (OnBoard(From, Df, 0)) {
        constexpr int file = FileOf(From), row = RowOf(From);
        constexpr bool white = row == 4; // white pawns take en passant from row 4, black from row 3
        constexpr int ahead = white ? 1 : -1;
        const Word records = RecordsInForce();
        if (records == 0) return;
        const MoveRecord& last = history[records - 1];
        if (last.movedPiece != Pawn) return;
        if (white ? (last.fromRow != 6 || last.toRow != 4) : (last.fromRow != 1 || last.toRow != 3)) return;
        if (last.fromFile != file + Df) return;
        BoardCell& landing = board[row + ahead][file + Df];
        BoardCell& victim = board[row][file + Df];
        BoardCell& capturer = board[row][file];
        buffer[CheckedIndex(moveCount, MoveBufferCapacity)] = {file, row, file + Df, row + ahead};
        landing.piece = Pawn;
        landing.colour = colour;
        capturer.piece = PieceNone;
        victim.piece = PieceNone;
        if (!IsSquareAttacked(colour, kingFile, kingRow)) ++moveCount;
        landing.piece = PieceNone;
        capturer.piece = Pawn;
        victim.piece = Pawn;
    }
}

// Castling of the king at home on row `Row` (e1 for White, e8 for Black). Rights follow from the
// history (has the king or the corner been left?) and from the attack test.
template <int Row> VELOK_INLINE void GameState::TryCastling(MoveListEntry* buffer, Word colour) {
    constexpr Word home = Row == 0 ? White : Black;
    constexpr int e = 4 + 8 * Row;
    BoardCell* const row = board[Row];
    castleTestFile = 4;
    castleTestRow = Row;
    if (row[4].colour != home) return;
    if (SquareAttackTest<e>(colour)) return;
    if (HistoryLeaves(4, Row)) return;

    // For each side the king stands for a moment on the two squares it crosses or reaches,
    // and every one of them must be safe.
    if (row[7].piece == Rook && row[5].piece == PieceNone && row[6].piece == PieceNone &&
        !HistoryLeaves(7, Row)) {
        bool safe = true;
        for (int pass = 0; pass < 2 && safe; ++pass) {
            const int file = 5 + pass;
            row[file].piece = King;
            row[file].colour = row[4].colour;
            row[4].piece = PieceNone;
            castleTestFile = file;
            safe = !(pass == 0 ? SquareAttackTest<e + 1>(colour) : SquareAttackTest<e + 2>(colour));
            row[file].piece = PieceNone;
            row[4].piece = King;
        }
        if (safe) buffer[CheckedIndex(moveCount++, MoveBufferCapacity)] = {4, Row, 6, Row};
    }
    if (row[0].piece == Rook && row[1].piece == PieceNone && row[2].piece == PieceNone &&
        row[3].piece == PieceNone && !HistoryLeaves(0, Row)) {
        bool safe = true;
        for (int pass = 0; pass < 2 && safe; ++pass) {
            const int file = 2 + pass;
            row[file].piece = King;
            row[file].colour = row[4].colour;
            row[4].piece = PieceNone;
            castleTestFile = file;
            safe = !(pass == 0 ? SquareAttackTest<e - 2>(colour) : SquareAttackTest<e - 1>(colour));
            row[file].piece = PieceNone;
            row[4].piece = King;
        }
        if (safe) buffer[CheckedIndex(moveCount++, MoveBufferCapacity)] = {4, Row, 2, Row};
    }
}

template <int Square> VELOK_ROUTINE void GameState::GenerateSquareMoves(MoveListEntry* buffer, Word colour) {
    using namespace squares;
    constexpr int file = FileOf(Square), row = RowOf(Square);
    const BoardCell& cell = board[row][file];
    if (cell.piece == PieceNone || cell.colour != colour) return;
    // Only a piece on the king's row, file or diagonals can uncover it (see PrepareKingTests).
    pieceTestsKing = everyTryTestsKing || kingRow == row || kingFile == file ||
                     kingFile - kingRow == file - row || kingFile + kingRow == file + row;

    switch (cell.piece) {
    case Pawn:
        if constexpr (row != 0 && row != 7) {
            if (colour == White) {
                constexpr int one = Square + 8;
                const bool oneEmpty = board[row + 1][file].piece == PieceNone;
                if (oneEmpty) TryMove<Square, one, false>(buffer, colour);
                if constexpr (row == 1) {
                    if (oneEmpty && board[3][file].piece == PieceNone)
                        TryMove<Square, Square + 16, false>(buffer, colour);
                    TryPawnCapture<Square, 1, 1>(buffer, colour);
                    TryPawnCapture<Square, -1, 1>(buffer, colour);
                } else {
                    TryPawnCapture<Square, -1, 1>(buffer, colour);
                    TryPawnCapture<Square, 1, 1>(buffer, colour);
                    if constexpr (row == 4) {
                        TryEnPassant<Square, -1>(buffer, colour);
                        TryEnPassant<Square, 1>(buffer, colour);
                    }
                }
            } else {
                constexpr int one = Square - 8;
                const bool oneEmpty = board[row - 1][file].piece == PieceNone;
                if (oneEmpty) TryMove<Square, one, false>(buffer, colour);
                TryPawnCapture<Square, 1, -1>(buffer, colour);
                TryPawnCapture<Square, -1, -1>(buffer, colour);
                if constexpr (row == 3) {
                    TryEnPassant<Square, 1>(buffer, colour);
                    TryEnPassant<Square, -1>(buffer, colour);
                }
                if constexpr (row == 6) {
                    if (oneEmpty && board[4][file].piece == PieceNone)
                        TryMove<Square, Square - 16, false>(buffer, colour);
                }
            }
        }
        break;
    case Knight:
        TryStep<Square, 1, 2, false>(buffer, colour);
        TryStep<Square, 2, 1, false>(buffer, colour);
        TryStep<Square, 2, -1, false>(buffer, colour);
        TryStep<Square, 1, -2, false>(buffer, colour);
        TryStep<Square, -1, -2, false>(buffer, colour);
        TryStep<Square, -2, -1, false>(buffer, colour);
        TryStep<Square, -2, 1, false>(buffer, colour);
        TryStep<Square, -1, 2, false>(buffer, colour);
        break;
    case Bishop:
        TryRay<Square, 1, 1, 1>(buffer, colour);
        TryRay<Square, 1, -1, 1>(buffer, colour);
        TryRay<Square, -1, 1, 1>(buffer, colour);
        TryRay<Square, -1, -1, 1>(buffer, colour);
        break;
    case Rook:
        TryRay<Square, 0, 1, 1>(buffer, colour);
        TryRay<Square, 0, -1, 1>(buffer, colour);
        TryRay<Square, 1, 0, 1>(buffer, colour);
        TryRay<Square, -1, 0, 1>(buffer, colour);
        break;
    case Queen:
        TryRay<Square, 0, 1, 1>(buffer, colour);
        TryRay<Square, 0, -1, 1>(buffer, colour);
        TryRay<Square, 1, 0, 1>(buffer, colour);
        TryRay<Square, -1, 0, 1>(buffer, colour);
        TryRay<Square, 1, 1, 1>(buffer, colour);
        TryRay<Square, 1, -1, 1>(buffer, colour);
        TryRay<Square, -1, 1, 1>(buffer, colour);
        TryRay<Square, -1, -1, 1>(buffer, colour);
        break;
    case King:
        TryStep<Square, 0, 1, true>(buffer, colour);
        TryStep<Square, 1, 1, true>(buffer, colour);
        TryStep<Square, 1, 0, true>(buffer, colour);
        TryStep<Square, 1, -1, true>(buffer, colour);
        TryStep<Square, 0, -1, true>(buffer, colour);
        TryStep<Square, -1, -1, true>(buffer, colour);
        TryStep<Square, -1, 0, true>(buffer, colour);
        TryStep<Square, -1, 1, true>(buffer, colour);
        if constexpr (Square == 4) {
            if (colour == White) TryCastling<0>(buffer, colour);
        } else if constexpr (Square == 60) {
            if (colour == Black) TryCastling<7>(buffer, colour);
        }
        break;
    default: break;
    }
}
