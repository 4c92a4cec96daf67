// Fuzz target for the UCI command reader: a script of command lines, run as velok3-uci runs its
// input, against the engine held at its lowest level and short perfts so that each run is quick.
#include <cstdint>
#include <string>

#include "console/uci/command_input.h"
#include "console/uci/go_command.h"
#include "console/uci/uci_session.h"
#include "core/game_state.h"
#include "fuzz/require.h"

constexpr std::size_t MaxScriptBytes = 4096;
constexpr GoLimits FastSearches{1, 2};

// Stops come from the script alone, through the queue.
void ConsolePollDuringThink() {}
bool ConsoleStopRequested() {
    return StopRequested();
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > MaxScriptBytes) return 0;
    SetGoLimits(FastSearches);
    ResetSession();
    // Every line of the script, then the quit that the end of the input brings.
    const std::string script(reinterpret_cast<const char*>(data), size);
    for (std::size_t start = 0; start < script.size();) {
        std::size_t end = script.find('\n', start);
        if (end == std::string::npos) end = script.size();
        QueueCommand(script.substr(start, end - start));
        start = end + 1;
    }
    QueueCommand("quit");
    while (RunCommand(NextCommand())) {
    }
    // Whatever was refused, the game is one the rules allow.
    Require(game.plyCount >= 0 && game.plyCount <= MaxGamePlies);
    Require(game.sideToMove == White || game.sideToMove == Black);
    Word kingFile = 0, kingRow = 0;
    Require(game.FindKing(White, kingFile, kingRow) && game.FindKing(Black, kingFile, kingRow));
    return 0;
}
