// The commands that come in on standard input: read by a thread of their own into a queue, so
// that a running search can be told to stop and "isready" is answered while the engine thinks.
#pragma once

#include <string>

// Starts the reader. At the end of the input it queues "quit", as if the GUI had sent it.
void StartCommandInput();

// Hands over one line, as the reader does: during a search a line for it acts at once, any
// other is queued behind those before it.
void QueueCommand(std::string line);

// Empties the queue and clears the flags, for a session that starts afresh.
void ClearCommands();

// Takes the next line in the order it came, waiting for one when none is queued.
std::string NextCommand();

// Marks the start of a search: from now on until EndBusy, "isready" is answered at once and
// "stop", "ponderhit" and "quit" take effect at once, also when they were queued behind other
// lines; a stop or ponderhit behind a later "go" waits for that search. Every other line waits
// for the end of the search and is then carried out in order.
void BeginBusy();
void EndBusy();

// What arrived during the present search: a stop (also implied by quit), a ponderhit, a quit.
bool StopRequested();
bool PonderhitArrived();
bool QuitRequested();

// Waits until a stop, a quit or a ponderhit arrives: the end of "go infinite" and "go ponder",
// whose best move must not be sent before the GUI asks for it.
void WaitForRelease();

// The first blank-separated word of a line ("" for a blank line).
std::string FirstWord(const std::string& line);
