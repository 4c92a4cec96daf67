// Game files: the text of a saved game (tag lines, information comment and the one line of
// moves), the default file names of both kinds of file, and the name the save dialog works on.
#pragma once

#include "core/game_state.h"
#include "records/text.h"

// The name proposed in and returned from the save-name dialog, shared by games and positions.
extern Text saveFileName;

// What the user is told around a save.
inline constexpr const char* GameSavedText = "Game saved";
inline constexpr const char* SetupGameRefusedText = "In <Position mode> you can save position only";
inline constexpr const char* SaveGameQuestion = "Save current game?";
inline constexpr const char* WriteFailedText = "The file could not be written. Nothing was saved.";
inline constexpr const char* NotBeginPositionText = "Not begin position";

// The name the computer plays under; a side of that name is read back as the computer.
inline constexpr const char* ComputerName = "Computer {Velok-3}";

// The Result tag for a CheckGameEnd answer about `sideToMove`.
const char* ResultText(Word gameEnd, Word sideToMove);

// Lines 1 to 9 of a game file (each ending in CR LF): tags, clocks and level of `state`, dated
// `date`, with `result` in the Result tag.
Text GameFileHeader(const GameState& state, const LocalTime& date, const char* result);

// Line 10: the first `count` records of the history of `state`, numbered, in the short notation,
// replayed from the start position so that disambiguation, check and mate can be worked out.
Text GameFileMoves(const GameState& state, Word count);

// The token of the move at history index `index` of `game`, worked out on `scratch`, which holds
// the position before that move; the move is then replayed there, and the turn handed over.
Text MoveToken(const GameState& game, Word index, GameState& scratch);

// The user's short date with every character that is not a digit turned into "_".
Text DateForFileName(const char* shortDate);

// "[white]-[black]-[date]-[HH-MM]", without the characters a file name may not hold.
Text DefaultGameFileName(const GameState& state, const char* shortDate, const LocalTime& time);

// "[date] [HH-MM]".
Text DefaultPositionFileName(const char* shortDate, const LocalTime& time);

// The title of the save-name dialog, which goes by the kind of game rather than by what is saved.
const char* SaveDialogTitle(const GameState& state);
