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
};

// A dialog of the program that the manual pictures once the program has it: its command, its
// dialog resource, its title and the picture's name.
struct DialogPicture {
    int command;
    int resource;
    const char* title;
    const char* picture;
};

constexpr DialogPicture LaterDialogs[] = {
    {CommandGameLoad, 145, "Load game", "load-game"},
    {CommandPositionLoad, 145, "Load position", "load-position"},
    {CommandOptions, 132, "Options", "options"},
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

// Opens a dialog by its menu command, pictures it, and closes it with Cancel (Esc).
void PictureOfDialog(Program& program, int command, const char* title, const char* picture) {
    program.Command(command);
    HWND dialog = program.WaitForDialog(title);
    Sleep(PaintPause);
    SavePicture(dialog, picture);
    program.PressButton(dialog, IDCANCEL, ClosesDialog);
}

// True when the exe holds the dialog resource.
bool ProgramHasDialog(int resource) {
    HMODULE module = LoadLibraryExA(".\\velok3.exe", nullptr, LOAD_LIBRARY_AS_DATAFILE);
    if (!module) return false;
    bool found =
        FindResourceA(module, MAKEINTRESOURCEA(resource), MAKEINTRESOURCEA(5) /* RT_DIALOG */) != nullptr;
    FreeLibrary(module);
    return found;
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

// A further dialog goes into LaterDialogs, and is pictured as soon as the program has it; a mode
// of the main window, such as setting up a position, is its command followed by
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
    for (const DialogPicture& later : LaterDialogs) {
        if (ProgramHasDialog(later.resource))
            PictureOfDialog(program, later.command, later.title, later.picture);
        else
            std::printf("note: no picture %s, this build has no dialog %d\n", later.picture, later.resource);
    }

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

    StartGameOfTwo(program, AsksToSave);
    PlayMoves(program, view, {"a2a4", "b7b5", "a4b5", "a7a6", "b5a6", "c8b7", "a6b7", "g8f6"});
    ClickSquare(program, view, "b7");
    ClickSquare(program, view, "a8");
    HWND promotion = program.WaitForDialog("Select promote piece");
    Sleep(PaintPause);
    SavePicture(promotion, "promotion");
    program.PressButton(promotion, 5, ClosesDialog);
    Check(program.WaitForRows(10, ShortWait), "the promotion is played after its picture");
    Check(program.Close(AsksToSave) == 0, "the program exits with 0 after the pictures");
}

} // namespace e2e
