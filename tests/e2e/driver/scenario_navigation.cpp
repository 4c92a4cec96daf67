// Walking through a game in the moves list: the cursor keys of the main window step through the
// rows, also with the list hidden; the board shows each row's position with its last move; and a
// move made from an earlier row against the computer takes back the rows behind it.
#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "report.h"
#include "scenarios.h"
#include "steps.h"

namespace e2e {

namespace {

// A key pressed while the main window has the focus.
void PressKey(Program& program, WPARAM key) {
    PostMessageA(program.Window(), WM_KEYDOWN, key, 1);
}

// Presses `key` until the list's selection reaches `row`; false when it does not get there.
bool StepTo(Program& program, WPARAM key, int row) {
    for (int presses = 0; presses < 12 && SelectedRow(program) != row; ++presses) {
        const int before = SelectedRow(program);
        PressKey(program, key);
        program.WaitUntil([&] { return SelectedRow(program) != before; }, ShortWait);
    }
    return SelectedRow(program) == row;
}

// The from and to squares of a list row such as " 2. Ng1-f3" or "   e7xd6", as "g1f3"; castling
// gives the king's move of the colour that `black` says.
std::string MoveOfRow(const std::string& row, bool black) {
    if (row.find("0-0-0") != std::string::npos) return black ? "e8c8" : "e1c1";
    if (row.find("0-0") != std::string::npos) return black ? "e8g8" : "e1g1";
    for (size_t i = 0; i + 4 < row.size(); ++i) {
        const char* p = row.c_str() + i;
        if (p[0] >= 'a' && p[0] <= 'h' && p[1] >= '1' && p[1] <= '8' && (p[2] == '-' || p[2] == 'x') &&
            p[3] >= 'a' && p[3] <= 'h' && p[4] >= '1' && p[4] <= '8')
            return std::string{p[0], p[1], p[3], p[4]};
    }
    return "";
}

// The placement after the moves of list rows 1 to r; castling moves the rook too.
Placement PlacementAtRow(const std::vector<std::string>& rows, int r) {
    Placement placement(StartPlacement);
    for (int i = 1; i <= r; ++i) {
        const std::string move = MoveOfRow(rows[i], i % 2 == 0);
        placement.Move(move.c_str());
        const char* rook = move == "e1g1"   ? "h1f1"
                           : move == "e1c1" ? "a1d1"
                           : move == "e8g8" ? "h8f8"
                           : move == "e8c8" ? "a8d8"
                                            : nullptr;
        if (rook) placement.Move(rook);
    }
    return placement;
}

// The squares that do not show row r's position, its last move marked, as "e2 e4"; "" when all do.
std::string RowMismatch(const Image& shown, const BoardView& view, const std::vector<std::string>& rows,
                        int r) {
    const Placement placement = PlacementAtRow(rows, r);
    const std::string last = r > 0 ? MoveOfRow(rows[r], r % 2 == 0) : "";
    std::string differing;
    for (int row = 0; row < 8; ++row)
        for (int file = 0; file < 8; ++file) {
            const char name[3] = {static_cast<char>('a' + file), static_cast<char>('1' + row), '\0'};
            const bool marked =
                !last.empty() && (last.compare(0, 2, name) == 0 || last.compare(2, 2, name) == 0);
            if (ShowsTile(shown, view, name, placement.At(file, row), marked ? ColumnLastMove : ColumnPlain))
                continue;
            differing += differing.empty() ? name : std::string(" ") + name;
        }
    return differing;
}

// Checks that the board comes to show row r of `rows`.
void ExpectBoardOfRow(Program& program, const BoardView& view, const std::vector<std::string>& rows, int r,
                      const std::string& what) {
    Image shown;
    const bool ok = WaitForScreen(
        program, [&](const Image& now) { return RowMismatch(now, view, rows, r).empty(); }, ShortWait,
        &shown);
    Check(ok, what, "squares differing: " + RowMismatch(shown, view, rows, r));
}

// Starts a game of two named people and clicks `moves`.
void StartHumanGameWith(Program& program, const BoardView& view, const std::vector<const char*>& moves) {
    NewGame game;
    game.black = RowHuman;
    game.whiteName = "Alice";
    game.blackName = "Bob";
    StartNewGame(program, game);
    int rows = 1;
    for (const char* move : moves)
        PlayMove(program, view, move, ++rows);
}

// The first square of rank `rank` ('7' or '2') holding `piece` in `placement`, as "h7"; "" if none.
std::string SquareHolding(const Placement& placement, char piece, char rank) {
    for (int file = 0; file < 8; ++file)
        if (placement.At(file, rank - '1') == piece) return std::string{static_cast<char>('a' + file), rank};
    return "";
}

} // namespace

void StepBackAgainstComputer() {
    ProgramSkin skin = LoadProgramSkin(".\\velok3.exe");
    BoardView view{&skin.full, 64, false};
    Program program;
    program.Start();
    NewGame game;
    game.whiteName = "Alice";
    game.level = RowEasy;
    StartNewGame(program, game);
    PlayMove(program, view, "e2e4", 2);
    if (!program.WaitForRows(3, ComputerWait))
        Abort("the computer answers 1. e2-e4", JoinRows(program.Rows()));
    PlayMove(program, view, "d2d4", 4);
    if (!program.WaitForRows(5, ComputerWait))
        Abort("the computer answers 2. d2-d4", JoinRows(program.Rows()));
    const std::vector<std::string> played = program.Rows();

    // Row 3: the computer (Black) is to move there. It can be looked at, nothing starts.
    ClickListRow(program, 3);
    Check(program.WaitUntil([&] { return SelectedRow(program) == 3; }, ShortWait),
          "a click on row 3 of the list selects it", std::to_string(SelectedRow(program)));
    ExpectBoardOfRow(program, view, played, 3,
                     "row 3 shows the position after 2. d2-d4, its last move marked");
    const Placement atThree = PlacementAtRow(played, 3);
    const std::string blackPawn = SquareHolding(atThree, 'p', '7');
    ClickSquare(program, view, "g1");
    if (!blackPawn.empty()) ClickSquare(program, view, blackPawn.c_str());
    Sleep(1500);
    Image shown = program.CaptureClient();
    Check(RowMismatch(shown, view, played, 3).empty(),
          "at the computer's row clicks on White's knight and a black pawn select nothing",
          RowMismatch(shown, view, played, 3));
    Check(program.Rows() == played, "no move starts at the computer's row", JoinRows(program.Rows()));
    Screenshot("row 3, computer to move");

    // Row 2: the human (White) is to move there; a move cuts the later rows off.
    Check(StepTo(program, VK_UP, 2), "the up key steps back to row 2");
    ExpectBoardOfRow(program, view, played, 2, "row 2 shows the position after Black's first reply");
    PlayMove(program, view, "g1f3", 4);
    std::vector<std::string> now = program.Rows();
    Check(now[3] == " 2. Ng1-f3", "the move from row 2 becomes row 3", JoinRows(now));
    Check(std::equal(now.begin(), now.begin() + 3, played.begin()), "rows 0 to 2 stay as they were",
          JoinRows(now));
    Check(program.WaitForRows(5, ComputerWait), "the computer answers the new move from the new position",
          JoinRows(program.Rows()));
    now = program.Rows();
    Check(SelectedRow(program) == 4, "the last row is selected after the reply",
          std::to_string(SelectedRow(program)));
    ExpectBoardOfRow(program, view, now, 4, "the board shows the game's new end");
    Screenshot("after taking back 2. d2-d4");
    Check(program.Close(AsksToSave) == 0, "closing asks to save and exits with 0");
}

void ListKeys() {
    ProgramSkin skin = LoadProgramSkin(".\\velok3.exe");
    BoardView view{&skin.full, 64, false};
    Program program;
    program.Start();
    StartHumanGameWith(program, view, {"e2e4", "e7e5", "g1f3", "b8c6", "f1c4", "g8f6", "e1e2"});
    const std::vector<std::string> played = program.Rows();
    for (int r = 6; r >= 0; --r) {
        Check(StepTo(program, VK_UP, r), "the up key in the main window selects row " + std::to_string(r));
        ExpectBoardOfRow(program, view, played, r, "row " + std::to_string(r) + " shows its position");
    }
    Screenshot("row 0, the start");
    Check(StepTo(program, VK_DOWN, 6), "the down key steps forward to row 6");
    ExpectBoardOfRow(program, view, played, 6, "row 6 shows the position before the king's move");
    // Before the king's move White may castle; the target shows on g1.
    ClickSquare(program, view, "e1");
    bool castling = WaitForScreen(
        program, [&](const Image& now) { return ShowsTile(now, view, "g1", '.', ColumnTarget); }, ShortWait);
    Check(castling, "at row 6 the king may still castle, though it moves later in the game");
    Screenshot("row 6, king selected");
    ClickSquare(program, view, "e1");
    Check(StepTo(program, VK_DOWN, 7), "the down key returns to the last row");
    ExpectBoardOfRow(program, view, played, 7, "the last row shows the game's end");
    PlayMove(program, view, "d7d6", 9);
    Check(program.Rows()[8] == std::string(11, ' ') + "d7-d6", "the game goes on at its end",
          JoinRows(program.Rows()));
    Check(program.Close(AsksToSave) == 0, "closing asks to save and exits with 0");
}

void ListHiddenKeys() {
    std::string settingsName = LearnSettingsFileName();
    WriteWholeFile(settingsName, CrLfLines({"[SHOW]", "MOVELIST = NO"}));
    ProgramSkin skin = LoadProgramSkin(".\\velok3.exe");
    BoardView view{&skin.full, 64, false};
    Program program;
    program.Start();
    StartHumanGameWith(program, view, {"d2d4", "g8f6", "c2c4"});
    Check(!IsWindowVisible(MovesList(program)), "MOVELIST = NO hides the moves list");
    const std::vector<std::string> played = program.Rows();
    Check(StepTo(program, VK_UP, 2), "the up key steps back with the list hidden");
    ExpectBoardOfRow(program, view, played, 2, "row 2 shows its position and last move");
    Check(StepTo(program, VK_UP, 0), "the up key reaches row 0");
    ExpectBoardOfRow(program, view, played, 0, "row 0 shows the start with no last move");
    Screenshot("hidden list, row 0");
    Check(StepTo(program, VK_DOWN, 3), "the down key steps forward to the last row");
    ExpectBoardOfRow(program, view, played, 3, "the last row shows the game's end");
    Check(program.Close(AsksToSave) == 0, "closing asks to save and exits with 0");
}

} // namespace e2e
