// The Options dialog: every display choice seen on the board as Apply takes it over, at both
// scales and both orientations; choices that survive a restart through the settings file.
#include <windows.h>

#include "options_view.h"
#include "report.h"
#include "scenarios.h"
#include "steps.h"

namespace e2e {

namespace {

constexpr COLORREF DefaultBackground = RGB(128, 128, 128);
constexpr COLORREF DefaultInk = RGB(255, 255, 255);

// After 1. e4 f5 2. Qh5+ with the pawn on g7 selected: the last move, the king in check, the
// selected pawn and its one legal target are the squares that differ from plain tiles.
constexpr const char* MarkedSquares = "d1 h5 g6 g7 e8";

Placement CheckPosition() {
    Placement placement(StartPlacement);
    placement.Move("e2e4");
    placement.Move("f7f5");
    placement.Move("d1h5");
    return placement;
}

// Applies the dialog and waits until the board shows exactly `marked` as marked squares.
bool ApplyAndWaitForMarks(Program& program, HWND dialog, const BoardView& view, const std::string& marked,
                          Image* shown) {
    program.PressButton(dialog, OptionsApply, KeepsOpen);
    return WaitForScreen(
        program, [&](const Image& now) { return SquaresDiffering(now, view, CheckPosition()) == marked; },
        ShortWait, shown);
}

// Pixels of the ink colour in the coordinate strips of a board of `tileSize`.
int InkInStrips(const Image& shown, int tileSize) {
    const int board = 8 * tileSize;
    return CountPixelsNear(shown, 20, 20 + board, board, 20, DefaultInk, 40) +
           CountPixelsNear(shown, 0, 20, 20, board, DefaultInk, 40);
}

// One mark choice switched off alone: only its own squares lose their marks.
void CheckMarkChoice(Program& program, HWND dialog, const BoardView& view, int box, const char* marked,
                     const char* what) {
    SetChecked(dialog, box, false);
    Image shown;
    bool seen = ApplyAndWaitForMarks(program, dialog, view, marked, &shown);
    Check(seen, what + std::string(" off leaves marked only ") + marked,
          "marked: " + SquaresDiffering(shown, view, CheckPosition()));
    SetChecked(dialog, box, true);
    seen = ApplyAndWaitForMarks(program, dialog, view, MarkedSquares, &shown);
    Check(seen, what + std::string(" on brings its mark back"));
}

// The name, coordinate and board checks of the turned board against the capture of the plain one.
void CheckTurnedBoard(Program& program, HWND dialog, const Image& plain, const BoardView& turned) {
    SetChecked(dialog, OptionsWhiteOnTop, true);
    Image shown;
    bool seen = ApplyAndWaitForMarks(program, dialog, turned, MarkedSquares, &shown);
    Check(seen, "White on top turns the board half round with its marks",
          "marked: " + SquaresDiffering(shown, turned, CheckPosition()));
    Check(ShowsTile(shown, turned, "e8", 'k', ColumnAlert) &&
              ShowsTile(shown, turned, "g6", '.', ColumnTarget),
          "the king in check and the target sit on their turned squares");
    Screenshot("white on top at scale 100");
    // The digits and letters swap ends, and the names swap places, drawn alike.
    int strips = 0;
    for (int k = 0; k < 8; ++k) {
        strips += CompareAreas(shown, 0, 20 + 64 * k, plain, 0, 20 + 64 * (7 - k), 20, 64, 0).pixels;
        strips += CompareAreas(shown, 20 + 64 * k, 532, plain, 20 + 64 * (7 - k), 532, 64, 20, 0).pixels;
    }
    Check(strips == 0, "the coordinates read 1 at the top and H on the left",
          std::to_string(strips) + " pixels differ from the plain board's strips reversed");
    // The list's frame runs along the top row of the lower name's rectangle.
    int names = CompareAreas(shown, 532, 85, plain, 532, 405, 168, 31, 0).pixels +
                CompareAreas(shown, 532, 405, plain, 532, 85, 168, 31, 0).pixels;
    Check(names == 0, "White's name stands above the list and Black's below",
          std::to_string(names) + " pixels differ");
}

} // namespace

void OptionsDisplay() {
    ProgramSkin skin = LoadProgramSkin(".\\velok3.exe");
    if (skin.full.Empty()) Abort("stock skin readable from velok3.exe", "bitmap 133 not found");
    Program program;
    program.Start();
    NewGame game;
    game.black = RowHuman;
    game.whiteName = "Alice";
    game.blackName = "Bob";
    StartNewGame(program, game);
    BoardView view{&skin.full, 64, false};
    PlayMove(program, view, "e2e4", 2);
    PlayMove(program, view, "f7f5", 3);
    PlayMove(program, view, "d1h5", 4);
    ClickSquare(program, view, "g7");
    Image plain;
    bool marked = WaitForScreen(
        program,
        [&](const Image& now) { return SquaresDiffering(now, view, CheckPosition()) == MarkedSquares; },
        ShortWait, &plain);
    Check(marked, "last move, check, selection and target are marked",
          "marked: " + SquaresDiffering(plain, view, CheckPosition()));
    RECT before{};
    GetWindowRect(program.Window(), &before);

    HWND dialog = OpenOptions(program);
    MoveAside(dialog);
    for (int box : OptionsCheckBoxes)
        Check(IsChecked(dialog, box) == (box != OptionsWhiteOnTop),
              "box " + std::to_string(box) + " opens as the settings have it");
    Check(!IsChecked(dialog, OptionsScale75) && IsChecked(dialog, OptionsScale100), "100 % opens chosen");
    CheckMarkChoice(program, dialog, view, OptionsLegalMove, "d1 h5 g7 e8", "Legal move");
    CheckMarkChoice(program, dialog, view, OptionsLastMove, "g6 g7 e8", "Last move");
    CheckMarkChoice(program, dialog, view, OptionsCheck, "d1 h5 g6 g7", "Check");

    SetChecked(dialog, OptionsCoordinates, false);
    program.PressButton(dialog, OptionsApply, KeepsOpen);
    Image shown;
    bool blank = WaitForScreen(
        program, [](const Image& now) { return InkInStrips(now, 64) == 0; }, ShortWait, &shown);
    Check(blank && CountPixelsNear(shown, 0, 532, 532, 20, DefaultBackground, 0) == 532 * 20,
          "Coordinates off leaves both strips plain background");
    SetChecked(dialog, OptionsCoordinates, true);
    program.PressButton(dialog, OptionsApply, KeepsOpen);
    Check(WaitForScreen(
              program, [](const Image& now) { return InkInStrips(now, 64) > 100; }, ShortWait),
          "Coordinates on draws them again");

    HWND list = GetDlgItem(program.Window(), MovesListId);
    SetChecked(dialog, OptionsMovesList, false);
    program.PressButton(dialog, OptionsApply, KeepsOpen);
    bool hidden = WaitForScreen(
        program,
        [&](const Image& now) {
            return !IsWindowVisible(list) &&
                   CountPixelsNear(now, 551, 147, 130, 258, DefaultBackground, 0) == 130 * 258;
        },
        ShortWait, &shown);
    Screenshot("moves list hidden");
    Check(hidden, "Moves list off hides the list and its frame: plain background there");
    Check(program.Rows().size() == 4, "the hidden list keeps its rows", JoinRows(program.Rows()));
    Check(SquaresDiffering(shown, view, CheckPosition()) == MarkedSquares,
          "the last move stays marked with the list hidden");
    SetChecked(dialog, OptionsMovesList, true);
    program.PressButton(dialog, OptionsApply, KeepsOpen);
    Check(WaitForScreen(
              program,
              [&](const Image& now) { return IsWindowVisible(list) && now.Pixel(551, 200) == DefaultInk; },
              ShortWait),
          "Moves list on shows the list in its frame again");

    BoardView turned{&skin.full, 64, true};
    CheckTurnedBoard(program, dialog, plain, turned);

    SetChecked(dialog, OptionsScale100, false);
    SetChecked(dialog, OptionsScale75, true);
    BoardView small{&skin.threeQuarter, 48, true};
    bool scaled = ApplyAndWaitForMarks(program, dialog, small, MarkedSquares, &shown);
    Screenshot("white on top at scale 75");
    SIZE client = program.ClientSize();
    RECT after{};
    GetWindowRect(program.Window(), &after);
    Check(client.cx == 572 && client.cy == 424, "75 % gives the smaller window at once",
          std::to_string(client.cx) + " by " + std::to_string(client.cy));
    Check(after.left == before.left && after.top == before.top, "the window keeps its upper left corner",
          std::to_string(after.left) + "," + std::to_string(after.top));
    Check(scaled, "the board is drawn in 48-pixel tiles, still turned",
          "marked: " + SquaresDiffering(shown, small, CheckPosition()));
    Check(IsWindowVisible(dialog), "Apply leaves the dialog open");

    program.PressButton(dialog, OptionsDefault, KeepsOpen);
    program.PressButton(dialog, OptionsOk, ClosesDialog);
    bool back = WaitForScreen(
        program,
        [&](const Image& now) { return SquaresDiffering(now, view, CheckPosition()) == MarkedSquares; },
        ShortWait, &shown);
    Screenshot("defaults at scale 100");
    client = program.ClientSize();
    Check(back && client.cx == 700 && client.cy == 552,
          "Set to default and OK: scale 100, White at the bottom",
          "marked: " + SquaresDiffering(shown, view, CheckPosition()));
    Check(program.Close(AsksToSave) == 0, "the program closes normally");
}

void OptionsRestart() {
    std::string settingsName = LearnSettingsFileName();
    Program program;
    program.Start();
    HWND dialog = OpenOptions(program);
    const bool chosen[8] = {false, true, false, false, false, false, true, false};
    for (int k = 0; k < 8; ++k)
        SetChecked(dialog, OptionsCheckBoxes[k], chosen[k]);
    SetChecked(dialog, OptionsScale100, false);
    SetChecked(dialog, OptionsScale75, true);
    program.PressButton(dialog, OptionsOk, ClosesDialog);
    program.Command(CommandExit);
    Check(program.WaitForExit(ShortWait * 2) == 0, "Game, Exit ends the program with 0");
    std::string expected = CrLfLines({"[SHOW]",
                                      "LEGAL MOVE = NO",
                                      "CHECK = NO",
                                      "LAST MOVE = YES",
                                      "COORDINATES = NO",
                                      "WHITE ON TOP = YES",
                                      "MOVELIST = NO",
                                      "AI PROGRESS = NO",
                                      "SCALE OF BOARD = 75",
                                      "",
                                      "[SOUND]",
                                      "BEEP = NO",
                                      "",
                                      "[COLOR]",
                                      "BACKGROUND_RED = 128",
                                      "BACKGROUND_GREEN = 128",
                                      "BACKGROUND_BLUE = 128",
                                      "INK_RED = 255",
                                      "INK_GREEN = 255",
                                      "INK_BLUE = 255",
                                      "",
                                      "[SKIN]",
                                      "FILE NAME = ",
                                      "NUMBER = 0"});
    std::string written = ReadWholeFile(settingsName);
    Check(written == expected, "the choices are written to the settings file at exit",
          FirstDifference(expected, written));

    Program again;
    again.Start("velok3.exe, second run");
    SIZE client = again.ClientSize();
    Check(client.cx == 572 && client.cy == 424, "the next start opens at scale 75");
    Check(!IsWindowVisible(GetDlgItem(again.Window(), MovesListId)), "the next start hides the moves list");
    dialog = OpenOptions(again);
    for (int k = 0; k < 8; ++k)
        Check(IsChecked(dialog, OptionsCheckBoxes[k]) == chosen[k],
              "box " + std::to_string(OptionsCheckBoxes[k]) + " reopens as chosen");
    Check(IsChecked(dialog, OptionsScale75) && !IsChecked(dialog, OptionsScale100), "75 % reopens chosen");
    again.PressButton(dialog, OptionsCancel, ClosesDialog);
    again.Command(CommandExit);
    Check(again.WaitForExit(ShortWait * 2) == 0, "the second run ends with 0");
    written = ReadWholeFile(settingsName);
    Check(written == expected, "the second run writes the same file", FirstDifference(expected, written));
}

} // namespace e2e
