// The "go" command: a think of the engine for the side to move, reported as UCI info lines and
// a best move, or a divided perft count.
#pragma once

#include <string>

#include "core/types.h"

// Runs the words after "go". `optionLevel` is the level set by the Level option; "depth" may
// choose another for this search alone.
void RunGo(const std::string& arguments, Word optionLevel);

// The highest level and the deepest perft a "go" runs, whatever it asks for: the protocol's own
// limits unless lowered (the fuzz target lowers them to keep each of its runs short).
struct GoLimits {
    Word highestLevel;
    Word deepestPerft;
};
void SetGoLimits(const GoLimits& limits);

// The level whose search reaches at least `plies` plies: level L searches 2 x (L + 1) plies,
// and levels run from 1 to 3.
Word LevelForDepth(Word plies);
