// Hooks of the console host: where messages go, the list rows it keeps, and how a console
// front end lets input through and asks for a stop while the engine thinks.
#pragma once

#include <string>
#include <vector>

#include "core/host.h"

void SetConsoleMessagePrefix(const char* prefix);
const std::vector<std::string>& ConsoleListRows();

// Writes one line and a line end to standard output and flushes it, whole even when several
// threads write (a UCI engine answers "isready" from its reader thread).
void ConsoleWriteLine(const std::string& line);

// Supplied by each console program: called between root moves of a think, and asked whether
// the think is to be broken off (the console's Esc).
void ConsolePollDuringThink();
bool ConsoleStopRequested();
