// Moves and positions in the notation of the UCI protocol: long algebraic moves ("e2e4",
// "e7e8q") and Forsyth-Edwards lines, written from and matched against a GameState.
#pragma once

#include <string>

#include "core/game_state.h"

// A move as the protocol writes it; `promotionPiece` adds its letter unless it is PieceNone.
std::string MoveText(const MoveListEntry& move, Word promotionPiece);

// The move of a history record, with the promotion letter when the pawn changed into a piece.
std::string RecordText(const MoveRecord& record);

// A move read from its text: the squares and the promotion piece (PieceNone when no letter).
struct MoveInput {
    MoveListEntry move;
    Word promotionPiece;
};

// Reads "e2e4" or "e7e8q"; false when the text is not of that form.
bool ReadMoveText(const std::string& text, MoveInput& out);

// Finds `input` among the legal moves of the side to move and plays it into the history,
// handing the turn over. Returns "" when played, else why it was refused.
std::string PlayMoveInput(GameState& state, const MoveInput& input);

// The Forsyth-Edwards line of the position: placement, side, castling rights and en passant
// square as the move generator sees them (cells and history), quiet plies since the last pawn
// move or capture within the history, and the move number.
std::string PositionFen(const GameState& state);
