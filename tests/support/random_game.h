// Test helpers: seeded random legal games that shuffle knights so that placements recur, steer clear
// of every end of the game so that it can run to its longest length, or reach every form of move.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/board_setup.h"

enum class RandomPolicy {
    // Own last move taken back, or a knight move, most of the time; nothing avoided: placements
    // recur often.
    KnightShuffles,
    // Never a move after which CheckGameEnd gives an end, a pawn move or a capture every 80
    // plies so that the fifty-move rule never holds; the last ply of the longest game is free.
    AvoidEnds,
    // Only moves that are neither pawn moves nor captures, never one that leaves the other side
    // without a move, gives check or stands a placement for the third time; the fifty-move rule is not asked.
    QuietAvoidEnds,
    // Any legal move, castling whenever there is one and pawn moves and captures drawn more often,
    // promotions to every piece: games that reach each form of move.
    Varied,
};

// Plays up to `plies` moves on `state` for the side to move, recording each in the history and
// handing the turn over. Returns the moves played, as "e2e4"; fewer when no move was acceptable.
std::vector<std::string> PlayRandomMoves(GameState& state, Word plies, std::uint32_t seed,
                                         RandomPolicy policy);
