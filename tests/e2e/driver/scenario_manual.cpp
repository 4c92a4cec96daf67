// The pictures of the user manual, taken from the running program: each is a window or dialog cut
// out of the screen and saved under the name the manual's pages use (tools/update_manual_pictures.sh).
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <vector>

#include "report.h"
#include "scenarios.h"
#include "steps.h"

namespace e2e {

namespace {

// Commands of the menu whose dialogs the manual shows.
enum ManualCommand : int {
    CommandGameLoad = 32773,
    CommandPositionLoad = 32779,
    CommandOptions = 32771,
    CommandPositionSet = 32781,
    CommandGameSave = 32772,
    CommandPositionSave = 32780,
};

// Controls of the dialogs pictured here.
enum DialogControl : int { SaveNameEdit = 1017, LoadList = 1012 };

// Rows of the palette that the moves list becomes in set-up, and their height at full scale.
enum PaletteRow : int {
    PaletteKing = 5,
    PaletteQueen = 4,
    PaletteRook = 3,
    PalettePawn = 0,
    PaletteWhiteMove = 7
};

// A dialog of the menu that the manual pictures: its command, its title and the picture's name.
struct DialogPicture {
    int command;
    const char* title;
    const char* picture;
};

constexpr DialogPicture MenuDialogs[] = {
    {CommandGameLoad, "Load game", "load-game"},
    {CommandPositionLoad, "Load position", "load-position"},
    {CommandOptions, "Options", "options"},
};

// A dialog needs a moment after it appears before all its controls are painted.
constexpr int PaintPause = 400;

// The part of a window the manual shows: the client area, and the menu bar above it when the
// window has one. The caption is left out: under Wine it lacks the system's button glyphs.
RECT PictureArea(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    POINT origin{0, 0};
    ClientToScreen(window, &origin);
    RECT area{origin.x, origin.y, origin.x + client.right, origin.y + client.bottom};
    if (GetMenu(window)) {
        RECT frame{};
        GetWindowRect(window, &frame);
        MENUBARINFO bar{};
        bar.cbSize = sizeof bar;
        area.top = GetMenuBarInfo(window, OBJID_MENU, 0, &bar) ? bar.rcBar.top
                                                               : area.top - GetSystemMetrics(SM_CYMENU);
        area.top = std::max(area.top, frame.top);
    }
    return area;
}

// Saves the window as <picture>.bmp in the scenario's folder (the runner turns it into PNG).
void SavePicture(HWND window, const char* picture) {
    RECT area = PictureArea(window);
    Image image = CaptureScreen(area.left, area.top, area.right - area.left, area.bottom - area.top);
    bool saved = !image.Empty() && SaveBmp(image, ShotFolder() + "\\" + picture + ".bmp");
    Check(saved, std::string("picture ") + picture + " taken",
          std::to_string(image.width) + " by " + std::to_string(image.height));
}

// Opens a dialog by its menu command, pictures it, and closes it with Cancel (Esc). The first
// file of a Load dialog is selected first, so that its preview shows.
void PictureOfDialog(Program& program, int command, const char* title, const char* picture) {
    program.Command(command);
    HWND dialog = program.WaitForDialog(title);
    if (HWND list = GetDlgItem(dialog, LoadList)) {
        DWORD_PTR result = 0;
        SendMessageTimeoutA(list, LB_SETCURSEL, 0, 0, SMTO_NORMAL, 2000, &result);
        SendMessageTimeoutA(dialog, WM_COMMAND, MAKEWPARAM(LoadList, LBN_SELCHANGE),
                            reinterpret_cast<LPARAM>(list), SMTO_NORMAL, 2000, &result);
    }
    Sleep(PaintPause);
    SavePicture(dialog, picture);
    program.PressButton(dialog, IDCANCEL, ClosesDialog);
}

// Saves by a menu command under `name`, answering the name dialog and the message after it.
void SaveUnderName(Program& program, int command, const char* title, const char* name, const char* saved) {
    program.Command(command);
    HWND dialog = program.WaitForDialog(title);
    program.SetText(dialog, SaveNameEdit, name);
    program.PressButton(dialog, IDOK, ClosesDialog);
    program.ExpectMessage(saved, IDOK);
}

// Clicks a row of the moves list and gives the program a moment to paint its answer.
void ChooseListRow(Program& program, int row) {
    ClickListRow(program, row);
    Sleep(PaintPause);
}

// Places pieces in set-up: each entry is a palette row, then the squares it goes on, the play
// button for White and the other for Black.
void PlacePieces(Program& program, const BoardView& view, int paletteRow,
                 const std::vector<const char*>& white, const std::vector<const char*>& black) {
    ChooseListRow(program, paletteRow);
    for (const char* square : white)
        ClickSquare(program, view, square);
    for (const char* square : black) {
        POINT centre = SquareCentre(view, square);
        program.Click(centre.x, centre.y, WM_RBUTTONUP);
    }
}

// Starts a game of two people, answering No when the program offers to save the last one.
void StartGameOfTwo(Program& program, SaveQuestion question) {
    NewGame game;
    game.black = RowHuman;
    game.whiteName = "Anna";
    game.blackName = "Ben";
    if (question == AsksToSave) {
        // No clears the question for good, so the dialog is opened again without it.
        program.Command(CommandNewGame);
        program.ExpectMessage("Save current game?", IDNO);
        program.PressButton(program.WaitForDialog("New game"), IDCANCEL, ClosesDialog);
    }
    StartNewGame(program, game);
}

// Plays the moves, one list row each.
void PlayMoves(Program& program, const BoardView& view, const std::vector<const char*>& moves) {
    int rows = static_cast<int>(program.Rows().size());
    for (const char* move : moves)
        PlayMove(program, view, move, ++rows);
}

} // namespace

// A further dialog goes into MenuDialogs; a mode of the main window is its command followed by
// SavePicture(program.Window(), ...). The manual's page then shows it by <img src="images/NAME.png">.
void ManualPictures() {
    ProgramSkin skin = LoadProgramSkin(".\\velok3.exe");
    BoardView view{&skin.full, 64, false};
    Program program;
    program.Start();
    bool idle = WaitForScreen(
        program,
        [&](const Image& now) { return SquaresDiffering(now, view, Placement(StartPlacement)).empty(); },
        ShortWait);
    Check(idle, "the start position is on the board before the first picture");
    SavePicture(program.Window(), "main-window");
    PictureOfDialog(program, CommandAbout, "About", "about");

    // The New game dialog as a user fills it in to play the computer.
    NewGame computerGame;
    computerGame.whiteName = "Anna";
    HWND dialog = FillNewGameDialog(program, computerGame);
    Sleep(PaintPause);
    SavePicture(dialog, "new-game");
    program.PressButton(dialog, IDCANCEL, ClosesDialog);

    StartGameOfTwo(program, AsksNothing);
    PlayMoves(program, view, {"e2e4", "e7e5", "g1f3", "b8c6", "f1c4", "g8f6", "d2d3"});
    ClickSquare(program, view, "f8");
    Sleep(PaintPause);
    SavePicture(program.Window(), "game-in-progress");

    // The game and its position saved, so that the Load dialogs have a file to preview.
    SaveUnderName(program, CommandGameSave, "Save game", "Anna - Ben", "Game saved");
    // The name dialog's title follows the game, not the command: a played game says "Save game".
    SaveUnderName(program, CommandPositionSave, "Save game", "Anna - Ben", "Position saved");
    for (const DialogPicture& dialog : MenuDialogs)
        PictureOfDialog(program, dialog.command, dialog.title, dialog.picture);

    StartGameOfTwo(program, AsksNothing);
    PlayMoves(program, view, {"a2a4", "b7b5", "a4b5", "a7a6", "b5a6", "c8b7", "a6b7", "g8f6"});
    ClickSquare(program, view, "b7");
    ClickSquare(program, view, "a8");
    HWND promotion = program.WaitForDialog("Select promote piece");
    Sleep(PaintPause);
    SavePicture(promotion, "promotion");
    program.PressButton(promotion, 5, ClosesDialog);
    Check(program.WaitForRows(10, ShortWait), "the promotion is played after its picture");

    // Set-up with a few pieces placed, then the analysis that follows, stepped back one row.
    program.Command(CommandPositionSet);
    program.ExpectMessage("Save current game?", IDNO);
    Check(program.WaitForRows(9, ShortWait), "set-up shows its palette");
    PlacePieces(program, view, PaletteKing, {"g1"}, {"g8"});
    PlacePieces(program, view, PaletteRook, {"d1"}, {"e8"});
    PlacePieces(program, view, PalettePawn, {"f2", "g2", "h2", "e5"}, {"f7", "g7", "h7", "d5"});
    ChooseListRow(program, PalettePawn);
    SavePicture(program.Window(), "set-position");
    ChooseListRow(program, PaletteWhiteMove);
    Check(program.WaitForRows(1, ShortWait), "the set-up is taken for analysis");
    PlayMoves(program, view, {"e5e6", "f7e6", "d1d5"});
    ChooseListRow(program, 2);
    SavePicture(program.Window(), "analyse");
    program.Command(CommandExit);
    program.ExpectMessage("Save begin position?", IDNO);
    Check(program.WaitForExit(ShortWait * 2) == 0, "the program exits with 0 after the pictures");
}

} // namespace e2e
