// The promotion dialog: four buttons showing the mover's knight, bishop, rook and queen from
// the skin; the button's id is the piece code the dialog returns.
#include <windows.h>

#include "core/types.h"
#include "resource.h"
#include "shell/gdi_objects.h"
#include "shell/shell_parts.h"
#include "shell/shell_state.h"

namespace {

constexpr int PieceTile = 64;

// The button pictures of the open dialog; deleted when it closes.
HBITMAP pictures[4] = {};

// A 64-pixel tile of the full-size skin: `piece` on a light square in the mover's colour.
HBITMAP CopyPieceTile(HDC reference, int piece, int colour) {
    const HBITMAP picture = CreateCompatibleBitmap(reference, PieceTile, PieceTile);
    MemoryDc target(reference);
    Selection selected(target.Get(), picture);
    const int column = colour == White ? 1 : 6;
    BitBlt(target.Get(), 0, 0, PieceTile, PieceTile, skinImages.skinFullDc, column * PieceTile,
           piece * PieceTile, SRCCOPY);
    return picture;
}

// Puts the mover's four pieces on the four buttons.
void SetButtonPictures(HWND dialog, int colour) {
    WindowDc dc(dialog);
    for (int piece = Knight; piece <= Queen; ++piece) {
        HBITMAP& picture = pictures[piece - Knight];
        picture = CopyPieceTile(dc.Get(), piece, colour);
        SendDlgItemMessageA(dialog, piece, BM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(picture));
    }
}

// Deletes the button pictures once the dialog is gone.
void DeleteButtonPictures() {
    for (HBITMAP& picture : pictures) {
        if (picture != nullptr) DeleteObject(picture);
        picture = nullptr;
    }
}

// Ends the dialog with the piece code of the button pressed.
INT_PTR CALLBACK PromotionDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: SetButtonPictures(dialog, static_cast<int>(lParam)); return TRUE;
    case WM_COMMAND:
        // Esc sends id 2, the knight's, like a click on its button.
        if (LOWORD(wParam) >= Knight && LOWORD(wParam) <= Queen) EndDialog(dialog, LOWORD(wParam));
        return TRUE;
    case WM_DESTROY: DeleteButtonPictures(); return FALSE;
    default: return FALSE;
    }
}

} // namespace

// Asks which piece a pawn of `colour` becomes: the piece code 2 to 5.
INT_PTR ShowPromotionDialog(int colour) {
    return DialogBoxParamA(shellState.instance, MAKEINTRESOURCEA(IDD_PROMOTION), shellState.mainWindow,
                           PromotionDialogProc, colour);
}
