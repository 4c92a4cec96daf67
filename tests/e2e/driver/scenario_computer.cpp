// Games against the computer: its replies arrive without a click at both levels, with the human
// as White and as Black, and two computer sides play on by themselves.
#include <windows.h>

#include "report.h"
#include "scenarios.h"
#include "steps.h"

namespace e2e {

namespace {

constexpr const char* BlackRowPrefix = "           ";

enum TitleCheck : bool { SkipTitle = false, CheckTitle = true };

// Waits for the computer's move that makes the list `rows` long, and checks the row's form and,
// when the human is to move next, that the title is the plain one again.
void ExpectComputerMove(Program& program, int rows, const std::string& what, TitleCheck title = CheckTitle) {
    bool moved = program.WaitForRows(rows, ComputerWait);
    Check(moved, what, "the list holds " + JoinRows(program.Rows()));
    if (!moved) Abort(what, "no computer move");
    std::string row = program.Rows()[rows - 1];
    bool blackRow = rows % 2 == 1;
    bool formed = blackRow ? row.rfind(BlackRowPrefix, 0) == 0 && row.size() > 15
                           : row.rfind(" " + std::to_string(rows / 2) + ". ", 0) == 0;
    Check(formed, "the computer's move has a row of its own", "\"" + row + "\"");
    if (!title) return;
    bool plain = program.WaitUntil(
        [&] {
            char title[64] = "";
            GetWindowTextA(program.Window(), title, sizeof title);
            return std::string(title) == "Velok-3";
        },
        ShortWait);
    Check(plain, "the title is plain again after the think");
}

} // namespace

void HumanWhiteAgainstEasy() {
    ProgramSkin skin = LoadProgramSkin(".\\velok3.exe");
    BoardView view{&skin.full, 64, false};
    Program program;
    program.Start();
    NewGame game;
    game.level = RowEasy;
    HWND dialog = FillNewGameDialog(program, game);
    program.PressButton(dialog, IDOK, KeepsOpen);
    program.ExpectMessage("Please enter name (WHITE SIDE)", IDOK);
    Check(IsWindowVisible(dialog) != 0, "the New game dialog stays open after the refusal");
    program.SetText(dialog, WhiteNameId, "Alice");
    program.PressButton(dialog, IDOK, ClosesDialog);
    Sleep(500);
    Check(program.Rows().size() == 1, "the computer as Black waits for White's first move");
    PlayMove(program, view, "e2e4", 2);
    ExpectComputerMove(program, 3, "the computer answers 1. e2-e4 at Easy without a click");
    PlayMove(program, view, "g1f3", 4);
    ExpectComputerMove(program, 5, "the computer answers 2. Ng1-f3 at Easy without a click");
    Screenshot("human against Easy");
    Check(program.Close(AsksToSave) == 0, "closing asks to save and exits with 0");
}

void HumanBlackAgainstNormal() {
    ProgramSkin skin = LoadProgramSkin(".\\velok3.exe");
    BoardView view{&skin.full, 64, false};
    Program program;
    program.Start();
    NewGame game;
    game.white = RowComputer;
    game.black = RowHuman;
    game.blackName = "Bob";
    game.level = RowNormal;
    StartNewGame(program, game);
    ExpectComputerMove(program, 2, "the computer as White opens at Normal without a click");
    PlayMove(program, view, "e7e5", 3);
    ExpectComputerMove(program, 4, "the computer answers 1... e7-e5 at Normal without a click");
    Screenshot("human against Normal");
    Check(program.Close(AsksToSave) == 0, "closing asks to save and exits with 0");
}

void ComputerAgainstComputer() {
    Program program;
    program.Start();
    NewGame game;
    game.white = RowComputer;
    game.black = RowComputer;
    game.level = RowEasy;
    StartNewGame(program, game);
    for (int rows = 2; rows <= 7; ++rows)
        ExpectComputerMove(program, rows,
                           "ply " + std::to_string(rows - 1) + " of two computers comes by itself",
                           SkipTitle);
    Screenshot("computer against computer");
    Check(program.Close(AsksToSave) == 0, "closing asks to save and exits with 0");
}

} // namespace e2e
