// The long notation of the moves list (every move with its from-square, castling with zeros) and
// the pieces of it that other writers of moves share: letters, squares and the check sign.
#pragma once

#include "core/game_state.h"
#include "records/text.h"

// The letter of a moving piece: none for a pawn, else N, B, R, Q or K.
const char* PieceLetter(Word piece);

// The letter after "=" of a promotion: N, B or R, and Q for any other piece code.
char PromotionLetter(Word piece);

// Appends a square as a file letter and a row digit, as "e4".
void AppendSquare(Text& text, Word file, Word row);

// Appends the row prefix of history index i: " 1. " for White's half by parity, eleven blanks
// for the other.
void AppendRowPrefix(Text& row, Word index);

// The sign after a move just replayed on `scratch`: "#" when the side now to move is mated, "+"
// when it is in check, "" otherwise. Overwrites the scratch state's move buffer.
const char* CheckSign(GameState& scratch);

// The text of the list row of history index i of `source`, given the sign of the move.
Text MovesListRow(const MoveRecord& record, Word index, const char* sign);
