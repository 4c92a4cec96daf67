// A settings file edited by hand: values the program must take as they are, values it must
// replace by the default key by key, a skin file that wins over the number, and the file it
// writes back at exit.
#include <windows.h>

#include "report.h"
#include "scenarios.h"
#include "steps.h"

namespace e2e {

void HandEditedSettings() {
    std::string settingsName = LearnSettingsFileName();
    ProgramSkin stock = LoadProgramSkin(".\\velok3.exe");
    if (stock.full.Empty()) Abort("stock skin readable from velok3.exe", "bitmap 133 not found");
    Image inverted = InvertedSkin(stock.full);
    CreateDirectoryA("SKIN", nullptr);
    if (!SaveBmp(inverted, "SKIN\\inverted.bmp")) Abort("skin file written", "SKIN\\inverted.bmp");

    // Lower-case words do not match "NO" or "YES"; 50 is no scale; 300 is no colour byte.
    WriteWholeFile(settingsName,
                   CrLfLines({"[SHOW]", "LEGAL MOVE = no", "COORDINATES = no", "WHITE ON TOP = yes",
                              "SCALE OF BOARD = 50", "[COLOR]", "BACKGROUND_RED = 300",
                              "BACKGROUND_GREEN = 0", "BACKGROUND_BLUE = 64", "INK_RED = 0", "[SKIN]",
                              "FILE NAME = inverted", "NUMBER = -1", "[EXTRA]", "OLD KEY = gone"}));
    Program program;
    program.Start();
    Screenshot("hand-edited settings");
    SIZE client = program.ClientSize();
    Check(client.cx == 700 && client.cy == 552, "SCALE OF BOARD = 50 gives scale 100",
          std::to_string(client.cx) + " by " + std::to_string(client.cy));
    BoardView view{&inverted, 64, false};
    Image shown;
    bool board = WaitForScreen(
        program,
        [&](const Image& now) { return SquaresDiffering(now, view, Placement(StartPlacement)).empty(); },
        ShortWait, &shown);
    Check(board, "the skin file named in the settings is drawn, White at the bottom",
          "squares differing: " + SquaresDiffering(shown, view, Placement(StartPlacement)));
    // The _RED key holds the colour's bits 16 to 23, which GDI reads as blue.
    COLORREF background = RGB(64, 0, 128);
    COLORREF ink = RGB(255, 255, 0);
    Check(shown.Pixel(690, 10) == background, "BACKGROUND_RED = 300 falls back to 128 for that key alone");
    Check(shown.Pixel(551, 200) == ink, "the list frame takes the ink of the file, missing keys at 255");
    int coordinates = CountPixelsNear(shown, 20, 532, 512, 20, ink, 40);
    Check(coordinates > 20, "COORDINATES = no in lower case still shows them");
    program.Command(CommandExit);
    Check(program.WaitForExit(ShortWait * 2) == 0, "Game, Exit ends the program with 0");

    std::string expected = CrLfLines({"[SHOW]",
                                      "LEGAL MOVE = YES",
                                      "CHECK = YES",
                                      "LAST MOVE = YES",
                                      "COORDINATES = YES",
                                      "WHITE ON TOP = NO",
                                      "MOVELIST = YES",
                                      "AI PROGRESS = YES",
                                      "SCALE OF BOARD = 100",
                                      "",
                                      "[SOUND]",
                                      "BEEP = YES",
                                      "",
                                      "[COLOR]",
                                      "BACKGROUND_RED = 128",
                                      "BACKGROUND_GREEN = 0",
                                      "BACKGROUND_BLUE = 64",
                                      "INK_RED = 0",
                                      "INK_GREEN = 255",
                                      "INK_BLUE = 255",
                                      "",
                                      "[SKIN]",
                                      "FILE NAME = inverted",
                                      "NUMBER = 0"});
    std::string written = ReadWholeFile(settingsName);
    Check(written == expected, "the file is written back whole, as read, without the unknown key",
          FirstDifference(expected, written));
}

} // namespace e2e

namespace e2e {

void WhiteOnTop() {
    std::string settingsName = LearnSettingsFileName();
    WriteWholeFile(settingsName, CrLfLines({"[SHOW]", "WHITE ON TOP = YES"}));
    ProgramSkin skin = LoadProgramSkin(".\\velok3.exe");
    BoardView view{&skin.full, 64, true};
    Program program;
    program.Start();
    Image shown;
    bool board = WaitForScreen(
        program,
        [&](const Image& now) { return SquaresDiffering(now, view, Placement(StartPlacement)).empty(); },
        ShortWait, &shown);
    Check(board, "WHITE ON TOP = YES turns the board half round",
          "squares differing: " + SquaresDiffering(shown, view, Placement(StartPlacement)));

    NewGame game;
    game.black = RowHuman;
    game.whiteName = "Alice";
    game.blackName = "Bob";
    StartNewGame(program, game);
    ClickSquare(program, view, "g1");
    bool selected = WaitForScreen(
        program,
        [&](const Image& now) {
            return ShowsTile(now, view, "g1", 'N', ColumnAlert) &&
                   ShowsTile(now, view, "f3", '.', ColumnTarget) &&
                   ShowsTile(now, view, "h3", '.', ColumnTarget);
        },
        ShortWait);
    Check(selected, "a click on the second square of the top row selects the knight on g1");
    Screenshot("white on top, g1 selected");
    ClickSquare(program, view, "f3");
    if (!program.WaitForRows(2, ShortWait)) Abort("Ng1-f3 is played", JoinRows(program.Rows()));
    Check(program.Rows().back() == " 1. Ng1-f3", "the move is played on the turned board",
          program.Rows().back());
    Check(program.Close(AsksToSave) == 0, "closing asks to save and exits with 0");
    std::string written = ReadWholeFile(settingsName);
    Check(written.find("\r\nWHITE ON TOP = YES\r\n") != std::string::npos,
          "WHITE ON TOP = YES is written back");
}

} // namespace e2e
