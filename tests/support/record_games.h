// Test helpers for the game and position files: whole games from the start position, given as
// lines of moves or drawn at random, and a moves list standing beside them in the host double.
#pragma once

#include <cstdint>
#include <string>

#include "core/game_state.h"

// A handle the tests give the moves list; only its value is ever used.
extern int testMovesList;

// Resets `state` to the start position and plays the blank-separated moves of `line` ("e2e4",
// "e7e8n" for a promotion to a knight; a promotion without a letter is a queen). False at the
// first move that is not legal.
bool PlayLine(GameState& state, const std::string& line);

// Resets `state` to the start position and plays up to `maxPlies` legal moves picked by a
// generator seeded with `seed`, promotions to any piece, stopping when the side to move has
// none. Pawn moves and captures are picked more often, so that games reach promotions.
void PlayRandomGame(GameState& state, std::uint32_t seed, int maxPlies);

// The game file the writer makes of `state` (all its plies), dated `date`.
std::string GameFileOf(GameState& state, const LocalTime& date = LocalTime{2007, 3, 9, 14, 35});

// The characters of a Text, as a string for comparisons.
std::string Str(const Text& text);

// Makes the double's moves list show the rows of `state` (plyCount + 1 of them) with `selected`
// as the selected row, and points movesListWindow at it.
void ShowMovesList(const GameState& state, std::int32_t selected);
