// The questions all play rests on: is a square attacked, where is a king, which squares may the
// selected piece reach. The per-square work itself lives in core/squares.
#include "core/legal_moves.h"

Word GameState::IsSquareAttacked(Word colour, Word file, Word row) {
    if (file == -1) {
        Word kf = 0, kr = 0;
        if (!FindKing(colour, kf, kr)) return 0;
        file = kf;
        row = kr;
    }
    const std::uint32_t square = static_cast<std::uint32_t>(file + 8 * row);
    if (square > 63) return 0;
    return AttackTestAt(*this, static_cast<int>(square), colour);
}

Word GameState::FindKing(Word colour, Word& outFile, Word& outRow) const {
    for (Word row = 0; row < 8; ++row)
        for (Word file = 0; file < 8; ++file)
            if (board[row][file].piece == King && board[row][file].colour == colour) {
                outFile = file;
                outRow = row;
                return 1;
            }
    return 0;
}

void GameState::MarkLegalTargets(Word side, Word file, Word row) {
    for (auto& cells : board)
        for (BoardCell& cell : cells) cell.legalTarget = 0;
    moveCount = 0;
    PrepareKingTests(side);
    MoveListEntry moves[MoveBufferCapacity];
    const Word square = file + 8 * row;
    if (square >= 0 && square < 64) GenerateMovesAt(*this, square, moves, side);
    for (Word i = 0; i < moveCount; ++i) board[moves[i].toRow][moves[i].toFile].legalTarget = 1;
    legalTargetCount = moveCount;
}

// A move cannot leave its own king attacked when the king is not in check and the piece stands
// on no line with it: the generators then skip the attack test of its tries.
void GameState::PrepareKingTests(Word colour) {
    everyTryTestsKing = !FindKing(colour, kingFile, kingRow) || IsSquareAttacked(colour, kingFile, kingRow);
}

// True when some move up to the position on the board started from (file, row): that king or
// rook has moved.
Word GameState::HistoryLeaves(Word file, Word row) const {
    const Word records = RecordsInForce();
    for (Word i = 0; i < records; ++i)
        if (history[i].fromFile == file && history[i].fromRow == row) return 1;
    return 0;
}
