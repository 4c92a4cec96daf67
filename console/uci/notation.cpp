// Long algebraic moves and Forsyth-Edwards lines for the UCI front end.
#include "console/uci/notation.h"

#include <cctype>

namespace {

constexpr char PieceLetters[] = " pnbrqk";

// A square as a file letter and a row digit, "e4".
std::string SquareText(Word file, Word row) {
    return std::string{static_cast<char>('a' + file), static_cast<char>('1' + row)};
}

// The piece code of a promotion letter, either case; PieceNone for any other character.
Word PromotionPieceOf(char letter) {
    switch (std::tolower(static_cast<unsigned char>(letter))) {
    case 'q': return Queen;
    case 'r': return Rook;
    case 'b': return Bishop;
    case 'n': return Knight;
    default: return PieceNone;
    }
}

// True when some move of the history started from (file, row): that king or rook has moved.
bool HistoryLeaves(const GameState& state, Word file, Word row) {
    for (Word i = 0; i < state.plyCount; ++i)
        if (state.history[i].fromFile == file && state.history[i].fromRow == row) return true;
    return false;
}

// True when (file, row) holds `piece` of `colour`.
bool PieceAt(const GameState& state, Word file, Word row, Word piece, Word colour) {
    const BoardCell& cell = state.board[row][file];
    return cell.piece == piece && cell.colour == colour;
}

// The castling field: a right stands while king and rook are on their squares and the history
// shows no move from either.
std::string CastlingField(const GameState& state) {
    std::string field;
    for (Word colour : {White, Black}) {
        const Word home = colour == White ? 0 : 7;
        if (!PieceAt(state, 4, home, King, colour) || HistoryLeaves(state, 4, home)) continue;
        const auto right = [&](Word rookFile, char letter) {
            if (PieceAt(state, rookFile, home, Rook, colour) && !HistoryLeaves(state, rookFile, home))
                field += colour == White ? static_cast<char>(std::toupper(letter)) : letter;
        };
        right(7, 'k');
        right(0, 'q');
    }
    return field.empty() ? "-" : field;
}

// The en passant field: the square a pawn's double step of the last ply passed over.
std::string EnPassantField(const GameState& state) {
    if (state.plyCount == 0) return "-";
    const MoveRecord& last = state.history[state.plyCount - 1];
    const Word step = last.toRow - last.fromRow;
    if (last.movedPiece != Pawn || (step != 2 && step != -2)) return "-";
    return SquareText(last.toFile, last.fromRow + step / 2);
}

// Plies since the last pawn move or capture, as far as the history reaches back.
Word QuietPlies(const GameState& state) {
    Word count = 0;
    for (Word i = state.plyCount - 1; i >= 0; --i, ++count)
        if (state.history[i].movedPiece == Pawn || state.history[i].capturedPiece != PieceNone) break;
    return count;
}

} // namespace

std::string MoveText(const MoveListEntry& move, Word promotionPiece) {
    std::string text = SquareText(move.fromFile, move.fromRow) + SquareText(move.toFile, move.toRow);
    if (promotionPiece != PieceNone) text += PieceLetters[promotionPiece];
    return text;
}

std::string RecordText(const MoveRecord& record) {
    const MoveListEntry move{static_cast<std::int8_t>(record.fromFile),
                             static_cast<std::int8_t>(record.fromRow),
                             static_cast<std::int8_t>(record.toFile), static_cast<std::int8_t>(record.toRow)};
    return MoveText(move, record.placedPiece != record.movedPiece ? record.placedPiece : PieceNone);
}

bool ReadMoveText(const std::string& text, MoveInput& out) {
    if (text.size() != 4 && text.size() != 5) return false;
    const auto file = [&](std::size_t i) { return text[i] >= 'a' && text[i] <= 'h'; };
    const auto row = [&](std::size_t i) { return text[i] >= '1' && text[i] <= '8'; };
    if (!file(0) || !row(1) || !file(2) || !row(3)) return false;
    out.move = {static_cast<std::int8_t>(text[0] - 'a'), static_cast<std::int8_t>(text[1] - '1'),
                static_cast<std::int8_t>(text[2] - 'a'), static_cast<std::int8_t>(text[3] - '1')};
    out.promotionPiece = PieceNone;
    if (text.size() == 5) {
        out.promotionPiece = PromotionPieceOf(text[4]);
        if (out.promotionPiece == PieceNone) return false;
    }
    return true;
}

std::string PlayMoveInput(GameState& state, const MoveInput& input) {
    if (state.plyCount >= MaxGamePlies) return "the game has reached its longest length";
    MoveListEntry moves[MoveBufferCapacity];
    state.GenerateLegalMoves(moves, state.sideToMove);
    const MoveListEntry& m = input.move;
    for (Word i = 0; i < state.moveCount; ++i) {
        const MoveListEntry& legal = moves[i];
        if (legal.fromFile != m.fromFile || legal.fromRow != m.fromRow || legal.toFile != m.toFile ||
            legal.toRow != m.toRow)
            continue;
        const bool promotes =
            state.board[m.fromRow][m.fromFile].piece == Pawn && (m.toRow == 0 || m.toRow == 7);
        if (promotes && input.promotionPiece == PieceNone) return "a promotion needs the piece letter";
        if (!promotes && input.promotionPiece != PieceNone) return "only a promotion takes a piece letter";
        state.MakeMove(&state.history[CheckedIndex(state.plyCount, HistoryCapacity)], m.fromFile, m.fromRow,
                       m.toFile, m.toRow, Silent, input.promotionPiece);
        ++state.plyCount;
        state.sideToMove = Opposite(state.sideToMove);
        return "";
    }
    return "not a legal move";
}

std::string PositionFen(const GameState& state) {
    std::string fen;
    for (Word row = 7; row >= 0; --row) {
        int empty = 0;
        for (Word file = 0; file < 8; ++file) {
            const BoardCell& cell = state.board[row][file];
            if (cell.piece == PieceNone) {
                ++empty;
                continue;
            }
            if (empty > 0) fen += static_cast<char>('0' + empty);
            empty = 0;
            const char letter = PieceLetters[cell.piece];
            fen += cell.colour == White ? static_cast<char>(std::toupper(letter)) : letter;
        }
        if (empty > 0) fen += static_cast<char>('0' + empty);
        if (row > 0) fen += '/';
    }
    fen += state.sideToMove == White ? " w " : " b ";
    fen += CastlingField(state) + " " + EnPassantField(state) + " " + std::to_string(QuietPlies(state));
    const Word firstMoverPlies = state.setupFirstMover == Black ? 1 : 0;
    fen += " " + std::to_string(1 + (state.plyCount + firstMoverPlies) / 2);
    return fen;
}
