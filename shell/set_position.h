// Set-up of a position by hand, as the main window meets it: the menu command, clicks on the
// board while the palette is shown, and the choice of a palette row in the moves list.
#pragma once

#include <windows.h>

#include "core/types.h"

// Position, Set: turns the moves list into the palette and empties the board.
void OnPositionSet();

// A click on the board square (file, row) in set-up, with palette row r selected: the play button
// places white pieces, the other button black ones.
void OnSetupClick(UINT message, Word file, Word row, Word r);

// A new selection in the moves list during set-up: the two move rows try to end it.
void OnSetupListSelection();
