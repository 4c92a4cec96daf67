// velok3-uci: the engine of Velok-3 behind the UCI protocol, on standard input and output, for
// chess GUIs and for matches between engines. One thread thinks; another only reads commands.
#include <cstdio>
#include <cstdlib>

#include "console/host/console_host.h"
#include "console/uci/command_input.h"
#include "console/uci/uci_session.h"

// The console host asks these while the engine thinks; the reader thread has done the work.
void ConsolePollDuringThink() {}
bool ConsoleStopRequested() {
    return StopRequested();
}

int main() {
    SetConsoleMessagePrefix("info string ");
    ResetSession();
    StartCommandInput();
    while (RunCommand(NextCommand())) {
    }
    std::fflush(stdout);
    // The reader thread may still sit in its read; ending here leaves it there.
    std::_Exit(0);
}
