// Two people at one board: selecting a piece shows its targets, a refused click flashes, the
// clock of the side to move counts, fool's mate ends the game, and a pawn promotes by the dialog.
#include <windows.h>

#include "report.h"
#include "scenarios.h"
#include "steps.h"

namespace e2e {

namespace {

// The areas of the two clocks at scale 100: Black's above the list, White's below it.
constexpr RECT UpperClock{552, 116, 680, 148};
constexpr RECT LowerClock{552, 436, 680, 468};

// True when the clock area differs between two captures.
bool ClockChanged(const Image& before, const Image& after, const RECT& clock) {
    int width = clock.right - clock.left, height = clock.bottom - clock.top;
    return CompareAreas(before, clock.left, clock.top, after, clock.left, clock.top, width, height, 0)
               .pixels != 0;
}

// Checks that the clock of the side to move counts within a little over a second while the
// other one stands still.
void CheckClocks(Program& program, const RECT& counting, const RECT& standing, const std::string& side) {
    Image before = program.CaptureClient();
    Image after;
    bool counted = WaitForScreen(
        program, [&](const Image& now) { return ClockChanged(before, now, counting); }, 2500, &after);
    Check(counted, side + "'s clock counts while " + side + " is to move");
    Check(!ClockChanged(before, after, standing),
          "the other clock stands still while " + side + " is to move");
}

// Starts a game of two named people.
void StartHumanGame(Program& program) {
    NewGame game;
    game.black = RowHuman;
    game.whiteName = "Alice";
    game.blackName = "Bob";
    StartNewGame(program, game);
    std::vector<std::string> rows = program.Rows();
    Check(rows.size() == 1 && rows[0] == " 0.", "a new game's list holds the row \" 0.\"", JoinRows(rows));
}

// Checks what a new game of two people shows before the first move: Save entries, names, and
// White's clock counting.
void CheckGameStart(Program& program) {
    Check(GameMenuLook(program) == "eeGe", "Game Save greyed before the first move", GameMenuLook(program));
    Check(PositionMenuLook(program) == "eee", "Position Save enabled during a game",
          PositionMenuLook(program));
    auto namesShown = [](const Image& now) {
        return CountPixelsNear(now, 532, 84, 168, 32, RGB(255, 255, 255), 40) > 10 &&
               CountPixelsNear(now, 532, 405, 168, 31, RGB(255, 255, 255), 40) > 10;
    };
    Check(WaitForScreen(program, namesShown, ShortWait), "both names shown beside the board");
    CheckClocks(program, LowerClock, UpperClock, "White");
}

// Selects e2 with the play button (the other one does nothing), checks its targets, and clicks
// e5, out of reach, to see the refusal flash come and go with the selection kept.
void CheckSelectionAndRefusal(Program& program, const BoardView& view) {
    POINT e2 = SquareCentre(view, "e2");
    program.Click(e2.x, e2.y, WM_RBUTTONUP);
    Sleep(300);
    Check(ShowsTile(program.CaptureClient(), view, "e2", 'P', ColumnPlain),
          "the other mouse button neither selects nor moves");

    ClickSquare(program, view, "e2");
    Image shown;
    bool selected = WaitForScreen(
        program,
        [&](const Image& now) {
            return ShowsTile(now, view, "e2", 'P', ColumnAlert) &&
                   ShowsTile(now, view, "e3", '.', ColumnTarget) &&
                   ShowsTile(now, view, "e4", '.', ColumnTarget);
        },
        ShortWait, &shown);
    Check(selected, "a click on e2 selects the pawn and shows e3 and e4 as targets");
    Check(ShowsTile(shown, view, "d3", '.', ColumnPlain) && ShowsTile(shown, view, "e5", '.', ColumnPlain),
          "squares out of reach stay plain");
    Screenshot("e2 selected");

    ClickSquare(program, view, "e5");
    DWORD clicked = GetTickCount();
    bool flashed = WaitForScreen(
        program, [&](const Image& now) { return ShowsTile(now, view, "e5", '.', ColumnAlert); }, 1000);
    Check(flashed, "a click on e5, out of reach, flashes the square");
    bool faded = WaitForScreen(
        program, [&](const Image& now) { return ShowsTile(now, view, "e5", '.', ColumnPlain); }, 3000,
        &shown);
    DWORD lasted = GetTickCount() - clicked;
    Check(faded && lasted >= 150 && lasted <= 1500, "the flash ends by itself after about 300 ms",
          "it lasted " + std::to_string(lasted) + " ms");
    Check(ShowsTile(shown, view, "e2", 'P', ColumnAlert) && ShowsTile(shown, view, "e4", '.', ColumnTarget),
          "the selection and its targets stay after a refused click");
}

// Moves the selection to f2 and plays f2-f3: the last move's marks, Save, and Black's clock.
void PlayFirstMove(Program& program, const BoardView& view) {
    ClickSquare(program, view, "f2");
    bool selected = WaitForScreen(
        program,
        [&](const Image& now) {
            return ShowsTile(now, view, "f2", 'P', ColumnAlert) &&
                   ShowsTile(now, view, "e2", 'P', ColumnPlain);
        },
        ShortWait);
    Check(selected, "a click on another own piece moves the selection there");
    ClickSquare(program, view, "f3");
    if (!program.WaitForRows(2, ShortWait)) Abort("f2-f3 is played", JoinRows(program.Rows()));
    bool marked = WaitForScreen(
        program,
        [&](const Image& now) {
            return ShowsTile(now, view, "f2", '.', ColumnLastMove) &&
                   ShowsTile(now, view, "f3", 'P', ColumnLastMove);
        },
        ShortWait);
    Check(marked, "both squares of the last move are marked");
    Check(GameMenuLook(program) == "eeee", "Game Save enabled after the first move", GameMenuLook(program));
    CheckClocks(program, UpperClock, LowerClock, "Black");
}

// Plays on to fool's mate and checks the message, the list, the board and that the game takes
// no more moves.
void PlayToMate(Program& program, const BoardView& view) {
    PlayMove(program, view, "e7e5", 3);
    PlayMove(program, view, "g2g4", 4);
    ClickSquare(program, view, "d8");
    ClickSquare(program, view, "h4");
    program.WaitForDialog("Velok-3");
    Screenshot("fool's mate");
    program.ExpectMessage("Game over.\nBlack wins by checkmate.", IDOK);

    std::vector<std::string> rows = program.Rows();
    std::vector<std::string> expected{" 0.", " 1. f2-f3", "           e7-e5", " 2. g2-g4",
                                      "           Qd8-h4#"};
    Check(rows == expected, "the list holds the whole game in long notation", JoinRows(rows));
    bool mated = WaitForScreen(
        program,
        [&](const Image& now) {
            return ShowsTile(now, view, "e1", 'K', ColumnAlert) &&
                   ShowsTile(now, view, "h4", 'q', ColumnLastMove);
        },
        ShortWait);
    Check(mated, "the mated king shows in check and the queen on the last move's square");
    // Rows are 25 pixels high from the list's top; only the selected last row is darker (96).
    Image list = program.CaptureClient();
    int selectedRow = CountPixelsNear(list, 552, 148 + 4 * 25, 128, 25, RGB(96, 96, 96), 0);
    int otherRows = CountPixelsNear(list, 552, 148, 128, 4 * 25, RGB(96, 96, 96), 0);
    Check(selectedRow > 128 * 10 && otherRows == 0, "the last row is selected, drawn on a darker background",
          std::to_string(selectedRow) + " dark pixels in it, " + std::to_string(otherRows) + " elsewhere");

    ClickSquare(program, view, "g1");
    Sleep(300);
    Check(ShowsTile(program.CaptureClient(), view, "g1", 'N', ColumnPlain),
          "after mate a click selects nothing");
}

} // namespace

void HumanGameToMate() {
    ProgramSkin skin = LoadProgramSkin(".\\velok3.exe");
    BoardView view{&skin.full, 64, false};
    Program program;
    program.Start();
    StartHumanGame(program);
    CheckGameStart(program);
    CheckSelectionAndRefusal(program, view);
    PlayFirstMove(program, view);
    PlayToMate(program, view);
    Check(program.Close(AsksToSave) == 0, "closing after the game asks to save and exits with 0");
}

void HumanPromotion() {
    ProgramSkin skin = LoadProgramSkin(".\\velok3.exe");
    BoardView view{&skin.full, 64, false};
    Program program;
    program.Start();
    StartHumanGame(program);
    const char* moves[] = {"a2a4", "b7b5", "a4b5", "a7a6", "b5a6", "c8b7", "a6b7", "g8f6"};
    int rows = 1;
    for (const char* move : moves)
        PlayMove(program, view, move, ++rows);

    ClickSquare(program, view, "b7");
    ClickSquare(program, view, "a8");
    HWND dialog = program.WaitForDialog("Select promote piece");
    Screenshot("promotion dialog");
    Check(GetDlgItem(dialog, 2) && GetDlgItem(dialog, 3) && GetDlgItem(dialog, 4) && GetDlgItem(dialog, 5),
          "the promotion dialog offers knight, bishop, rook and queen");
    program.PressButton(dialog, 5, ClosesDialog);
    if (!program.WaitForRows(rows + 1, ShortWait)) Abort("the promotion is played", JoinRows(program.Rows()));
    std::vector<std::string> shownRows = program.Rows();
    Check(shownRows.back() == " 5. b7xa8=Q", "the list shows the capture and the promotion",
          shownRows.back());
    bool queen = WaitForScreen(
        program,
        [&](const Image& now) {
            return ShowsTile(now, view, "a8", 'Q', ColumnLastMove) &&
                   ShowsTile(now, view, "b7", '.', ColumnLastMove);
        },
        ShortWait);
    Check(queen, "a white queen stands on a8");

    // New game asks about the unsaved game first; No clears the question for good, and Cancel
    // leaves the game as it was.
    program.Command(CommandNewGame);
    program.ExpectMessage("Save current game?", IDNO);
    program.PressButton(program.WaitForDialog("New game"), IDCANCEL, ClosesDialog);
    Check(program.Rows() == shownRows, "Cancel in the New game dialog keeps the game",
          JoinRows(program.Rows()));
    Check(program.Close(AsksNothing) == 0, "after No, closing asks nothing more and exits with 0");
}

} // namespace e2e
