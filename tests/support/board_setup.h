// Test helpers: set up a GameState from the board and side fields of a FEN line, play moves
// given as "e2e4", and count perft nodes the way the search walks the tree.
#pragma once

#include <cstdint>
#include <string>

#include "core/game_state.h"

// Resets `state` and places the pieces of `fen`; the side field decides the side to move and
// the first mover of a set-up game. With a castling field (and en passant field), the rights it
// denies are written as earlier king or rook moves into the history, since that is where the
// game reads them; with only two fields the cells alone decide.
void SetUpBoard(GameState& state, const std::string& fen);

// Plays a move given as from and to squares ("e2e4", "e7e8" promotes to `promotion`) for the side
// to move, recording it and handing the turn over. Returns false when it is not legal.
bool PlayMove(GameState& state, const std::string& move, Word promotion = Queen);

// Leaf count of the tree of the given depth, every leaf made and taken back; a promotion counts
// once per piece, as the published figures do.
std::uint64_t Perft(GameState& state, int depth);

// The same, with the last ply counted from the size of the move list.
std::uint64_t PerftBulk(GameState& state, int depth);

std::string SquareName(int file, int row);
std::string MoveName(const MoveListEntry& move);
