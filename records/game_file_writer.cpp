// The text of a game file and the default file names: pure builders that read a game and the
// date and time the caller gives them, and never talk to the user.
#include "records/game_file.h"

#include "core/replay.h"
#include "records/moves_list.h"

#include <initializer_list>

namespace {

// Appends a number as exactly two digits, with a leading zero.
void AppendTwoDigits(Text& text, Word number) {
    text.AppendChar(static_cast<char>('0' + number / 10 % 10));
    text.AppendChar(static_cast<char>('0' + number % 10));
}

// Appends a clock in seconds as HH:MM:SS. Past 99 hours the hours wrap; no game lasts that long.
void AppendClock(Text& text, Word seconds) {
    AppendTwoDigits(text, seconds / 3600);
    text.AppendChar(':');
    AppendTwoDigits(text, seconds % 3600 / 60);
    text.AppendChar(':');
    AppendTwoDigits(text, seconds % 60);
}

void AppendSquare(Text& text, Word file, Word row) {
    text.AppendChar(static_cast<char>('a' + file));
    text.AppendChar(static_cast<char>('1' + row));
}

const char* KindWord(Word kind) {
    return kind == SideHuman ? "Human" : "Computer";
}

// Appends a file letter and/or a row digit when another piece of the mover's kind and colour could
// also reach the to-square: the file when it tells the pieces apart, the row when it does not,
// and both once two or more rivals stand on other files.
void AppendDisambiguation(Text& token, GameState& scratch, const MoveRecord& record) {
    Word needFile = 0, needRow = 0;
    for (Word row = 0; row < 8; ++row) {
        for (Word file = 0; file < 8; ++file) {
            if (file == record.fromFile && row == record.fromRow) continue;
            const BoardCell& cell = scratch.board[row][file];
            if (cell.piece != record.movedPiece || cell.colour != record.movedColour) continue;
            // Only a legal move counts, so a pinned rival needs no letter.
            scratch.MarkLegalTargets(scratch.sideToMove, file, row);
            if (!scratch.board[record.toRow][record.toFile].legalTarget) continue;
            if (file == record.fromFile || needFile)
                needRow = 1;
            else
                needFile = 1;
        }
    }
    if (needFile) token.AppendChar(static_cast<char>('a' + record.fromFile));
    if (needRow) token.AppendChar(static_cast<char>('1' + record.fromRow));
}

} // namespace

const char* ResultText(Word gameEnd, Word sideToMove) {
    switch (gameEnd) {
    case GameCheckmate: return sideToMove == White ? "0 - 1" : "1 - 0";
    case GameStalemate:
    case GameDrawn: return "1/2 - 1/2";
    default: return "? - ?";
    }
}

Text GameFileHeader(const GameState& state, const LocalTime& date, const char* result) {
    Text text("[Event \"Velok-3: Local game {");
    text.Append(KindWord(state.sides[White].kind));
    text.Append(" VS ");
    text.Append(KindWord(state.sides[Black].kind));
    text.Append("}\"]");
    text.AppendCrLf();
    text.Append("[Site \"Local\"]");
    text.AppendCrLf();
    text.Append("[Round \"-\"]");
    text.AppendCrLf();
    text.Append("[White \"");
    text.Append(state.sides[White].name);
    text.Append("\"]");
    text.AppendCrLf();
    text.Append("[Black \"");
    text.Append(state.sides[Black].name);
    text.Append("\"]");
    text.AppendCrLf();
    text.Append("[Date \"");
    text.AppendInt(date.year);
    text.AppendChar('.');
    AppendTwoDigits(text, date.month);
    text.AppendChar('.');
    AppendTwoDigits(text, date.day);
    text.Append("\"]");
    text.AppendCrLf();
    text.Append("[Result \"");
    text.Append(result);
    text.Append("\"]");
    text.AppendCrLf();
    text.Append("{VELOK-3 INFORMATION; TIME WHITE SIDE = ");
    AppendClock(text, state.sides[White].clockSeconds);
    text.Append("; TIME BLACK SIDE = ");
    AppendClock(text, state.sides[Black].clockSeconds);
    text.AppendChar(';');
    if (state.sides[White].kind == SideComputer || state.sides[Black].kind == SideComputer) {
        text.Append(" GAME LEVEL = ");
        text.AppendInt(state.level);
        text.AppendChar(';');
    }
    text.AppendChar('}');
    text.AppendCrLf();
    text.AppendCrLf();
    return text;
}

