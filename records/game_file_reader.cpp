// Reading a game file: names, kinds, clocks and level found by their marker strings, and the
// moves cut at dots and blanks and replayed until the first one that cannot be played.
#include "records/game_file.h"

#include <initializer_list>

namespace {

// A game file holds at most this many move tokens, two to a numbered pair.
constexpr Word MaxTokens = MaxGamePlies;
// A name read from a file is at most as long as the computer's.
constexpr Word MaxNameLength = 18;

// Index of the end of the next token of `moves`: the first blank, else the first LF, else the
// first CR; -1 when there is none, so a last token with nothing behind it is not taken.
Word TokenEnd(const Text& moves) {
    Word end = moves.Find(' ', 0);
    if (end < 0) end = moves.Find('\n', 0);
    if (end < 0) end = moves.Find('\r', 0);
    return end;
}

// Moves the next token of `moves` into `token` and drops it with its separator; false when
// no token is left.
bool TakeToken(Text& moves, Text& token) {
    moves.TrimLeadingBlanks();
    const Word end = TokenEnd(moves);
    if (end < 0) return false;
    token.AssignRange(moves, 0, end);
    moves.Mid(end + 1);
    return true;
}

// Cuts the move tokens out of `moves`: behind each dot, White's token and then Black's. The
// numbers in front of the dots are never read.
void CutTokens(Text moves, Text (&tokens)[MaxTokens]) {
    Word count = 0;
    for (Word pair = 0; pair < MaxTokens / 2; ++pair) {
        const Word dot = moves.Find('.', 0);
        if (dot < 0) break;
        moves.Mid(dot + 1);
        if (!TakeToken(moves, tokens[CheckedIndex(count, MaxTokens)])) break;
        ++count;
        if (!TakeToken(moves, tokens[CheckedIndex(count, MaxTokens)])) break;
        ++count;
    }
}

// The piece a token's first character asks for, and whether that character is a piece letter
// to drop; PieceNone when the token cannot be a move.
Word SoughtPiece(char first, bool& dropLetter) {
    dropLetter = true;
    switch (first) {
    case 'B': return Bishop;
    case 'K': return King;
    case 'N': return Knight;
    case 'P': return Pawn;
    case 'Q': return Queen;
    case 'R': return Rook;
    default: break;
    }
    dropLetter = false;
    return GameState::FileIndex(first) >= 0 ? Pawn : PieceNone;
}

// The promotion piece a token ends with ("=Q"), 0 when it has no "=" part, -1 when the letter
// names no piece. The "=" part is cut off the token.
Word TakePromotion(Text& token) {
    if (token.Find('=', 0) < 0) return PieceNone;
    Word piece = -1;
    switch (token.CharAt(token.Length() - 1)) {
    case 'B': piece = Bishop; break;
    case 'N': piece = Knight; break;
    case 'Q': piece = Queen; break;
    case 'R': piece = Rook; break;
    default: return -1;
    }
    token.Left(token.Length() - 2);
    return piece;
}

// Plays a castling of the side to move; false when the king may not go there.
bool PlayCastling(GameState& state, Word toFile) {
    const Word row = state.sideToMove == White ? 0 : 7;
    if (!state.CanMovePiece(King, 4, row, toFile, row)) return false;
    state.MakeMove(&state.history[CheckedIndex(state.plyCount, HistoryCapacity)], 4, row, toFile, row, Silent,
                   PieceNone);
    ++state.plyCount;
    return true;
}

// Finds the from-square of `piece` reaching the to-square among the squares of one file
// (hintFile >= 0), one row (hintRow >= 0) or the whole board. Of several the last one found,
// row by row and file by file, wins. False when there is none.
bool FindMover(GameState& state, Word piece, Word hintFile, Word hintRow, Word toFile, Word toRow,
               Word& fromFile, Word& fromRow) {
    bool found = false;
    for (Word row = 0; row < 8; ++row) {
        if (hintRow >= 0 && row != hintRow) continue;
        for (Word file = 0; file < 8; ++file) {
            if (hintFile >= 0 && file != hintFile) continue;
            if (!state.CanMovePiece(piece, file, row, toFile, toRow)) continue;
            fromFile = file;
            fromRow = row;
            found = true;
        }
    }
    return found;
}

// Plays one stripped token of the side to move; false when it is no move that can be played.
bool PlayToken(GameState& state, Text token) {
    if (token.Equals("00") || token.Equals("OO")) return PlayCastling(state, 6);
    if (token.Equals("000") || token.Equals("OOO")) return PlayCastling(state, 2);

    Word promotion = TakePromotion(token);
    if (promotion < 0) return false;
    bool dropLetter = false;
    const Word piece = SoughtPiece(token.CharAt(0), dropLetter);
    if (token.Length() == 0 || piece == PieceNone) return false;
    if (dropLetter) token.Mid(1);

    const Word n = token.Length();
    if (n < 2 || n > 4) return false;
    const Word toFile = GameState::FileIndex(token.CharAt(n - 2));
    const Word toRow = GameState::RowIndex(token.CharAt(n - 1));
    if (toFile < 0 || toRow < 0) return false;
    Word fromFile = -1, fromRow = -1;
    if (n == 2) {
        if (!FindMover(state, piece, -1, -1, toFile, toRow, fromFile, fromRow)) return false;
    } else if (n == 3) {
        const Word hintFile = GameState::FileIndex(token.CharAt(0));
        const Word hintRow = GameState::RowIndex(token.CharAt(0));
        if (hintFile < 0 && hintRow < 0) return false;
        if (!FindMover(state, piece, hintFile, hintRow, toFile, toRow, fromFile, fromRow)) return false;
    } else {
        fromFile = GameState::FileIndex(token.CharAt(0));
        fromRow = GameState::RowIndex(token.CharAt(1));
        if (fromFile < 0 || fromRow < 0 || !state.CanMovePiece(piece, fromFile, fromRow, toFile, toRow))
            return false;
    }

    // The writer always names the piece a pawn becomes. A foreign file may not; the pawn then
    // becomes a queen, as nearly every player would choose.
    const Word lastRow = state.sideToMove == White ? 7 : 0;
    if (piece == Pawn && toRow == lastRow && promotion == PieceNone) promotion = Queen;

    state.MakeMove(&state.history[CheckedIndex(state.plyCount, HistoryCapacity)], fromFile, fromRow, toFile,
                   toRow, Silent, promotion);
    ++state.plyCount;
    return true;
}

// Copies the name between `tag` and the next quote into `side`, cut to MaxNameLength; the
// default when the tag is missing, has no closing quote or holds nothing.
void ReadName(const Text& text, const char* tag, const char* defaultName, SideRecord& side) {
    Text name(defaultName);
    const Word start = text.FindEnd(tag);
    const Word quote = start >= 0 ? text.Find('"', start) : -1;
    if (quote > start) {
        const Word length = quote - start < MaxNameLength ? quote - start : MaxNameLength;
        name.AssignRange(text, start, length);
    }
    // The terminating zero lands at the name's length, which must lie inside the record.
    CopyChars(name.Chars(), side.name, CheckedIndex(name.Length(), SideNameBytes), 0, 0);
    side.kind = name.Equals(ComputerName) ? SideComputer : SideHuman;
}

// The clock behind `marker`, 0 when it is missing or malformed.
Word ReadClock(const Text& text, const char* marker) {
    const Word start = text.FindEnd(marker);
    if (start < 0) return 0;
    Text clock;
    clock.AssignRange(text, start, 8);
    return GameState::ParseClock(clock);
}

} // namespace

