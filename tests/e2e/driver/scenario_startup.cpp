// Start-up as the user sees it: the start position in the stock skin with coordinates, logo and
// an empty framed list, at both scales; the settings written at exit; a second start.
#include <windows.h>

#include <cstdlib>

#include "report.h"
#include "scenarios.h"
#include "steps.h"

namespace e2e {

namespace {

constexpr COLORREF DefaultBackground = RGB(128, 128, 128);
constexpr COLORREF DefaultInk = RGB(255, 255, 255);

// The layout that follows from the scale: tile size and the moves list's rectangle.
struct Layout {
    int tileSize;
    int listLeft;
    int listTop;
    int listHeight;
};

Layout LayoutAt(int scale) {
    return scale == 75 ? Layout{48, 424, 148, 128} : Layout{64, 552, 148, 256};
}

// The settings file with every default, as the program writes it, with the scale given.
std::string DefaultSettings(int scale) {
    return CrLfLines({"[SHOW]",
                      "LEGAL MOVE = YES",
                      "CHECK = YES",
                      "LAST MOVE = YES",
                      "COORDINATES = YES",
                      "WHITE ON TOP = NO",
                      "MOVELIST = YES",
                      "AI PROGRESS = YES",
                      "SCALE OF BOARD = " + std::to_string(scale),
                      "",
                      "[SOUND]",
                      "BEEP = YES",
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
}

// Checks the title, the client size for the scale and that the window is centred.
void CheckWindowFrame(Program& program, int scale) {
    const int boardPixels = 8 * LayoutAt(scale).tileSize;
    char title[64] = "";
    GetWindowTextA(program.Window(), title, sizeof title);
    Check(std::string(title) == "Velok-3", "title is Velok-3", title);
    SIZE client = program.ClientSize();
    Check(client.cx == boardPixels + 188 && client.cy == boardPixels + 40,
          "client area at scale " + std::to_string(scale),
          std::to_string(client.cx) + " by " + std::to_string(client.cy));
    RECT frame{};
    GetWindowRect(program.Window(), &frame);
    int centreX = (frame.left + frame.right) / 2 - GetSystemMetrics(SM_CXSCREEN) / 2;
    int centreY = (frame.top + frame.bottom) / 2 - GetSystemMetrics(SM_CYSCREEN) / 2;
    Check(std::abs(centreX) <= 1 && std::abs(centreY) <= 1, "window centred on the screen",
          "off by " + std::to_string(centreX) + ", " + std::to_string(centreY));
}

// Checks the board, the logo and the coordinates; gives the capture for the panel's checks.
Image CheckBoard(Program& program, const ProgramSkin& skin, int scale) {
    const Layout layout = LayoutAt(scale);
    const int boardPixels = 8 * layout.tileSize;
    const std::string at = " at scale " + std::to_string(scale);
    BoardView view{scale == 75 ? &skin.threeQuarter : &skin.full, layout.tileSize, false};
    Image shown;
    bool board = WaitForScreen(
        program,
        [&](const Image& image) { return SquaresDiffering(image, view, Placement(StartPlacement)).empty(); },
        ShortWait, &shown);
    Check(board, "start position in the stock skin" + at,
          "squares differing: " + SquaresDiffering(shown, view, Placement(StartPlacement)));
    ImageDifference logo = CompareAreas(shown, boardPixels + 40, 20, skin.full, 320, 0, 128, 64, 0);
    Check(logo.pixels == 0, "logo at full size" + at, std::to_string(logo.pixels) + " pixels differ");

    int emptyStrips = 0;
    for (int i = 0; i < 8; ++i) {
        int cell = 20 + i * layout.tileSize;
        if (CountPixelsNear(shown, cell, 20 + boardPixels, layout.tileSize, 20, DefaultInk, 40) < 3)
            ++emptyStrips;
        if (CountPixelsNear(shown, 0, cell, 20, layout.tileSize, DefaultInk, 40) < 3) ++emptyStrips;
    }
    Check(emptyStrips == 0, "a letter under every file and a digit beside every row" + at,
          std::to_string(emptyStrips) + " of 16 coordinate cells are blank");
    return shown;
}

// Checks the panel of an idle window: the empty framed list, no names and no clocks.
void CheckIdlePanel(Program& program, const Image& shown, int scale) {
    const Layout layout = LayoutAt(scale);
    const std::string at = " at scale " + std::to_string(scale);
    const int left = layout.listLeft, top = layout.listTop, right = left + 128,
              bottom = top + layout.listHeight;
    bool framed =
        shown.Pixel(left - 1, top + 20) == DefaultInk && shown.Pixel(right, top + 20) == DefaultInk &&
        shown.Pixel(left + 20, top - 1) == DefaultInk && shown.Pixel(left + 20, bottom) == DefaultInk;
    Check(framed, "moves list framed in ink" + at);
    int plain = CountPixelsNear(shown, left, top, 128, layout.listHeight, DefaultBackground, 0);
    size_t rows = program.Rows().size();
    Check(plain == 128 * layout.listHeight && rows == 0, "moves list empty" + at,
          std::to_string(rows) + " rows");
    // Between the logo and the list's frame, and below the frame: names and clocks would be there.
    const int panel = 8 * layout.tileSize + 20;
    int upper = CountPixelsNear(shown, panel, 84, 168, 63, DefaultBackground, 0);
    int lower = CountPixelsNear(shown, panel, bottom + 1, 168, 63, DefaultBackground, 0);
    Check(upper == 168 * 63 && lower == 168 * 63, "no names and no clocks" + at);
}

// Checks the greyed Save entries and that a click on the board does nothing before a game.
void CheckIdleControls(Program& program, const ProgramSkin& skin, int scale) {
    Check(GameMenuLook(program) == "eeGe", "Game menu: Save greyed, the rest enabled", GameMenuLook(program));
    Check(PositionMenuLook(program) == "eeG", "Position menu: Save greyed, the rest enabled",
          PositionMenuLook(program));
    BoardView view{scale == 75 ? &skin.threeQuarter : &skin.full, LayoutAt(scale).tileSize, false};
    program.Command(CommandAbout);
    HWND about = program.WaitForDialog("About");
    Check(program.DialogShows(about, "Velok-3 version 1.1."), "the About dialog names the version");
    program.PressButton(about, IDOK, ClosesDialog);

    ClickSquare(program, view, "e2");
    Sleep(300);
    Check(SquaresDiffering(program.CaptureClient(), view, Placement(StartPlacement)).empty(),
          "a click before any game selects nothing at scale " + std::to_string(scale));
}

// Starts with a settings file for the scale, checks the window, and checks the file written back.
void StartAtScale(int scale) {
    // At scale 100 the folder starts without a settings file; 75 needs one written by hand.
    std::string expected = DefaultSettings(scale);
    if (scale != 100) WriteWholeFile(LearnSettingsFileName(), expected);
    ProgramSkin skin = LoadProgramSkin(".\\velok3.exe");
    if (skin.full.Empty()) Abort("stock skin readable from velok3.exe", "bitmap 133 not found");

    Program program;
    program.Start();
    Screenshot("start at scale " + std::to_string(scale));
    CheckWindowFrame(program, scale);
    CheckIdlePanel(program, CheckBoard(program, skin, scale), scale);
    CheckIdleControls(program, skin, scale);
    Check(program.Close(AsksNothing) == 0, "closing an idle window asks nothing and exits with 0");
    std::string settingsName = FindSettingsFile();
    std::string written = ReadWholeFile(settingsName);
    Check(written == expected, "settings file \"" + settingsName + "\" written byte for byte",
          FirstDifference(expected, written));
}

} // namespace

void StartUpAtFullScale() {
    StartAtScale(100);
}

void StartUpAtThreeQuarterScale() {
    StartAtScale(75);
}

void SecondStart() {
    Program program;
    program.Start();
    ShowWindowAsync(program.Window(), SW_MINIMIZE);
    if (!program.WaitUntil([&] { return IsIconic(program.Window()) != 0; }, ShortWait))
        Abort("window minimises", "still not minimised");
    Check(program.StartSecondCopy() == 0, "a second start exits with 0");
    bool forward = program.WaitUntil(
        [&] { return !IsIconic(program.Window()) && GetForegroundWindow() == program.Window(); }, ShortWait);
    Check(forward, "the second start restores the first window and brings it forward");
    HWND other = FindWindowExA(nullptr, program.Window(), "VELOK3", nullptr);
    bool single = FindWindowA("VELOK3", nullptr) == program.Window() && !other;
    Check(single, "one window of class VELOK3 only");
    Screenshot("first window brought forward");
    Check(program.Close(AsksNothing) == 0, "the first copy exits with 0");
}

} // namespace e2e
