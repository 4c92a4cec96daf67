// Test helpers: positions set up from FEN fields, moves played directly or by clicks, and the
// names and files the tests compare.
#include "support/board_setup.h"

#include <cctype>
#include <cstring>
#include <sstream>

#include "double/host_double.h"
#include "records/game_file.h"

void SetUpBoard(GameState& state, const std::string& fen) {
    state.ResetGameState(ResetEmpty);
    int row = 7, file = 0;
    std::size_t i = 0;
    for (; i < fen.size() && fen[i] != ' '; ++i) {
        const char c = fen[i];
        if (c == '/') {
            --row;
            file = 0;
        } else if (std::isdigit(static_cast<unsigned char>(c))) {
            file += c - '0';
        } else {
            static const std::string letters = "pnbrqk";
            const auto k = letters.find(static_cast<char>(std::tolower(static_cast<unsigned char>(c))));
            state.board[row][file].piece = static_cast<Word>(k + 1);
            state.board[row][file].colour = std::isupper(static_cast<unsigned char>(c)) ? White : Black;
            ++file;
        }
    }
    const bool black = i + 1 < fen.size() && fen[i + 1] == 'b';
    state.sideToMove = black ? Black : White;
    state.setupFirstMover = state.sideToMove;

    // The game reads castling rights from the history, so the rights a FEN denies become moves
    // "already played" by the king or rook, and an en passant square becomes the double step
    // that allows it.
    std::size_t fields = i + 2;
    if (fields + 1 >= fen.size()) return;
    const std::size_t castlingEnd = fen.find(' ', fields + 1);
    const std::string castling = fen.substr(
        fields + 1, castlingEnd == std::string::npos ? std::string::npos : castlingEnd - fields - 1);
    auto played = [&state](Word piece, Word colour, int fromFile, int fromRow, int toFile, int toRow) {
        MoveRecord& r = state.history[state.plyCount++];
        r = MoveRecord{};
        r.fromFile = fromFile;
        r.fromRow = fromRow;
        r.toFile = toFile;
        r.toRow = toRow;
        r.movedPiece = r.placedPiece = piece;
        r.movedColour = colour;
        r.extraFromFile = r.extraToFile = -1;
    };
    for (Word colour : {White, Black}) {
        const int home = colour == White ? 0 : 7;
        const bool shortRight = castling.find(colour == White ? 'K' : 'k') != std::string::npos;
        const bool longRight = castling.find(colour == White ? 'Q' : 'q') != std::string::npos;
        if (!shortRight && !longRight) {
            played(King, colour, 4, home, 4, home);
        } else {
            if (!shortRight) played(Rook, colour, 7, home, 7, home);
            if (!longRight) played(Rook, colour, 0, home, 0, home);
        }
    }
    if (castlingEnd != std::string::npos && castlingEnd + 2 < fen.size() && fen[castlingEnd + 1] != '-') {
        const int file = fen[castlingEnd + 1] - 'a', row = fen[castlingEnd + 2] - '1';
        if (row == 5) played(Pawn, Black, file, 6, file, 4);
        if (row == 2) played(Pawn, White, file, 1, file, 3);
    }
}

bool PlayMove(GameState& state, const std::string& move, Word promotion) {
    const int ff = move[0] - 'a', fr = move[1] - '1', tf = move[2] - 'a', tr = move[3] - '1';
    MoveListEntry moves[MoveBufferCapacity];
    state.GenerateLegalMoves(moves, state.sideToMove);
    for (Word i = 0; i < state.moveCount; ++i) {
        const MoveListEntry& m = moves[i];
        if (m.fromFile == ff && m.fromRow == fr && m.toFile == tf && m.toRow == tr) {
            state.MakeMove(&state.history[state.plyCount], ff, fr, tf, tr, Silent, promotion);
            ++state.plyCount;
            state.sideToMove = Opposite(state.sideToMove);
            return true;
        }
    }
    return false;
}

void SetUpGame(GameState& state, const std::string& fen) {
    SetUpBoard(state, fen);
    state.setupStart = 1;
    state.gameActive = 1;
    std::memcpy(static_cast<void*>(state.startBoard), state.board, sizeof state.startBoard);
}

bool PlayLine(GameState& state, const std::string& line) {
    state.ResetGameState(ResetStartPosition);
    std::istringstream moves(line);
    for (std::string move; moves >> move;) {
        const Word promotion =
            move.size() < 5 ? Queen : static_cast<Word>(std::string("?pnbrq").find(move[4]));
        if (!PlayMove(state, move.substr(0, 4), promotion)) return false;
    }
    return true;
}

namespace {
int clickListControl;
}

ListHandle clickList = &clickListControl;

bool ClickMove(GameState& state, const std::string& move) {
    const Word fromFile = move[0] - 'a', fromRow = move[1] - '1', toFile = move[2] - 'a',
               toRow = move[3] - '1';
    state.MarkLegalTargets(state.sideToMove, fromFile, fromRow);
    if (state.legalTargetCount == 0 || !state.board[toRow][toFile].legalTarget) return false;
    state.board[fromRow][fromFile].mark = MarkFrom;
    state.board[toRow][toFile].mark = MarkTo;
    state.PlayChosenMove(&clickList);
    return true;
}

std::size_t ClickMoves(GameState& state, const std::vector<std::string>& moves) {
    std::size_t played = 0;
    while (played < moves.size() && ClickMove(state, moves[played]))
        ++played;
    return played;
}

const std::vector<std::string>& ClickListRows() {
    return Host().lists[clickList].rows;
}

std::string Str(const Text& text) {
    return std::string(text.Chars(), text.Length());
}

std::string GameFileOf(GameState& state, const LocalTime& date) {
    Text text = GameFileHeader(state, date,
                               ResultText(state.CheckGameEnd(state.sideToMove, NoMessage), state.sideToMove));
    text.AppendText(GameFileMoves(state, state.plyCount));
    return Str(text);
}

std::string SquareName(int file, int row) {
    return std::string(1, static_cast<char>('a' + file)) + static_cast<char>('1' + row);
}

std::string MoveName(const MoveListEntry& m) {
    return SquareName(m.fromFile, m.fromRow) + SquareName(m.toFile, m.toRow);
}

std::string BoardLetters(const BoardCell (&board)[8][8]) {
    std::string letters;
    for (int row = 7; row >= 0; --row)
        for (int file = 0; file < 8; ++file) {
            const BoardCell& cell = board[row][file];
            letters +=
                cell.piece == PieceNone
                    ? '.'
                    : static_cast<char>("?pnbrqk"[cell.piece] - (cell.colour == White ? 'a' - 'A' : 0));
        }
    return letters;
}
