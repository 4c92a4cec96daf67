// Test helper: plays moves the way the click handling does, through MarkLegalTargets, the two
// cell marks and PlayChosenMove, with a moves list held by the host double.
#pragma once

#include <string>
#include <vector>

#include "core/game_state.h"

// The handle of the moves list the clicked moves refill.
extern ListHandle clickList;

// Selects the piece on the first square of "e2e4" for the side to move, and when the second
// square is one of its legal targets, marks both and calls PlayChosenMove. Returns false, with
// nothing played, when the selection or the target is refused.
bool ClickMove(GameState& state, const std::string& move);

// Clicks each move in turn; stops at the first refused one and returns how many were played.
std::size_t ClickMoves(GameState& state, const std::vector<std::string>& moves);

// SetUpBoard, and the game marked as one from that set-up position, active, both sides human.
void SetUpGame(GameState& state, const std::string& fen);

// The rows of the clicked games' moves list, and its selected row.
const std::vector<std::string>& ClickListRows();
int ClickListSelection();