Text MoveToken(const GameState& game, Word index, GameState& scratch) {
    const MoveRecord& record = game.history[index];
    Text token;
    const bool pawn = record.movedPiece == Pawn;
    // The leading letter; a capturing pawn is named by its file.
    if (pawn) {
        if (record.capturedPiece != PieceNone || record.extraPiece != PieceNone)
            token.AppendChar(static_cast<char>('a' + record.fromFile));
    } else {
        token.Append(PieceLetter(record.movedPiece));
    }
    // Disambiguation, for the pieces that can have rivals.
    if (record.movedPiece >= Knight && record.movedPiece <= Queen)
        AppendDisambiguation(token, scratch, record);
    // Capture; the rook of a castling is no capture.
    if (record.capturedPiece != PieceNone || (pawn && record.extraPiece != PieceNone)) token.AppendChar('x');
    // The to-square, then the move itself on the scratch game.
    AppendSquare(token, record.toFile, record.toRow);
    ReplayRecord(game, index, scratch);
    // Mate or check of the side now to move.
    token.Append(CheckSign(scratch));
    // Castling replaces the whole token, sign included.
    if (record.movedPiece == King && record.fromFile == 4 && record.toFile == 2) token = Text("O-O-O");
    if (record.movedPiece == King && record.fromFile == 4 && record.toFile == 6) token = Text("O-O");
    // Promotion, behind the sign in this dialect.
    if (record.placedPiece != record.movedPiece) {
        token.AppendChar('=');
        token.AppendChar(PromotionLetter(record.placedPiece));
    }
    return token;
}

Text GameFileMoves(const GameState& state, Word count) {
    GameState scratch;
    ReplayStart(state, scratch);
    Text line;
    for (Word i = 0; i < count; ++i) {
        if (i % 2 == 0) {
            line.AppendInt(i / 2 + 1);
            line.Append(". ");
        }
        line.AppendText(MoveToken(state, i, scratch));
        line.AppendChar(' ');
    }
    return line;
}

Text DateForFileName(const char* shortDate) {
    // The dialog's buffer holds 126 characters and the terminator.
    constexpr Word lookedAt = 126;
    Text date;
    for (Word i = 0; i < lookedAt && shortDate[i] != 0; ++i) {
        const char c = shortDate[i];
        date.AppendChar(c >= '0' && c <= '9' ? c : '_');
    }
    return date;
}

Text DefaultGameFileName(const GameState& state, const char* shortDate, const LocalTime& time) {
    Text name("[");
    name.Append(state.sides[White].name);
    name.Append("]-[");
    name.Append(state.sides[Black].name);
    name.Append("]-[");
    name.AppendText(DateForFileName(shortDate));
    name.Append("]-[");
    AppendTwoDigits(name, time.hour);
    name.AppendChar('-');
    AppendTwoDigits(name, time.minute);
    name.AppendChar(']');
    // Player names may hold what a file name may not.
    for (const char forbidden : {'<', '>', '"', '\\', '/', '*', '?', ':', '|'})
        name.Remove(forbidden);
    return name;
}

Text DefaultPositionFileName(const char* shortDate, const LocalTime& time) {
    Text name("[");
    name.AppendText(DateForFileName(shortDate));
    name.Append("] [");
    AppendTwoDigits(name, time.hour);
    name.AppendChar('-');
    AppendTwoDigits(name, time.minute);
    name.AppendChar(']');
    return name;
}

const char* SaveDialogTitle(const GameState& state) {
    return state.setupStart ? "Save position" : "Save game";
}
