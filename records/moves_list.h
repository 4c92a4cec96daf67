// The long notation of the moves list: every move with its from-square, castling with zeros, and
// the check or mate sign found on a replay, which the game file shares.
#pragma once

#include "core/game_state.h"
#include "records/text.h"

// The letter of a moving piece, shared by the list and the game file: none for a pawn, else N, B,
// R, Q or K.
const char* PieceLetter(Word piece);

// The letter after "=" of a promotion: N, B or R, and Q for any other piece code.
char PromotionLetter(Word piece);

// The sign after a move just replayed on `scratch`: "#" when the side now to move is mated, "+"
// when it is in check, "" otherwise. Overwrites the scratch state's move buffer.
const char* CheckSign(GameState& scratch);

// The list row of `record`, which stands at history index `index`, ending in the sign of the move.
Text MovesListRow(const MoveRecord& record, Word index, const char* sign);
