// Scenarios of the window and of play: start-up at both scales and turned, a single instance,
// two people at the board, the computer against a person and against itself, and the faces.
#include "e2e.h"

namespace e2e {

namespace {

constexpr ListRect FullList = ListRectForScale(100);
constexpr int ListRowHeight = 25;

// The clock of `colour`'s area at scale 100, with White at the bottom.
RECT ClockArea(Word colour) {
    const int top = ClockTop(colour, 0, FullList);
    return {FullList.left, top, FullList.left + FullList.width, top + ClockHeight - 1};
}

bool SameArea(const Image& a, const Image& b, const RECT& area) {
    return PixelsDiffering(a, area.left, area.top, b, area.left, area.top, area.right - area.left,
                           area.bottom - area.top) == 0;
}

// Checks that the clock of the side to move counts within a little over a second while the
// other one stands still.
void CheckClocks(Program& program, Word counting, const std::string& side) {
    const Image before = program.Client();
    Image after;
    Check(program.WaitForScreen([&](const Image& now) { return !SameArea(before, now, ClockArea(counting)); },
                                &after),
          side + "'s clock counts while " + side + " is to move");
    Check(SameArea(before, after, ClockArea(counting == White ? Black : White)),
          "the other clock stands still");
}

// The rightmost column of a list row that holds ink: a pixel unlike the row's own background.
int RightmostInk(const Image& client, int row) {
    const int top = FullList.top + row * ListRowHeight;
    const COLORREF background = client.Pixel(FullList.left + 1, top + 1);
    for (int x = FullList.left + FullList.width - 1; x >= FullList.left; --x)
        if (PixelsNear(client, {x, top, x + 1, top + ListRowHeight}, background, 40) < ListRowHeight)
            return x - FullList.left;
    return -1;
}

// Checks that every row's last character has its ink inside the list with a clear gap before
// the list's right edge: a row cut by the edge has ink up to it, or none of its last character.
void CheckRowsWhole(Program& program) {
    constexpr int ClearGap = 4;
    const Image client = program.Client();
    const std::vector<std::string> rows = program.Rows();
    for (int row = 1; row < static_cast<int>(rows.size()); ++row) {
        const std::string& text = rows[row];
        const int lastStarts = PanelTextWidth(text.substr(0, text.size() - 1)), ends = PanelTextWidth(text);
        const int ink = RightmostInk(client, row);
        Check(ink > lastStarts && ink <= ends && FullList.width - 1 - ink >= ClearGap,
              "row \"" + text + "\" shown whole",
              "last ink at " + std::to_string(ink) + ", its last character from " +
                  std::to_string(lastStarts) + " to " + std::to_string(ends));
    }
}

// Checks the caption's minimise button: Marlett's symbol is a short bar low in the button, where
// the letter "0" of a stand-in face stands tall in its middle.
void CheckCaptionSymbols(const Program& program) {
    RECT frame{};
    GetWindowRect(program.window, &frame);
    const int button = GetSystemMetrics(SM_CXSIZE), top = frame.top + GetSystemMetrics(SM_CYFRAME);
    const int left = frame.right - GetSystemMetrics(SM_CXFRAME) - 3 * button;
    const Image shot =
        CaptureScreen({left + 2, top + 2, left + button - 2, top + GetSystemMetrics(SM_CYSIZE) - 2});
    int first = -1, last = -1;
    for (int y = 0; y < shot.height; ++y)
        if (PixelsNear(shot, {0, y, shot.width, y + 1}, GetSysColor(COLOR_BTNTEXT), 40) > 0) {
            first = first < 0 ? y : first;
            last = y;
        }
    Check(first >= shot.height / 2 && last - first <= 3, "the caption's minimise button shows its symbol",
          "glyph on rows " + std::to_string(first) + " to " + std::to_string(last) + " of " +
              std::to_string(shot.height));
}

// Waits for the computer's move that makes the list `rows` long, and checks its row's form.
void ExpectComputerMove(Program& program, int rows) {
    if (!program.WaitForRows(rows, ComputerWait)) Abort("the computer moves by itself", Join(program.Rows()));
    const std::string row = program.Rows()[rows - 1];
    const bool formed = rows % 2 == 1 ? row.rfind(std::string(11, ' '), 0) == 0 && row.size() > 15
                                      : row.rfind(" " + std::to_string(rows / 2) + ". ", 0) == 0;
    Check(formed, "the computer's move " + std::to_string(rows - 1) + " has a row of its own",
          "\"" + row + "\"");
}

// The placement after the moves of list rows 1 to r, read back from their long notation.
std::string PlacementAtRow(const std::vector<std::string>& rows, int r) {
    std::string moves;
    for (int i = 1; i <= r; ++i) {
        const size_t at = rows[i].find_first_of("-x", 4);
        moves += rows[i].substr(at - 2, 2) + rows[i].substr(at + 1, 2) + " ";
    }
    return AfterMoves(StartPlacement, moves);
}

} // namespace

void StartUp() {
    const Board board{LoadSkin(0, 64)};
    Program program;
    program.Start();
    CheckCaptionSymbols(program);
    const SIZE client = program.ClientSize();
    Check(client.cx == 700 && client.cy == 552, "client area of 700 by 552 at scale 100");
    RECT frame{};
    GetWindowRect(program.window, &frame);
    Check(std::abs(frame.left + frame.right - GetSystemMetrics(SM_CXSCREEN)) <= 2 &&
              std::abs(frame.top + frame.bottom - GetSystemMetrics(SM_CYSCREEN)) <= 2,
          "the window is centred on the screen");
    program.ExpectBoard(board, StartPlacement, "the start position in the stock skin");
    const Image shot = program.Client();
    Check(PixelsDiffering(shot, 552, 20, board.skin, 320, 0, 128, 64) == 0, "the logo beside the board");
    Check(PixelsNear(shot, {20, 532, 532, 552}, DefaultInk, 40) > 100 &&
              PixelsNear(shot, {0, 20, 20, 532}, DefaultInk, 40) > 100,
          "coordinates under and beside the board");
    Check(program.Rows().empty() && shot.Pixel(FullList.left - 1, 200) == DefaultInk,
          "an empty moves list in its frame");
    program.Click(board.Centre("e2"));
    Sleep(PaintPause);
    Check(board.Differing(program.Client(), StartPlacement).empty(),
          "a click before any game selects nothing");
    program.Command(IDM_ABOUT);
    HWND about = program.WaitForDialog("About");
    Screenshot("about");
    program.Press(about, IDOK);

    ShowWindowAsync(program.window, SW_MINIMIZE);
    program.WaitUntil([&] { return IsIconic(program.window) != 0; });
    Check(program.StartSecondCopy() == 0, "a second start ends by itself with 0");
    Check(program.WaitUntil(
              [&] { return !IsIconic(program.window) && GetForegroundWindow() == program.window; }),
          "the second start restores the first window and brings it forward");
    Check(FindWindowExA(nullptr, program.window, "VELOK3", nullptr) == nullptr,
          "one window of the program only");
    Check(program.Close(false) == 0, "closing an idle window asks nothing and ends with 0");
    Check(ReadWholeFile(FilesMatching("velok-3 {*}.ini").at(0)).find("\r\nSCALE OF BOARD = 100\r\n") !=
              std::string::npos,
          "the settings file is written at exit");
}

void SmallAndTurned() {
    WriteWholeFile(SettingsFileName(),
                   CrLf({"[SHOW]", "WHITE ON TOP = YES", "MOVELIST = NO", "SCALE OF BOARD = 75"}));
    const Board board{LoadSkin(0, 48), 48, true};
    Program program;
    program.Start();
    Check(program.ClientSize().cx == 572 && program.ClientSize().cy == 424,
          "client area of 572 by 424 at scale 75");
    program.ExpectBoard(board, StartPlacement, "the start position at 48 pixels a square, White on top");
    Check(!IsWindowVisible(program.list), "MOVELIST = NO hides the moves list");
    program.NewGame(Human, Human);
    program.Click(board.Centre("b1"));
    Check(program.WaitForScreen([&](const Image& now) {
        return board.Shows(now, "b1", 'N', TileColumnAlert) && board.Shows(now, "c3", '.', TileColumnTarget);
    }),
          "a click on the turned board selects the knight on b1 and shows its targets");
    program.Play(board, "g1f3 e7e5");
    Screenshot("small and turned");
    const std::vector<std::string> rows = program.Rows();
    Check(program.StepTo(VK_UP, 1), "the up key steps back with the list hidden");
    program.ExpectBoard(board, PlacementAtRow(rows, 1), "row 1's position with its last move marked", "g1f3");
    Check(program.StepTo(VK_DOWN, 2), "the down key steps forward to the game's end");
    Check(program.Close(true) == 0, "closing asks to save and ends with 0");
    Check(ReadWholeFile(FilesMatching("velok-3 {*}.ini").at(0)).find("\r\nWHITE ON TOP = YES\r\n") !=
              std::string::npos,
          "the choices are written back");
}

void HumanPlay() {
    const Board board{LoadSkin(0, 64)};
    Program program;
    program.Start();
    HWND dialog = program.NewGame(Human, Human, Easy, false);
    Check(!IsWindowEnabled(GetDlgItem(dialog, IDC_AI_LEVEL)), "no level to choose for two people");
    program.Press(dialog, IDOK);
    Check(program.Rows() == std::vector<std::string>{" 0."}, "a new game's list holds the row \" 0.\"");
    CheckClocks(program, White, "White");
    program.Click(board.Centre("e2"), WM_RBUTTONUP);
    program.Click(board.Centre("e2"));
    Check(program.WaitForScreen([&](const Image& now) {
        return board.Shows(now, "e2", 'P', TileColumnAlert) &&
               board.Shows(now, "e4", '.', TileColumnTarget) && board.Shows(now, "d3", '.');
    }),
          "a click on e2 selects the pawn and shows its targets");
    program.Click(board.Centre("e5"));
    const DWORD clicked = GetTickCount();
    Check(
        program.WaitForScreen([&](const Image& now) { return board.Shows(now, "e5", '.', TileColumnAlert); }),
        "a click out of reach flashes the square");
    Check(program.WaitForScreen([&](const Image& now) { return board.Shows(now, "e5", '.'); }) &&
              GetTickCount() - clicked < 1500 && board.Shows(program.Client(), "e2", 'P', TileColumnAlert),
          "the flash ends by itself and the selection stays");
    program.Play(board, "f2f3");
    program.ExpectBoard(board, AfterMoves(StartPlacement, "f2f3"), "the last move's squares are marked",
                        "f2f3");
    CheckClocks(program, Black, "Black");
    program.Play(board, "e7e5 g2g4");
    program.Click(board.Centre("d8"));
    program.Click(board.Centre("h4"));
    program.Answer("Game over.\nBlack wins by checkmate.");
    Check(Join(program.Rows()) == " 0.| 1. f2-f3|           e7-e5| 2. g2-g4|           Qd8-h4#",
          "the list holds the game", Join(program.Rows()));
    Check(
        program.WaitForScreen([&](const Image& now) { return board.Shows(now, "e1", 'K', TileColumnAlert); }),
        "the mated king shows in check");

    program.Command(IDM_GAME_NEW);
    program.Answer("Save current game?", IDNO);
    program.Press(program.WaitForDialog("New game"), IDCANCEL);
    program.NewGame(Human, Human);
    program.Play(board, "a2a4 b7b5 a4b5 a7a6 b5a6 c8b7 a6b7 g8f6");
    program.Click(board.Centre("b7"));
    program.Click(board.Centre("a8"));
    HWND promotion = program.WaitForDialog("Select promote piece");
    Screenshot("promotion");
    program.Press(promotion, IDC_PROMOTE_QUEEN);
    Check(program.WaitForRows(10) && program.Rows().back() == " 5. b7xa8=Q", "the pawn promotes to a queen",
          Join(program.Rows()));
    Check(program.WaitForScreen(
              [&](const Image& now) { return board.Shows(now, "a8", 'Q', TileColumnLastMove); }),
          "a white queen stands on a8");
    CheckRowsWhole(program);
    Check(program.Close(true) == 0, "closing asks to save and ends with 0");
}

void AgainstComputer() {
    const Board board{LoadSkin(0, 64)};
    Program program;
    program.Start();
    HWND dialog = program.NewGame(Human, Computer, Easy, false);
    program.SetText(dialog, IDC_WHITE_NAME, "");
    program.Press(dialog, IDOK, false);
    program.Answer("Please enter name (WHITE SIDE)");
    program.SetText(dialog, IDC_WHITE_NAME, "Alice");
    program.Press(dialog, IDOK);
    Sleep(PaintPause);
    Check(program.Rows().size() == 1, "the computer as Black waits for White's first move");
    program.Play(board, "e2e4");
    ExpectComputerMove(program, 3);
    program.Play(board, "d2d4");
    ExpectComputerMove(program, 5);
    const std::vector<std::string> played = program.Rows();

    program.ClickRow(3);
    Check(program.WaitUntil([&] { return program.SelectedRow() == 3; }), "a click on row 3 selects it");
    program.ExpectBoard(board, PlacementAtRow(played, 3), "the board shows row 3's position", "d2d4");
    program.Click(board.Centre("g1"));
    Sleep(PaintPause);
    Check(board.Shows(program.Client(), "g1", 'N') && program.Rows() == played,
          "at the computer's row White's pieces cannot be moved");
    Check(program.StepTo(VK_UP, 2), "the up key steps back to row 2");
    program.Play(board, "g1f3");
    Check(program.Rows()[3] == " 2. Ng1-f3" &&
              std::equal(played.begin(), played.begin() + 3, program.Rows().begin()),
          "a move from row 2 takes back the rows behind it", Join(program.Rows()));
    ExpectComputerMove(program, 5);
    Screenshot("taken back against the computer");
    Check(program.Close(true) == 0, "closing asks to save and ends with 0");
}

void ComputerAgainstComputer() {
    Program program;
    program.Start();
    program.NewGame(Computer, Computer, Normal);
    for (int rows = 2; rows <= 5; ++rows)
        ExpectComputerMove(program, rows);
    Screenshot("computer against computer");
    Check(program.Close(true) == 0, "closing asks to save and ends with 0");
}

} // namespace e2e