void GameState::ParseGame(const Text& text) {
    // A game that did not begin at the start position cannot be replayed.
    previewStatus = Text();
    if (text.FindEnd("[FEN") >= 0) {
        previewStatus = Text(NotBeginPositionText);
        return;
    }

    // The moves stand behind the last "]".
    Word lastBracket = -1;
    for (Word at = text.Find(']', 0); at >= 0; at = text.Find(']', at + 1))
        lastBracket = at;
    Text moves(text);
    if (lastBracket >= 0) moves.Mid(lastBracket + 1);
    Text tokens[MaxTokens];
    CutTokens(moves, tokens);

    // Replay up to the first token that is no playable move; the tokens that were not cut are
    // empty and stop it there.
    ResetGameState(ResetStartPosition);
    for (Word i = 0; i < MaxTokens; ++i) {
        sideToMove = i % 2;
        Text& token = tokens[i];
        for (const char ignored : {'x', '-', '+', '#', ' ', '\n', '\r'})
            token.Remove(ignored);
        if (!PlayToken(*this, token)) break;
    }

    // Names, kinds, clocks and level.
    ReadName(text, "[White \"", "Player 1", sides[White]);
    ReadName(text, "[Black \"", "Player 2", sides[Black]);
    sides[White].clockSeconds = ReadClock(text, "TIME WHITE SIDE = ");
    sides[Black].clockSeconds = ReadClock(text, "TIME BLACK SIDE = ");
    level = 3;
    const Word levelAt = text.FindEnd("LEVEL = ");
    if ((sides[White].kind == SideComputer || sides[Black].kind == SideComputer) && levelAt >= 0) {
        level = text.CharAt(levelAt) - '0';
        if (level < 1 || level > 3) level = 3;
    }
}

Word GameState::ParseClock(const Text& text) {
    if (text.Length() != 8) return 0;
    for (const Word at : {0, 1, 3, 4, 6, 7})
        if (text.CharAt(at) < '0' || text.CharAt(at) > '9') return 0;
    auto pair = [&text](Word at) { return (text.CharAt(at) - '0') * 10 + text.CharAt(at + 1) - '0'; };
    return pair(0) * 3600 + pair(3) * 60 + pair(6);
}

Word GameState::CanMovePiece(Word piece, Word fromFile, Word fromRow, Word toFile, Word toRow) {
    const BoardCell& cell = board[fromRow][fromFile];
    if (cell.piece != piece || cell.colour != sideToMove) return 0;
    MarkLegalTargets(sideToMove, fromFile, fromRow);
    return board[toRow][toFile].legalTarget ? 1 : 0;
}

Word GameState::FileIndex(char character) {
    return character >= 'a' && character <= 'h' ? character - 'a' : -1;
}

Word GameState::RowIndex(char character) {
    return character >= '1' && character <= '8' ? character - '1' : -1;
}
