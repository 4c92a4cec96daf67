// RebuildMovesList: the rows of the moves list, written anew from the history after each change,
// with check and mate signs found by replaying the game on a scratch state.
#include "records/moves_list.h"

#include "core/replay.h"

namespace {

// The row that stands for the position before the first ply.
constexpr const char* FirstRow = " 0.";
// The prefix of a row with an odd history index.
constexpr const char* OddPrefix = "           ";

// Appends a square as a file letter and a row digit, as "e4".
void AppendSquare(Text& text, Word file, Word row) {
    text.AppendChar(static_cast<char>('a' + file));
    text.AppendChar(static_cast<char>('1' + row));
}

// Appends the prefix of history index i: the move number for an even index, blanks for an odd one.
void AppendRowPrefix(Text& row, Word index) {
    if (index % 2 != 0) {
        row.Append(OddPrefix);
        return;
    }
    row.AppendChar(' ');
    row.AppendInt(index / 2 + 1);
    row.Append(". ");
}

} // namespace

// The letter of a moving piece: none for a pawn, else N, B, R, Q or K.
const char* PieceLetter(Word piece) {
    static constexpr const char* letters[7] = {"", "", "N", "B", "R", "Q", "K"};
    return piece >= PieceNone && piece <= King ? letters[piece] : "";
}

// The letter after "=" of a promotion: N, B or R, and Q for any other piece code.
char PromotionLetter(Word piece) {
    switch (piece) {
    case Knight: return 'N';
    case Bishop: return 'B';
    case Rook: return 'R';
    default: return 'Q';
    }
}

const char* CheckSign(GameState& scratch) {
    const Word side = scratch.sideToMove;
    if (scratch.CheckGameEnd(side, NoMessage) == GameCheckmate) return "#";
    return scratch.IsSquareAttacked(side, scratch.kingFile, scratch.kingRow) ? "+" : "";
}

Text MovesListRow(const MoveRecord& record, Word index, const char* sign) {
    Text row;
    AppendRowPrefix(row, index);
    // Castling is written whole, with no sign even when the rook gives check.
    if (record.movedPiece == King && record.fromFile == 4 && (record.toFile == 6 || record.toFile == 2)) {
        row.Append(record.toFile == 6 ? "0-0" : "0-0-0");
        return row;
    }
    row.Append(PieceLetter(record.movedPiece));
    AppendSquare(row, record.fromFile, record.fromRow);
    row.AppendChar(record.capturedPiece != PieceNone || record.extraPiece != PieceNone ? 'x' : '-');
    AppendSquare(row, record.toFile, record.toRow);
    if (record.placedPiece != record.movedPiece) {
        row.AppendChar('=');
        row.AppendChar(PromotionLetter(record.placedPiece));
    }
    row.Append(sign);
    return row;
}

void GameState::RebuildMovesList(const ListHandle* listHandle) {
    // Before the control exists there is nothing to fill.
    if (listHandle == nullptr || *listHandle == nullptr) return;
    const ListHandle list = *listHandle;
    // The list starts again from its row for the position before any move.
    HostListReset(list);
    HostListAdd(list, FirstRow);
    // The scratch game follows the history so that each row can tell check and mate; it lives on
    // the stack only for this call.
    GameState scratch;
    ReplayStart(*this, scratch);
    for (Word i = 0; i < plyCount; ++i) {
        ReplayRecord(*this, i, scratch);
        const Text row = MovesListRow(history[i], i, CheckSign(scratch));
        HostListAdd(list, row.Chars());
    }
    // The last row, the position on the board, is selected.
    HostListSelect(list, plyCount);
}
