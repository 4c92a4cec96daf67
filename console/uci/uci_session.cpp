// One UCI session: the Level option, and each command line handed to the part of the front end
// that carries it out.
#include "console/uci/uci_session.h"

#include <sstream>

#include "console/host/console_host.h"
#include "console/uci/command_input.h"
#include "console/uci/go_command.h"
#include "console/uci/position_command.h"
#include "console/uci/report.h"
#include "core/game_state.h"

namespace {

constexpr Word DefaultLevel = 2;

// The Level option: the engine's level for every search that names no depth.
Word optionLevel = DefaultLevel;

// The words after the command word of a line.
std::string ArgumentsOf(const std::string& line) {
    const std::size_t start = line.find_first_not_of(" \t");
    const std::size_t end = line.find_first_of(" \t", start);
    return end == std::string::npos ? "" : line.substr(end + 1);
}

void Identify() {
    ConsoleWriteLine("id name Velok-3");
    ConsoleWriteLine("id author the Velok-3 developers");
    ConsoleWriteLine("option name Level type spin default 2 min 1 max 3");
    ConsoleWriteLine("uciok");
}

// "setoption name Level value N"; other options are reported as unknown.
void SetOption(const std::string& arguments) {
    std::istringstream in(arguments);
    std::string nameWord, name, valueWord, value;
    in >> nameWord >> name >> valueWord >> value;
    if (nameWord != "name" || (name != "Level" && name != "level")) {
        Report("unknown option '" + name + "'");
        return;
    }
    if (valueWord != "value" || value.size() != 1 || value[0] < '1' || value[0] > '3') {
        Report("Level takes a value from 1 to 3");
        return;
    }
    optionLevel = value[0] - '0';
}

} // namespace

bool RunCommand(const std::string& line) {
    const std::string command = FirstWord(line);
    const std::string arguments = ArgumentsOf(line);
    if (command.empty() || command == "stop" || command == "ponderhit" || command == "debug" ||
        command == "register") {
        // Nothing to do: no search runs, and there is neither debug output nor registration.
    } else if (command == "uci") {
        Identify();
    } else if (command == "isready") {
        ConsoleWriteLine("readyok");
    } else if (command == "ucinewgame") {
        ResetToStartPosition();
    } else if (command == "setoption") {
        SetOption(arguments);
    } else if (command == "position") {
        SetUpPosition(arguments);
    } else if (command == "go") {
        RunGo(arguments, optionLevel);
        return !QuitRequested();
    } else if (command == "d") {
        ShowPosition();
    } else if (command == "quit") {
        return false;
    } else {
        Report("unknown command '" + command + "'");
    }
    return true;
}

void ResetSession() {
    optionLevel = DefaultLevel;
    ResetToStartPosition();
    ClearCommands();
}
