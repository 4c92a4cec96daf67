// Test helpers: seeded random legal games that shuffle knights so that placements recur, steer clear
// of every end of the game so that it can run to its longest length, or reach every form of move.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/board_setup.h"

enum class RandomPolicy {
    KnightShuffles, // own last move taken back, or a knight move, most of the time: placements recur
    AvoidEnds,      // nothing that ends the game, a pawn move or capture every 80 plies: the longest game
    QuietAvoidEnds, // no pawn move, capture, check, stalemate or third repetition; fifty moves allowed
    Varied,         // any move, castling when there is one, pawn moves and captures drawn more often,
                    // promotions to every piece
};

// Plays up to `plies` moves on `state` for the side to move, recording each in the history and
// handing the turn over. Returns the moves played, as "e2e4"; fewer when no move was acceptable.
std::vector<std::string> PlayRandomMoves(GameState& state, Word plies, std::uint32_t seed,
                                         RandomPolicy policy);
