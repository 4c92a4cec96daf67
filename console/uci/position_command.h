// The "position" command, which sets up `game` from the start position or a FEN and plays the
// moves after it, and "d", which shows what was set up.
#pragma once

#include <string>

// Sets up `game` from the words after "position". A FEN that cannot be read leaves the game as
// it was; a move that cannot be played ends the list there, with the moves before it kept.
// Either is reported on an "info string" line.
void SetUpPosition(const std::string& arguments);

// Writes the board of `game`, the side to move, its FEN and the position command that gives it.
void ShowPosition();

// Puts `game` back to the start position with White to move.
void ResetToStartPosition();
