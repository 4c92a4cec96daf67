// Test helpers: positions from the fields of a FEN line, moves given as "e2e4" played directly or
// as the click handling plays them, and the names, letters and files the tests compare.
#pragma once

#include <string>
#include <vector>

#include "core/game_state.h"
#include "engine/perft.h"

// Resets `state` and places the pieces of `fen`, whose side field gives the side to move and first
// mover. Castling rights it denies and its en passant square go into the history, where the game
// reads them; without those fields the cells decide.
void SetUpBoard(GameState& state, const std::string& fen);
// SetUpBoard, and the game marked as one from that set-up position, active, both sides human.
void SetUpGame(GameState& state, const std::string& fen);

// Plays "e2e4" ("e7e8" promotes to `promotion`) for the side to move, recorded and handed over;
// false when it is not legal. PlayLine: the start position and the blank-separated moves of `line`
// ("e7e8n" promotes to a knight), false at the first move that is not legal.
bool PlayMove(GameState& state, const std::string& move, Word promotion = Queen);
bool PlayLine(GameState& state, const std::string& line);

// Clicks the two squares of "e2e4" as the user would, on the moves list `clickList` of the host
// double; false, with nothing played, when refused. ClickMoves stops at the first refused move and
// returns how many were played.
extern ListHandle clickList;
bool ClickMove(GameState& state, const std::string& move);
std::size_t ClickMoves(GameState& state, const std::vector<std::string>& moves);
const std::vector<std::string>& ClickListRows();

std::string SquareName(int file, int row);
std::string MoveName(const MoveListEntry& move);
// Piece and colour of every cell, row 7 first, in the letters of a position file ("." for empty).
std::string BoardLetters(const BoardCell (&board)[8][8]);
std::string Str(const Text& text);
// The game file the writer makes of `state` (all its plies), dated `date`.
std::string GameFileOf(GameState& state, const LocalTime& date = LocalTime{2007, 3, 9, 14, 35});
