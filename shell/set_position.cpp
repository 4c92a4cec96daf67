// Set-up of a position by hand on the main window: the menu command, the mouse buttons that
// choose the colour, and the list rows that end the mode; the rules themselves are in records.
#include "shell/set_position.h"

#include "core/game_state.h"
#include "records/set_position.h"
#include "records/settings.h"
#include "shell/shell_state.h"

void OnPositionSet() {
    EnterSetPosition(game, displaySettings.showMovesList);
}

void OnSetupClick(UINT message, Word file, Word row, Word r) {
    const Word colour = message == shellState.playButtonMessage ? White : Black;
    PlaceFromPalette(game, r, colour, file, row);
}

void OnSetupListSelection() {
    const Word r = static_cast<Word>(SendMessageA(shellState.movesListWindow, LB_GETCURSEL, 0, 0));
    if (r == SetupWhiteMoveRow || r == SetupBlackMoveRow) LeaveSetPosition(game, r);
}
