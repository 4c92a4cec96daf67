// Saving the position a row of the moves list shows: the line of a position file and the
// decisions around it, with the user's answers and the file itself going through the host.
#include "records/game_file.h"
#include "records/position_file.h"

namespace {

// The row of the moves list whose position the board shows. With no list, or no row selected,
// the board shows the last position.
Word ShownListRow(const GameState& state) {
    const Word row = movesListWindow != nullptr ? HostListSelection(movesListWindow) : -1;
    return row >= 0 ? row : state.plyCount;
}

// Letter of a piece of a position file, in upper case.
char PositionLetter(Word piece) {
    static constexpr char letters[] = {'?', 'P', 'N', 'B', 'R', 'Q', 'K'};
    return piece >= Pawn && piece <= King ? letters[piece] : '?';
}

} // namespace

Text PositionLine(const BoardCell (&board)[8][8], Word colourToMove) {
    Text line;
    for (Word i = 0; i < 8; ++i) {
        if (i > 0) line.AppendChar('/');
        Word empty = 0;
        for (const BoardCell& cell : board[7 - i]) {
            if (cell.piece == PieceNone) {
                ++empty;
                continue;
            }
            if (empty > 0) line.AppendChar(static_cast<char>('0' + empty));
            empty = 0;
            const char letter = PositionLetter(cell.piece);
            line.AppendChar(cell.colour == Black ? static_cast<char>(letter - 'A' + 'a') : letter);
        }
        if (empty > 0) line.AppendChar(static_cast<char>('0' + empty));
    }
    line.Append(colourToMove == White ? " w" : " b");
    line.Append(" - - 0 0\"");
    return line;
}

void GameState::SavePosition() {
    // The board shows the position of the selected row, so that row says who moves.
    const Word row = ShownListRow(*this);
    const Word side = SideAtListIndex(row);

    // A finished position may be saved, but only on purpose.
    if (CheckGameEnd(side, NoMessage) != GameGoesOn && !HostAskYesNo(GameOverWarning, DefaultNo)) return;

    // The name, dated, for the user to confirm or change.
    char shortDate[127];
    HostShortDate(shortDate, sizeof shortDate);
    saveFileName = DefaultPositionFileName(shortDate, HostLocalTime());
    if (!HostAskSaveName(saveFileName, SaveDialogTitle(*this))) return;

    // The line; a set-up game counts its rows from its first mover.
    const Word parity = (row + (setupStart ? setupFirstMover : 0)) % 2;
    const Text line = PositionLine(board, parity == 0 ? White : Black);

    // The file; when it could not be written the user hears so and nothing counts as saved.
    Text fileName(saveFileName);
    fileName.Append(".fen");
    if (!HostWriteSaveFile(fileName.Chars(), line.Chars(), line.Length())) {
        HostShowMessage(WriteFailedText);
        return;
    }

    // Only the begin position of a set-up game is the game itself.
    if (setupStart && row == 0) gameDirty = 0;
    HostShowMessage(PositionSavedText);
}
