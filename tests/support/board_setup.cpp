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
    std::istringstream fields(fen);
    std::string cells, side, castling = "KQkq", enPassant = "-";
    fields >> cells >> side >> castling >> enPassant;
    int row = 7, file = 0;
    for (const char c : cells) {
        if (c == '/') {
            --row;
            file = 0;
        } else if (std::isdigit(static_cast<unsigned char>(c))) {
            file += c - '0';
        } else {
            BoardCell& cell = state.board[row][file++];
            cell.piece = static_cast<Word>(std::string("?pnbrqk").find(static_cast<char>(std::tolower(c))));
            cell.colour = std::isupper(static_cast<unsigned char>(c)) ? White : Black;
        }
    }
    state.sideToMove = state.setupFirstMover = side == "b" ? Black : White;
    // The game reads castling rights and en passant from the history: the rights the line denies
    // become king or rook moves "already played", its en passant square the double step before.
    auto played = [&state](Word piece, Word colour, Word file, Word fromRow, Word toRow) {
        state.history[state.plyCount++] =
            MoveRecord{file, fromRow, file, toRow, piece, colour, 0, piece, -1, 0, -1, 0, 0, 0};
    };
    for (Word colour : {White, Black}) {
        const Word home = colour == White ? 0 : 7;
        const bool kingSide = castling.find(colour == White ? 'K' : 'k') != std::string::npos;
        const bool queenSide = castling.find(colour == White ? 'Q' : 'q') != std::string::npos;
        if (!kingSide && !queenSide) played(King, colour, 4, home, home);
        if (kingSide != queenSide) played(Rook, colour, kingSide ? 0 : 7, home, home);
    }
    if (enPassant != "-") {
        const Word epFile = enPassant[0] - 'a', black = enPassant[1] == '6';
        played(Pawn, black ? Black : White, epFile, black ? 6 : 1, black ? 4 : 3);
    }
}

void SetUpGame(GameState& state, const std::string& fen) {
    SetUpBoard(state, fen);
    state.setupStart = state.gameActive = 1;
    std::memcpy(static_cast<void*>(state.startBoard), state.board, sizeof state.startBoard);
}

bool PlayMove(GameState& state, const std::string& move, Word promotion) {
    MoveListEntry moves[MoveBufferCapacity];
    state.GenerateLegalMoves(moves, state.sideToMove);
    for (Word i = 0; i < state.moveCount; ++i) {
        const MoveListEntry& m = moves[i];
        if (MoveName(m) != move.substr(0, 4)) continue;
        state.MakeMove(&state.history[state.plyCount++], m.fromFile, m.fromRow, m.toFile, m.toRow, Silent,
                       promotion);
        state.sideToMove = Opposite(state.sideToMove);
        return true;
    }
    return false;
}

bool PlayLine(GameState& state, const std::string& line) {
    state.ResetGameState(ResetStartPosition);
    std::istringstream moves(line);
    for (std::string move; moves >> move;)
        if (!PlayMove(state, move,
                      move.size() < 5 ? Queen : static_cast<Word>(std::string("?pnbrq").find(move[4]))))
            return false;
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

std::string SquareName(int file, int row) {
    return {static_cast<char>('a' + file), static_cast<char>('1' + row)};
}

std::string MoveName(const MoveListEntry& m) {
    return SquareName(m.fromFile, m.fromRow) + SquareName(m.toFile, m.toRow);
}

std::string BoardLetters(const BoardCell (&board)[8][8]) {
    std::string letters;
    for (int row = 7; row >= 0; --row)
        for (const BoardCell& cell : board[row])
            letters += cell.piece == PieceNone
                           ? '.'
                           : static_cast<char>("?pnbrqk"[cell.piece] - (cell.colour == White) * 32);
    return letters;
}

std::string Str(const Text& text) {
    return std::string(text.Chars(), text.Length());
}

std::string GameFileOf(GameState& state, const LocalTime& date) {
    const Word end = state.CheckGameEnd(state.sideToMove, NoMessage);
    Text text = GameFileHeader(state, date, ResultText(end, state.sideToMove));
    text.AppendText(GameFileMoves(state, state.plyCount));
    return Str(text);
}
