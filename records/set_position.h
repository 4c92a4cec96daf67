// Setting up a position by hand: the palette that replaces the moves list, the placing of pieces
// within the material a game can have, and the tests that hand the position over to analysis.
#pragma once

#include "core/game_state.h"

// The rows of the moves list while a position is set up. A row below SetupClearRow places the
// piece whose code is the row + 1.
enum SetupRow : Word {
    SetupPawnRow = 0,
    SetupKingRow = 5,
    SetupClearRow = 6,
    SetupWhiteMoveRow = 7,
    SetupBlackMoveRow = 8,
    SetupRowCount = 9,
};

inline constexpr const char* SetupRowTexts[SetupRowCount] = {
    " Pawn", " Knight", " Bishop", " Rook", " Queen", " King", " Clear field", " White move", " Black move",
};

inline constexpr const char* MovesListNeededText =
    "This mode needs <Moves list> to be displayed.\nSelect menu item <Options> and set it.";
inline constexpr const char* KingsNotFoundText = "Kings are not found!";
inline constexpr const char* WhiteKingNotFoundText = "White king is not found!";
inline constexpr const char* BlackKingNotFoundText = "Black king is not found!";
inline constexpr const char* OnlyKingsText = "Only kings are found!";
inline constexpr const char* BlackKingInCheckText = "Black king is check!";
inline constexpr const char* WhiteKingInCheckText = "White king is check!";
inline constexpr const char* SetupFinishedText = "Position error: this game is finished.";

// Starts set-up on an empty board, after the offer to save the game it replaces. Without a visible
// moves list there is no palette, so the user is told so and the game stays as it was.
void EnterSetPosition(GameState& state, Word movesListShown);

// 1 when a piece `piece` of `colour` may stand on (file, row) beside the pieces already there; the
// cell itself must be empty when asked. Pieces beyond the starting set are paid for by missing
// pawns, and a side's first two bishops must stand on squares of different colours.
Word CheckPlacement(const GameState& state, Word piece, Word colour, Word file, Word row);

// A click on (file, row) with palette row `paletteRow` selected, placing for `colour`: places the
// piece when the material allows it, takes away the same piece of the same colour, or clears the
// square. Refusals are silent; the two move rows do nothing here.
void PlaceFromPalette(GameState& state, Word paletteRow, Word colour, Word file, Word row);

// Ends set-up with White (row 7) or Black (row 8) to move when the position can start a game: two
// kings and something more, the side not to move not in check, and the game not already over.
// Otherwise tells the user why and stays in set-up. 1 when the position was taken.
Word LeaveSetPosition(GameState& state, Word r);
