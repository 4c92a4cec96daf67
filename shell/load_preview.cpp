// The preview pane of the Load dialog: the board the selected file gave, at half size and always
// from White's side, or the status text that stands in its place.
#include <windows.h>

#include "core/game_state.h"
#include "records/load_file.h"
#include "records/settings.h"
#include "shell/gdi_objects.h"
#include "shell/shell_parts.h"
#include "shell/shell_state.h"

namespace {

// The status centred on one line over the window's background.
void DrawStatus(HDC dc, const RECT& area) {
    FillRect(dc, &area, shellState.backgroundBrush);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, displaySettings.inkColor);
    Selection font(dc, shellState.panelFont);
    RECT text = area;
    DrawTextA(dc, previewGame.previewStatus.Chars(), previewGame.previewStatus.Length(), &text,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE);
}

// The 64 squares of the preview out of the half-size skin, rank 8 at the top.
void DrawBoard(HDC dc) {
    for (Word screenRow = 0; screenRow < 8; ++screenRow)
        for (Word file = 0; file < 8; ++file) {
            const Word row = 7 - screenRow;
            const SkinTile tile = PreviewTile(previewGame.board[row][file], file, row);
            BitBlt(dc, PreviewTileSize * file + PreviewMargin, PreviewTileSize * screenRow + PreviewMargin,
                   PreviewTileSize, PreviewTileSize, skinImages.skinHalfDc, tile.x, tile.y, SRCCOPY);
        }
}

// A one-pixel frame in the background colour along the edge of the pane.
void DrawFrame(HDC dc, const RECT& area) {
    SolidPen pen(displaySettings.backgroundColor);
    Selection selected(dc, pen.Get());
    const int right = area.right - 1, bottom = area.bottom - 1;
    MoveToEx(dc, area.left, area.top, nullptr);
    LineTo(dc, right, area.top);
    LineTo(dc, right, bottom);
    LineTo(dc, area.left, bottom);
    LineTo(dc, area.left, area.top);
}

} // namespace

// Paints the pane. The pane is an owner-drawn static, so the dialog draws it in WM_DRAWITEM
// whenever it is invalidated, and no paint of the control's own can cover the board afterwards.
void PaintLoadPreview(const DRAWITEMSTRUCT& drawItem) {
    const HDC dc = drawItem.hDC;
    RECT area;
    GetClientRect(drawItem.hwndItem, &area);
    if (previewGame.previewStatus.Length() > 0)
        DrawStatus(dc, area);
    else
        DrawBoard(dc);
    DrawFrame(dc, area);
}
