// Scenarios of the window and of play: start-up, a single instance, two people at the board, the computer
// against a person and against itself, and the faces Windows has.
#include "e2e.h"

namespace e2e {

namespace {

constexpr ListRect FullList = ListRectForScale(100);

// Checks that the clock of the side to move counts while the other one stands still.
void CheckClocks(Program& program, Word counting, const std::string& side) {
    auto same = [](const Image& a, const Image& b, Word colour) {
        const int top = ClockTop(colour, 0, FullList);
        return PixelsDiffering(a, FullList.left, top, b, FullList.left, top, FullList.width,
                               ClockHeight - 1) == 0;
    };
    // The first change may be the clocks' first paint; the second is a tick.
    Image first = program.Client(), second, third;
    Check(program.WaitForScreen([&](const Image& now) { return !same(first, now, counting); }, &second) &&
              program.WaitForScreen([&](const Image& now) { return !same(second, now, counting); }, &third) &&
              same(second, third, counting == White ? Black : White),
          side + "'s clock counts while " + side + " is to move, and the other stands still");
}

// The width of a text in the face the panel asks for by name.
int PanelTextWidth(const std::string& text) {
    HDC memory = CreateCompatibleDC(nullptr);
    HFONT font =
        CreateFontA(24, 0, 0, 0, FW_DONTCARE, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                    CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH | FF_DONTCARE, "Palatino Linotype");
    SelectObject(memory, font);
    SIZE size{};
    GetTextExtentPoint32A(memory, text.c_str(), static_cast<int>(text.size()), &size);
    DeleteDC(memory);
    DeleteObject(font);
    return size.cx;
}

} // namespace

void StartUp() {
    const Board board{LoadSkin(0, 64)};
    Program program;
    Check(program.Client().width == 700 && program.Client().height == 552, "client 700 by 552");
    program.ExpectBoard(board, StartPlacement, "the start position in the stock skin");
    // The caption's minimise button: Marlett's symbol is a short bar low in the button, where the letter "0"
    // of a stand-in face stands tall in its middle.
    RECT frame{};
    GetWindowRect(program.window, &frame);
    const int size = GetSystemMetrics(SM_CXSIZE), top = frame.top + GetSystemMetrics(SM_CYFRAME) + 2;
    const int left = frame.right - GetSystemMetrics(SM_CXFRAME) - 3 * size + 2, half = size / 2 - 2;
    auto glyph = [&](int from) {
        const Image shot = CaptureScreen({left, top + from, left + size - 4, top + from + half});
        return PixelsNear(shot, {0, 0, size, half}, GetSysColor(COLOR_BTNTEXT), 40);
    };
    Check(program.WaitUntil([&] { return glyph(0) == 0 && glyph(half) > 0; }),
          "the caption's minimise button shows its symbol");
    const Image shot = program.Client();
    Check(PixelsNear(shot, {20, 532, 532, 552}, DefaultInk, 40) > 100 &&
              PixelsNear(shot, {0, 20, 20, 532}, DefaultInk, 40) > 100,
          "coordinates under and beside the board");
    program.Press(program.WaitForDialog("About", IDM_ABOUT), IDOK);

    ShowWindowAsync(program.window, SW_MINIMIZE);
    program.WaitUntil([&] { return IsIconic(program.window) != 0; });
    Check(program.StartSecondCopy() == 0, "a second start ends by itself with 0");
    Check(program.WaitUntil(
              [&] { return !IsIconic(program.window) && GetForegroundWindow() == program.window; }),
          "the second start restores the first window and brings it forward");
    Check(FindWindowExA(nullptr, program.window, "VELOK3", nullptr) == nullptr, "one window only");
    Check(program.Close() == 0, "closing an idle window asks nothing and ends with 0");
}

void HumanPlay() {
    const Board board{LoadSkin(0, 64)};
    Program program;
    program.NewGame(Human, Human);
    CheckClocks(program, White, "White");
    program.Click(board.Centre("e2"));
    program.Click(board.Centre("e5"));
    const DWORD clicked = GetTickCount();
    auto e5 = [&](int column) {
        return program.WaitForScreen([&](const Image& now) { return board.Shows(now, "e5", '.', column); });
    };
    Check(e5(TileColumnAlert) && e5(-1) && GetTickCount() - clicked < 1500 &&
              board.Shows(program.Client(), "e2", 'P', TileColumnAlert),
          "a click out of reach flashes the square a moment, and the selection stays");
    program.Play(board, "f2f3");
    CheckClocks(program, Black, "Black");

    program.Command(IDM_GAME_NEW);
    program.Answer(SaveGame, IDNO);
    program.Press(program.WaitForDialog("New game"), IDCANCEL);
    program.NewGame(Human, Human);
    program.Play(board, "a2a4 b7b5 a4b5 a7a6 b5a6 c8b7 a6b7 g8f6");
    program.Click(board.Centre("b7"));
    program.Click(board.Centre("a8"));
    program.Press(program.WaitForDialog("Select promote piece"), IDC_PROMOTE_QUEEN);
    Check(program.WaitForRows(10) && program.Rows().back() == " 5. b7xa8=Q", "the pawn promotes to a queen",
          Join(program.Rows()));
    // Each row's last character has ink, ending a clear gap before the list's right edge: a row cut by the
    // edge has ink up to it, or none of its last character. Ink is a pixel unlike the row's background.
    constexpr int ClearGap = 4;
    const Image client = program.Client();
    const std::vector<std::string> rows = program.Rows();
    for (int row = 1; row < static_cast<int>(rows.size()); ++row) {
        const int top = FullList.top + row * ListRowHeight;
        const COLORREF background = client.Pixel(FullList.left + 1, top + 1);
        int ink = FullList.width - 1;
        while (ink >= 0 &&
               PixelsNear(client, {FullList.left + ink, top, FullList.left + ink + 1, top + ListRowHeight},
                          background, 40) == ListRowHeight)
            --ink;
        const std::string& text = rows[row];
        const int lastStarts = PanelTextWidth(text.substr(0, text.size() - 1)), ends = PanelTextWidth(text);
        Check(ink > lastStarts && ink <= ends && FullList.width - 1 - ink >= ClearGap,
              "row \"" + text + "\" whole", "ink ends at " + std::to_string(ink));
    }
    Check(program.Close(SaveGame) == 0, "closing asks to save and ends with 0");
}

void AgainstComputer() {
    const Board board{LoadSkin(0, 64)};
    Program program;
    program.NewGame(Human, Computer, Easy);
    program.Play(board, "e2e4");
    Check(program.WaitForRows(3, ComputerWait), "the computer answers by itself");
    program.Play(board, "d2d4");
    Check(program.WaitForRows(5, ComputerWait), "and again");
    const std::vector<std::string> played = program.Rows();

    program.ClickRow(3);
    Check(program.WaitForScreen([&](const Image& now) {
        return board.Shows(now, "d2", '.', TileColumnLastMove) &&
               board.Shows(now, "d4", 'P', TileColumnLastMove);
    }),
          "the board shows row 3's last move");
    PostMessageA(program.window, WM_KEYDOWN, VK_UP, 1);
    Check(program.WaitUntil([&] { return program.SelectedRow() == 2; }), "the up key steps back to row 2");
    program.Play(board, "g1f3");
    Check(program.Rows()[3] == " 2. Ng1-f3" &&
              std::equal(played.begin(), played.begin() + 3, program.Rows().begin()),
          "a move from row 2 takes back the rows behind it", Join(program.Rows()));
    Check(program.WaitForRows(5, ComputerWait), "the computer answers the new move");
    Check(program.Close(SaveGame) == 0, "closing asks to save and ends with 0");
    Program computers;
    computers.NewGame(Computer, Computer, Normal);
    Check(computers.WaitForRows(5, 4 * ComputerWait), "two computers play on by themselves",
          Join(computers.Rows()));
    Check(computers.Close(SaveGame) == 0, "closing asks to save and ends with 0");
}

} // namespace e2e
