// The preview of the Options dialog: the game's position drawn in the selected skin at half
// size, White always at the bottom and without marks, framed in the live background colour.
#include <windows.h>

#include "core/game_state.h"
#include "records/settings.h"
#include "resource.h"
#include "shell/gdi_objects.h"
#include "shell/options_dialog.h"
#include "shell/shell_parts.h"

namespace {

constexpr int PreviewTile = 32;
constexpr int BlackPieceX = 160;

// The selected skin at 640 by 448 and at 320 by 224, each in a memory device context.
struct SkinPreview {
    HBITMAP full = nullptr;
    HDC fullDc = nullptr;
    HBITMAP half = nullptr;
    HDC halfDc = nullptr;
};
SkinPreview preview;

// Has the preview control draw itself anew, without erasing first.
void RedrawPreview(HWND dialog) {
    InvalidateRect(GetDlgItem(dialog, IDC_OPTIONS_PREVIEW), nullptr, FALSE);
}

} // namespace

void CreateSkinPreview(HWND dialog) {
    preview.fullDc = CreateCompatibleDC(nullptr);
    preview.halfDc = CreateCompatibleDC(nullptr);
    LoadSelectedSkin(dialog, preview.full, preview.fullDc);
    // The half-size image only needs a bitmap of the skin's kind to draw into.
    LoadSelectedSkin(dialog, preview.half, preview.halfDc);
    ScaleSkinToHalf(preview.fullDc, preview.halfDc);
}

void ReloadSkinPreview(HWND dialog) {
    LoadSelectedSkin(dialog, preview.full, preview.fullDc);
    ScaleSkinToHalf(preview.fullDc, preview.halfDc);
    RedrawPreview(dialog);
}

void PaintSkinPreview(const DRAWITEMSTRUCT& drawItem) {
    const HDC dc = drawItem.hDC;
    const RECT& area = drawItem.rcItem;
    // Only the control's area beside and below the board is filled, so that a new skin does not
    // flicker.
    const int boardEnd = 1 + 8 * PreviewTile;
    const RECT beside{area.left + boardEnd, area.top, area.right, area.bottom};
    const RECT below{area.left, area.top + boardEnd, area.right, area.bottom};
    FillRect(dc, &beside, GetSysColorBrush(COLOR_BTNFACE));
    FillRect(dc, &below, GetSysColorBrush(COLOR_BTNFACE));
    for (int i = 0; i < 8; ++i) {
        for (int j = 0; j < 8; ++j) {
            const BoardCell& cell = game.board[7 - i][j];
            const int light = (i % 2 == j % 2) ? PreviewTile : 0;
            const int x = (cell.piece != PieceNone && cell.colour == Black ? BlackPieceX : 0) + light;
            BitBlt(dc, area.left + 1 + PreviewTile * j, area.top + 1 + PreviewTile * i, PreviewTile,
                   PreviewTile, preview.halfDc, x, cell.piece * PreviewTile, SRCCOPY);
        }
    }
    SolidPen pen(displaySettings.backgroundColor);
    Selection selected(dc, pen.Get());
    MoveToEx(dc, area.left, area.top, nullptr);
    LineTo(dc, area.right - 1, area.top);
    LineTo(dc, area.right - 1, area.bottom - 1);
    LineTo(dc, area.left, area.bottom - 1);
    LineTo(dc, area.left, area.top);
}

void SumPreviewSquares(TileSums& dark, TileSums& light) {
    for (int y = 0; y < SkinTilePixels; ++y) {
        for (int x = 0; x < SkinTilePixels; ++x) {
            dark.Add(GetPixel(preview.fullDc, x, y));
            light.Add(GetPixel(preview.fullDc, SkinTilePixels + x, y));
        }
    }
}

// The device contexts go first, so that the bitmaps are selected nowhere when deleted.
void DeleteSkinPreview() {
    DeleteDC(preview.fullDc);
    DeleteDC(preview.halfDc);
    DeleteObject(preview.full);
    DeleteObject(preview.half);
    preview = SkinPreview();
}
