// WM_PAINT of the main window: the background around board and panel, the panel's texts, the
// logo, the coordinates and the 64 squares copied from the skin; and the clock-only fast path.
#include "core/game_state.h"
#include "records/clock_text.h"
#include "records/settings.h"
#include "shell/board_geometry.h"
#include "shell/gdi_objects.h"
#include "shell/main_window.h"
#include "shell/shell_state.h"

namespace {

constexpr int LogoWidth = 128, LogoHeight = 64;

// Pixels of a square at the present scale.
int TileSize() {
    return TileSizeForScale(displaySettings.boardScale);
}
// Pixels of the board's side at the present scale.
int BoardPixels() {
    return 8 * TileSize();
}

// The colour whose name and clock stand in the upper half of the panel.
int UpperColour() {
    return displaySettings.whiteOnTop ? White : Black;
}

// Where the upper name, or the mode's name, stands.
RECT UpperNameRect() {
    return RECT{BoardPixels() + 20, 84, BoardPixels() + 188, 116};
}
// Where the lower name stands, right below the list.
RECT LowerNameRect() {
    const int top = shellState.listTop + shellState.listHeight;
    return RECT{BoardPixels() + 20, top, BoardPixels() + 188, top + ClockHeight};
}

// Draws one line of text centred in `area`.
void DrawCentred(HDC dc, const char* text, int length, RECT area) {
    DrawTextA(dc, text, length, &area, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
}

// Draws the clock of `colour` centred in `area`.
void DrawClock(HDC dc, int colour, const RECT& area) {
    const Text clock = FormatClock(game.sides[colour].clockSeconds);
    DrawCentred(dc, clock.Chars(), clock.Length(), area);
}

// Fills everything outside the board, the coordinate strips, the logo and the list, out to
// the edges of the client area.
void FillBackground(HWND window, HDC dc) {
    RECT client;
    GetClientRect(window, &client);
    const int board = BoardPixels(), right = board + 20,
              listRight = shellState.listLeft + shellState.listWidth;
    const int listBottom = shellState.listTop + shellState.listHeight;
    const int logoBottom = 20 + LogoHeight;
    const RECT pieces[] = {
        {0, 0, client.right, 20},                                         // above board and logo
        {0, board + 40, client.right, client.bottom},                     // below the letters
        {right, 20, shellState.listLeft, board + 40},                     // between board and panel
        {shellState.listLeft, logoBottom, listRight, shellState.listTop}, // between logo and list
        {shellState.listLeft, listBottom, listRight, board + 40},         // below the list
        {listRight, 20, client.right, board + 40},                        // right of the panel
        {0, board + 20, 20, board + 40},                                  // the corner left of the letters
    };
    for (const RECT& piece : pieces)
        FillRect(dc, &piece, shellState.backgroundBrush);
}

// The list's frame of one pixel, or plain background where the hidden list lies.
void DrawListFrame(HDC dc) {
    const int left = shellState.listLeft, top = shellState.listTop;
    const int right = left + shellState.listWidth, bottom = top + shellState.listHeight;
    if (!displaySettings.showMovesList) {
        const RECT area{left, top, right, bottom};
        FillRect(dc, &area, shellState.backgroundBrush);
        return;
    }
    SolidPen pen(displaySettings.inkColor);
    Selection selected(dc, pen.Get());
    MoveToEx(dc, left - 1, top - 1, nullptr);
    LineTo(dc, right, top - 1);
    LineTo(dc, right, bottom);
    LineTo(dc, left - 1, bottom);
    LineTo(dc, left - 1, top - 1);
}

// Names and clocks in play; the mode's name in set-up and analysis.
void DrawPanelTexts(HDC dc) {
    if (!game.gameActive) return;
    if (game.setupMode) {
        DrawCentred(dc, "Set position", -1, UpperNameRect());
        return;
    }
    if (game.setupStart) {
        DrawCentred(dc, "Analyse mode", -1, UpperNameRect());
        return;
    }
    const int upper = UpperColour(), lower = Opposite(upper);
    DrawCentred(dc, game.sides[upper].name, -1, UpperNameRect());
    DrawCentred(dc, game.sides[lower].name, -1, LowerNameRect());
    DrawClock(dc, upper, ClockRect(upper));
    DrawClock(dc, lower, ClockRect(lower));
}

// The selection, the side of the shown position and whether its king is in check.
BoardViewFacts GatherViewFacts() {
    BoardViewFacts facts{};
    Word file = 0, row = 0;
    facts.pieceSelected = game.FindMarkedCell(MarkFrom, file, row) != 0;
    facts.selectedRow = static_cast<int>(SendMessageA(shellState.movesListWindow, LB_GETCURSEL, 0, 0));
    facts.viewSide = game.SideAtListIndex(facts.selectedRow);
    facts.kingFile = facts.kingRow = -1;
    if (game.FindKing(facts.viewSide, facts.kingFile, facts.kingRow))
        facts.inCheck = game.IsSquareAttacked(facts.viewSide, facts.kingFile, facts.kingRow) != 0;
    else
        facts.kingFile = facts.kingRow = -1;
    return facts;
}

// File letters below the board and row digits to its left, or plain background.
void DrawCoordinates(HDC dc) {
    const int tile = TileSize(), stripTop = 20 + BoardPixels();
    const RECT letters{20, stripTop, 20 + BoardPixels(), stripTop + 20};
    const RECT digits{0, 20, 20, stripTop};
    if (!displaySettings.showCoordinates) {
        FillRect(dc, &letters, shellState.backgroundBrush);
        FillRect(dc, &digits, shellState.backgroundBrush);
        return;
    }
    SetTextAlign(dc, TA_CENTER);
    for (int i = 0; i < 8; ++i) {
        const int index = displaySettings.whiteOnTop ? i : 7 - i;
        const char letter = static_cast<char>('H' - index), digit = static_cast<char>('1' + index);
        const RECT column{20 + i * tile, stripTop, 20 + (i + 1) * tile, stripTop + 20};
        ExtTextOutA(dc, column.left + tile / 2, stripTop - 3, ETO_OPAQUE, &column, &letter, 1, nullptr);
        const RECT row{0, 20 + i * tile, 20, 20 + (i + 1) * tile};
        ExtTextOutA(dc, 10, row.top + tile / 2 - 12, ETO_OPAQUE, &row, &digit, 1, nullptr);
    }
}

// Copies the 64 squares from the skin, each with the tile its cell and marks call for.
void DrawSquares(HDC dc) {
    const BoardViewFacts facts = GatherViewFacts();
    const int tile = TileSize();
    const HDC skin = displaySettings.boardScale == 75 ? skinImages.skinThreeQuarterDc : skinImages.skinFullDc;
    for (int i = 0; i < 8; ++i)
        for (int j = 0; j < 8; ++j) {
            Word file = 0, row = 0;
            ScreenToBoard(i, j, displaySettings.whiteOnTop, file, row);
            const int column = TileColumnOf(game, displaySettings, facts, i, j, file, row);
            BitBlt(dc, 20 + j * tile, 20 + i * tile, tile, tile, skin, column * tile,
                   game.board[row][file].piece * tile, SRCCOPY);
        }
}

// Only a clock changed: its side is told by where the update rectangle lies.
void PaintClockOnly(HDC dc, const RECT& area) {
    const int upper = UpperColour();
    DrawClock(dc, area.top < shellState.listTop ? upper : Opposite(upper), area);
}

} // namespace

// Paints the whole client area, or only a clock when the update rectangle is a clock's.
void PaintMainWindow(HWND window) {
    PaintSession paint(window);
    const HDC dc = paint.Dc();
    SetTextColor(dc, displaySettings.inkColor);
    SetBkColor(dc, displaySettings.backgroundColor);
    Selection font(dc, shellState.panelFont);
    if (paint.Area().bottom - paint.Area().top == ClockHeight) {
        PaintClockOnly(dc, paint.Area());
        return;
    }
    FillBackground(window, dc);
    DrawListFrame(dc);
    DrawPanelTexts(dc);
    BitBlt(dc, BoardPixels() + 40, 20, LogoWidth, LogoHeight, skinImages.skinFullDc, 320, 0, SRCCOPY);
    DrawCoordinates(dc);
    DrawSquares(dc);
}
