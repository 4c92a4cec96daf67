// Test helpers: set up a GameState from the board and side fields of a FEN line, play moves
// given as "e2e4" and name squares and moves; the perft walk comes from engine/perft.h.
#pragma once

#include <cstdint>
#include <string>

#include "core/game_state.h"
#include "engine/perft.h"

// Resets `state` and places the pieces of `fen`; the side field decides the side to move and
// the first mover of a set-up game. With a castling field (and en passant field), the rights it
// denies are written as earlier king or rook moves into the history, since that is where the
// game reads them; with only two fields the cells alone decide.
void SetUpBoard(GameState& state, const std::string& fen);

// Plays a move given as from and to squares ("e2e4", "e7e8" promotes to `promotion`) for the side
// to move, recording it and handing the turn over. Returns false when it is not legal.
bool PlayMove(GameState& state, const std::string& move, Word promotion = Queen);

std::string SquareName(int file, int row);

// Piece and colour of every cell, row 7 first, in the letters of a position file ("." for empty).
std::string BoardLetters(const BoardCell (&board)[8][8]);
std::string MoveName(const MoveListEntry& move);
