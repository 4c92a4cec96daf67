// One UCI session: the command lines in the order they are taken from the queue, each acted on
// against `game`. velok3-uci feeds it from standard input, the fuzz target from its script.
#pragma once

#include <string>

// Acts on one command line; false when the session is to end.
bool RunCommand(const std::string& line);

// Starts a session afresh: the start position, the Level option at its default, nothing queued.
void ResetSession();
