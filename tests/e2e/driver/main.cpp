// velok3-e2e-driver.exe <scenario> <folder> runs a scenario against velok3.exe of the current folder and
// leaves its screenshots there; "pictures" <folder> takes the manual's pictures under their pages' names.
#include <cstdio>
#include <cstring>

#include "e2e.h"

namespace e2e {

namespace {

// Saves a window as the manual shows it, caption and all, after a moment for its last paint.
void Picture(HWND window, const char* name) {
    Sleep(PaintPause);
    Check(SaveBmp(CaptureWindow(window, true), shotFolder + "\\" + name + ".bmp"),
          std::string("picture ") + name);
}

// Opens a dialog by its menu command, pictures it with the first file previewed, and cancels it.
void PictureDialog(Program& program, int command, const char* title, const char* name) {
    HWND dialog = program.WaitForDialog(title, command);
    if (GetDlgItem(dialog, IDC_LOAD_PREVIEW)) program.ChooseRow(dialog, IDC_LOAD_LIST, 0);
    Picture(dialog, name);
    program.Press(dialog, IDCANCEL);
}

} // namespace

void ManualPictures() {
    const Board board{LoadSkin(0, 64)};
    Program program;
    program.ExpectBoard(board, StartPlacement, "the start position before the first picture");
    Picture(program.window, "main-window");
    PictureDialog(program, IDM_ABOUT, "About", "about");
    HWND dialog = program.NewGame(Human, Computer, Normal, false);
    Picture(dialog, "new-game");
    program.Press(dialog, IDCANCEL);

    program.NewGame(Human, Human);
    program.Play(board, "e2e4 e7e5 g1f3 b8c6 f1c4 g8f6 d2d3");
    program.Click(board.Centre("f8"));
    Picture(program.window, "game-in-progress");
    program.SaveAs(IDM_GAME_SAVE, "Save game", "Alice - Bob", "Game saved");
    program.SaveAs(IDM_POSITION_SAVE, "Save game", "Alice - Bob", "Position saved");
    PictureDialog(program, IDM_GAME_LOAD, "Load game", "load-game");
    PictureDialog(program, IDM_POSITION_LOAD, "Load position", "load-position");
    PictureDialog(program, IDM_OPTIONS, "Options", "options");

    program.NewGame(Human, Human);
    program.Play(board, "a2a4 b7b5 a4b5 a7a6 b5a6 c8b7 a6b7 g8f6");
    program.Click(board.Centre("b7"));
    program.Click(board.Centre("a8"));
    dialog = program.WaitForDialog("Select promote piece");
    Picture(dialog, "promotion");
    program.Press(dialog, IDC_PROMOTE_QUEEN);

    program.Command(IDM_POSITION_SET);
    program.Answer(SaveGame, IDNO);
    program.Place(board, PaletteKing, "g1", "g8");
    program.Place(board, PaletteRook, "d1", "e8");
    program.Place(board, PalettePawn, "f2 g2 h2 e5", "f7 g7 h7 d5");
    program.ClickRow(PalettePawn);
    Picture(program.window, "set-position");
    program.ClickRow(PaletteWhiteMove);
    program.WaitForRows(1);
    program.Play(board, "e5e6 f7e6 d1d5");
    program.ClickRow(2);
    Picture(program.window, "analyse");
    program.Close("Save begin position?", IDM_EXIT);
}

} // namespace e2e

int main(int argc, char** argv) {
    constexpr struct {
        const char* name;
        void (*run)();
    } scenarios[] = {{"startup", e2e::StartUp},
                     {"human-play", e2e::HumanPlay},
                     {"against-computer", e2e::AgainstComputer},
                     {"files", e2e::GameAndPositionFiles},
                     {"set-up-analyse", e2e::SetUpAndAnalyse},
                     {"options", e2e::Options},
                     {"release-folder", e2e::ReleaseFolder},
                     {"pictures", e2e::ManualPictures}};
    for (const auto& scenario : scenarios)
        if (argc == 3 && std::strcmp(argv[1], scenario.name) == 0) {
            e2e::shotFolder = argv[2];
            scenario.run();
            return e2e::failedChecks == 0 ? 0 : 1;
        }
    std::fprintf(stderr, "usage: velok3-e2e-driver <scenario> <folder>\n");
    return 2;
}
