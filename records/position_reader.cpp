// Reading a position file into the load dialog's work space, and the plausibility test that
// keeps impossible or finished positions from being loaded.
#include "records/position_file.h"

#include <initializer_list>

#include "records/material.h"

namespace {

// The piece and colour of a letter of a position file; PieceNone for any other character.
Word PieceOfLetter(char letter, Word& colour) {
    static constexpr char whiteLetters[] = "PNBRQK";
    static constexpr char blackLetters[] = "pnbrqk";
    for (Word i = 0; i < 6; ++i) {
        if (letter == whiteLetters[i] || letter == blackLetters[i]) {
            colour = letter == whiteLetters[i] ? White : Black;
            return Pawn + i;
        }
    }
    return PieceNone;
}

// Places the pieces of the board field on `state`, row 7 first, and gives the index of the blank
// that ends the field, or -1 when the text ends first. An "8" takes the character behind it along,
// so that an empty row needs no "/" of its own; pieces that fall outside the board are left out.
Word ScanBoardField(GameState& state, const Text& text) {
    Word file = 0, row = 0;
    for (Word i = 0; i < text.Length(); ++i) {
        const char c = text.CharAt(i);
        Word colour = White;
        const Word piece = PieceOfLetter(c, colour);
        if (c == '/') {
            ++row;
            file = 0;
        } else if (c >= '1' && c <= '7') {
            file += c - '0';
        } else if (c == '8') {
            ++row;
            file = 0;
            ++i;
        } else if (piece != PieceNone) {
            if (GameState::IsOnBoard(file, 7 - row)) {
                BoardCell& cell = state.board[7 - row][file];
                cell.piece = piece;
                cell.colour = colour;
            }
            ++file;
        }
        if (text.CharAt(i) == ' ') return i;
    }
    return -1;
}

// True when a pawn stands where no pawn can stand, or a side has not exactly one king, or more
// pieces stand than eight pawns could have become.
bool ImpossibleMaterial(const GameState& state) {
    for (Word file = 0; file < 8; ++file)
        if (state.board[0][file].piece == Pawn || state.board[7][file].piece == Pawn) return true;
    const PieceCounts pieces = CountPieces(state.board);
    const BishopCounts bishops = CountBishopsBySquareColour(state.board);
    for (const Word colour : {White, Black}) {
        const Word(&n)[7] = pieces.byPiece[colour];
        if (n[King] != 1 || n[Pawn] + ExtraPieces(pieces, bishops, colour) > 8) return true;
    }
    return false;
}

} // namespace

void GameState::ParsePosition(Text text) {
    // An empty board to place the pieces on.
    previewStatus = Text();
    text.TrimLeadingBlanks();
    ResetGameState(ResetStartPosition);
    for (auto& cells : board)
        for (BoardCell& cell : cells)
            cell = BoardCell{};

    // The board field, then the side behind the blank that ends it.
    const Word blank = ScanBoardField(*this, text);
    const char side = blank >= 0 ? text.CharAt(blank + 1) : ' ';
    sideToMove = side == 'w' || side == 'W' ? White : Black;
    setupFirstMover = sideToMove;

    // The position is checked, given to two people, and kept as the start of a set-up game.
    ValidatePosition();
    sides[White].kind = SideHuman;
    sides[Black].kind = SideHuman;
    for (Word row = 0; row < 8; ++row)
        for (Word file = 0; file < 8; ++file)
            startBoard[row][file] = board[row][file];
}

bool PositionIsImpossible(GameState& state) {
    if (ImpossibleMaterial(state)) return true;
    // The side that has just moved cannot have left its king in check.
    const Word waiting = Opposite(state.sideToMove);
    Word kingFile = 0, kingRow = 0;
    return state.FindKing(waiting, kingFile, kingRow) && state.IsSquareAttacked(waiting, kingFile, kingRow);
}

void GameState::ValidatePosition() {
    previewStatus = PositionIsImpossible(*this) ? Text(ErrorPositionText) : Text();
    // Last, so that a finished position reads as such even when it is also impossible.
    if (CheckGameEnd(sideToMove, NoMessage) != GameGoesOn) previewStatus = Text(GameOverText);
}
