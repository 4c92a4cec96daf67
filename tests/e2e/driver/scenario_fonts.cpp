// The faces Windows has, as the Wine prefix maps them: the moves list's rows shown whole in the
// panel's face, and the caption buttons drawn as symbols from Wine's Marlett, not as letters.
#include <windows.h>

#include "report.h"
#include "scenarios.h"
#include "steps.h"

namespace e2e {

namespace {

constexpr RECT FullList{552, 148, 680, 404};
constexpr int ListRowHeight = 25;
constexpr int ClearGap = 4;

// The width of `text` in the panel's face, as the program asks for it.
int PanelTextWidth(const std::string& text) {
    HDC screen = GetDC(nullptr);
    HFONT font =
        CreateFontA(24, 0, 0, 0, FW_DONTCARE, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                    CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH | FF_DONTCARE, "Palatino Linotype");
    HGDIOBJ old = SelectObject(screen, font);
    SIZE size{};
    GetTextExtentPoint32A(screen, text.c_str(), static_cast<int>(text.size()), &size);
    SelectObject(screen, old);
    DeleteObject(font);
    ReleaseDC(nullptr, screen);
    return size.cx;
}

// The rightmost column, from the list's left edge, of a row's band that holds ink: a pixel
// that differs from the row's own background at its left edge. -1 for a blank row.
int RightmostInk(const Image& client, int row) {
    const int top = FullList.top + row * ListRowHeight;
    const COLORREF background = client.Pixel(FullList.left + 1, top + 1);
    for (int x = FullList.right - 1; x >= FullList.left; --x)
        for (int y = top; y < top + ListRowHeight; ++y)
            if (CountPixelsNear(client, x, y, 1, 1, background, 40) == 0) return x - FullList.left;
    return -1;
}

// Checks that a row's last character has its ink inside the list, with a clear gap before the
// list's right edge: a row cut by the edge has ink up to it, or none of its last character.
void CheckRowWhole(const Image& client, int row, const std::string& text) {
    const int lastStarts = PanelTextWidth(text.substr(0, text.size() - 1));
    const int ends = PanelTextWidth(text);
    const int ink = RightmostInk(client, row);
    const int width = FullList.right - FullList.left;
    Check(ink > lastStarts && ink <= ends && width - 1 - ink >= ClearGap,
          "row \"" + text + "\" shown whole, its last character inside the list",
          "last ink at " + std::to_string(ink) + ", last character from " + std::to_string(lastStarts) +
              " to " + std::to_string(ends) + ", list " + std::to_string(width) + " wide");
}

// Checks the minimise button of the caption: Marlett's symbol is a short bar low in the button,
// where a letter "0" in a substitute face would stand tall in its middle.
void CheckMinimiseSymbol(const Program& program) {
    RECT frame{};
    GetWindowRect(program.Window(), &frame);
    const int button = GetSystemMetrics(SM_CXSIZE), height = GetSystemMetrics(SM_CYSIZE);
    const int border = GetSystemMetrics(SM_CXFRAME), top = frame.top + GetSystemMetrics(SM_CYFRAME);
    // Close, maximise and minimise sit from the right; minimise is the third.
    const int left = frame.right - border - 3 * button;
    Image shot = CaptureScreen(left + 2, top + 2, button - 4, height - 4);
    const COLORREF glyph = GetSysColor(COLOR_BTNTEXT);
    int first = -1, last = -1;
    for (int y = 0; y < shot.height; ++y)
        if (CountPixelsNear(shot, 0, y, shot.width, 1, glyph, 40) > 0) {
            if (first < 0) first = y;
            last = y;
        }
    Check(first >= shot.height / 2 && last - first <= 3, "the caption's minimise button shows its symbol",
          "glyph rows " + std::to_string(first) + " to " + std::to_string(last) + " of " +
              std::to_string(shot.height));
}

} // namespace

void FontsAsOnWindows() {
    ProgramSkin skin = LoadProgramSkin(".\\velok3.exe");
    BoardView view{&skin.full, 64, false};
    Program program;
    program.Start();
    CheckMinimiseSymbol(program);
    NewGame game;
    game.black = RowHuman;
    game.whiteName = "Alice";
    game.blackName = "Bob";
    StartNewGame(program, game);
    const char* moves[] = {"g1f3", "b8c6", "b1c3", "g8f6"};
    int rows = 1;
    for (const char* move : moves)
        PlayMove(program, view, move, ++rows);
    Sleep(300);
    Screenshot("knight rows");
    Image client = program.CaptureClient();
    std::vector<std::string> shown = program.Rows();
    for (int row = 1; row < static_cast<int>(shown.size()); ++row)
        CheckRowWhole(client, row, shown[row]);
    Check(program.Close(AsksToSave) == 0, "closing asks to save and exits with 0");
}

} // namespace e2e
