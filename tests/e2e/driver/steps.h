// Steps that several scenarios share: starting a game through the New game dialog, playing a move
// by two clicks, reading the Save entries, and the settings file of the current folder.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "board_view.h"
#include "program.h"
#include "skin.h"

namespace e2e {

// Controls of the New game dialog.
enum NewGameControl : int {
    WhiteTypeId = 1014,
    WhiteNameId = 1015,
    BlackTypeId = 1016,
    BlackNameId = 1017,
    LevelId = 1019,
};

// Rows of the type lists and the level list of the New game dialog.
enum SideRow : int { RowComputer = 0, RowHuman = 1 };
enum LevelRow : int { RowEasy = 0, RowNormal = 1 };

struct NewGame {
    SideRow white = RowHuman;
    SideRow black = RowComputer;
    const char* whiteName = "";
    const char* blackName = "";
    LevelRow level = RowNormal;
};

// Opens the New game dialog by the menu and fills it in as a user would, checking what the
// dialog does to the name edits and the level list on the way. Gives the open dialog.
HWND FillNewGameDialog(Program& program, const NewGame& game);

// Fills in the New game dialog and presses "Start !".
void StartNewGame(Program& program, const NewGame& game);

// Plays "e2e4" by a click on each square, then waits for the moves list to grow to `rows`.
void PlayMove(Program& program, const BoardView& view, const char* move, int rows);

// Clicks a square with the play button.
void ClickSquare(Program& program, const BoardView& view, const char* square);

// The moves list of the main window, its selected row (-1 for none, -2 when it does not answer),
// and a click on row `row` of its visible part (rows are 25 pixels high at full scale).
HWND MovesList(const Program& program);
int SelectedRow(const Program& program);
void ClickListRow(Program& program, int row);

// The look of the Game and Position menus, one letter per text row: "e" enabled, "G" greyed.
std::string GameMenuLook(Program& program);
std::string PositionMenuLook(Program& program);

// Waits until the captured client area satisfies `shows`, and gives the last capture.
bool WaitForScreen(Program& program, const std::function<bool(const Image&)>& shows, int limit,
                   Image* last = nullptr);

// The settings file of the current folder ("velok-3 {tag}.ini"), or "" when there is none.
std::string FindSettingsFile();

// Reads or writes a whole file.
std::string ReadWholeFile(const std::string& path);
bool WriteWholeFile(const std::string& path, const std::string& bytes);

// Joins lines, each ended by CR LF, as the settings file has them.
std::string CrLfLines(const std::vector<std::string>& lines);

// Starts the program once and closes it, to learn the settings file's name (the tag comes from
// the login name); gives that name.
std::string LearnSettingsFileName();

// Shows the first difference of two texts, for a failure message.
std::string FirstDifference(const std::string& expected, const std::string& actual);

// The rows of the moves list joined by "|", for messages.
std::string JoinRows(const std::vector<std::string>& rows);

} // namespace e2e
