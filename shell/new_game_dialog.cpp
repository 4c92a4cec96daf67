// The New game dialog: who plays White and Black, their names and the computer's level; "Start !"
// resets the game to the start position and begins play.
#include <windows.h>

#include <cstring>

#include "core/game_state.h"
#include "records/settings.h"
#include "resource.h"
#include "shell/gdi_objects.h"
#include "shell/name_rules.h"
#include "shell/shell_parts.h"
#include "shell/shell_state.h"

namespace {

constexpr int NameLimit = 17, NameBuffer = 51;
enum TypeRow : int { RowComputer = 0, RowHuman = 1 };
constexpr int PictureSize = 34;

// The two kings beside "White" and "Black"; kept until the next opening deletes them.
HBITMAP sidePictures[2] = {};

struct SideControls {
    int typeList, nameEdit;
};
constexpr SideControls sideControls[2] = {{IDC_WHITE_TYPE, IDC_WHITE_NAME}, {IDC_BLACK_TYPE, IDC_BLACK_NAME}};

// Fills a drop-down list with two rows and selects one.
void AddRows(HWND dialog, int list, const char* first, const char* second, int selected) {
    SendDlgItemMessageA(dialog, list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(first));
    SendDlgItemMessageA(dialog, list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(second));
    SendDlgItemMessageA(dialog, list, CB_SETCURSEL, selected, 0);
}

// Whether the type list of `colour` shows "Human".
bool IsHuman(HWND dialog, int colour) {
    return SendDlgItemMessageA(dialog, sideControls[colour].typeList, CB_GETCURSEL, 0, 0) == RowHuman;
}

// A 32-pixel king from the half-size skin in a frame of the background colour.
HBITMAP MakeSidePicture(HDC reference, int tileX) {
    const HBITMAP picture = CreateCompatibleBitmap(reference, PictureSize, PictureSize);
    MemoryDc target(reference);
    Selection selected(target.Get(), picture);
    BitBlt(target.Get(), 1, 1, 32, 32, skinImages.skinHalfDc, tileX, 192, SRCCOPY);
    SolidPen pen(displaySettings.backgroundColor);
    Selection penSelected(target.Get(), pen.Get());
    MoveToEx(target.Get(), 0, 0, nullptr);
    LineTo(target.Get(), 33, 0);
    LineTo(target.Get(), 33, 33);
    LineTo(target.Get(), 0, 33);
    LineTo(target.Get(), 0, 0);
    return picture;
}

// Replaces the kings shown beside "White" and "Black".
void SetSidePictures(HWND dialog) {
    WindowDc dc(dialog);
    const int tileX[2] = {32, 192}, group[2] = {IDC_WHITE_PICTURE, IDC_BLACK_PICTURE};
    for (int colour = White; colour <= Black; ++colour) {
        if (sidePictures[colour] != nullptr) DeleteObject(sidePictures[colour]);
        sidePictures[colour] = MakeSidePicture(dc.Get(), tileX[colour]);
        SendDlgItemMessageA(dialog, group[colour], BM_SETIMAGE, IMAGE_BITMAP,
                            reinterpret_cast<LPARAM>(sidePictures[colour]));
    }
}

// Fills the lists, limits and guards the name edits and draws the two kings.
void OnInitDialog(HWND dialog) {
    AddRows(dialog, IDC_WHITE_TYPE, "Computer", "Human", RowHuman);
    AddRows(dialog, IDC_BLACK_TYPE, "Computer", "Human", RowComputer);
    AddRows(dialog, IDC_AI_LEVEL, "Easy", "Normal", 1);
    for (const SideControls& side : sideControls)
        SendDlgItemMessageA(dialog, side.nameEdit, EM_LIMITTEXT, NameLimit, 0);
    SyncSideControls(dialog);
    for (const SideControls& side : sideControls)
        SubclassNameEdit(GetDlgItem(dialog, side.nameEdit));
    SetSidePictures(dialog);
}

// Starts the game the dialog describes; false, with the dialog left open, when a name is missing.
bool StartGame(HWND dialog) {
    char names[2][NameBuffer] = {};
    for (int colour = White; colour <= Black; ++colour)
        GetDlgItemTextA(dialog, sideControls[colour].nameEdit, names[colour], NameBuffer);
    if (const char* message = MissingNameMessage(names[White], names[Black])) {
        // Owned by the dialog, so that closing the message gives the focus back to the dialog
        // rather than to the main window that the dialog has disabled.
        MessageBoxA(dialog, message, shellState.windowTitle, MB_OK | MB_ICONINFORMATION);
        return false;
    }
    const bool human[2] = {IsHuman(dialog, White), IsHuman(dialog, Black)};
    game.ResetGameState(ResetStartPosition);
    for (int colour = White; colour <= Black; ++colour) {
        game.sides[colour].kind = human[colour] ? SideHuman : SideComputer;
        std::memcpy(game.sides[colour].name, names[colour], NameBuffer);
    }
    game.level = static_cast<Word>(SendDlgItemMessageA(dialog, IDC_AI_LEVEL, CB_GETCURSEL, 0, 0)) + 1;
    if (!human[White]) game.thinkPending = 1;
    game.gameActive = 1;
    game.RebuildMovesList(&movesListWindow);
    InvalidateRect(shellState.mainWindow, nullptr, TRUE);
    return true;
}

// Keeps the controls in line with the side types and starts the game on "Start !".
INT_PTR CALLBACK NewGameDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_INITDIALOG) {
        OnInitDialog(dialog);
        return TRUE;
    }
    if (message != WM_COMMAND) return FALSE;
    const int id = LOWORD(wParam);
    if ((id == IDC_WHITE_TYPE || id == IDC_BLACK_TYPE) && HIWORD(wParam) == CBN_SELCHANGE)
        SyncSideControls(dialog);
    if (id == IDCANCEL) EndDialog(dialog, IDCANCEL);
    if (id == IDOK && StartGame(dialog)) EndDialog(dialog, IDOK);
    return TRUE;
}

} // namespace

// A computer side shows the fixed computer name, read-only; a human side gets an editable name,
// emptied when it still holds the computer's. The level matters only with a computer playing.
void SyncSideControls(HWND dialog) {
    for (int colour = White; colour <= Black; ++colour) {
        const HWND edit = GetDlgItem(dialog, sideControls[colour].nameEdit);
        if (IsHuman(dialog, colour)) {
            char name[NameBuffer] = "";
            GetWindowTextA(edit, name, NameBuffer);
            if (std::strcmp(name, ComputerName) == 0) SetWindowTextA(edit, "");
            SendMessageA(edit, EM_SETREADONLY, FALSE, 0);
        } else {
            SetWindowTextA(edit, ComputerName);
            SendMessageA(edit, EM_SETREADONLY, TRUE, 0);
        }
    }
    EnableWindow(GetDlgItem(dialog, IDC_AI_LEVEL), !(IsHuman(dialog, White) && IsHuman(dialog, Black)));
}

// Runs the New game dialog over the main window.
void ShowNewGameDialog() {
    DialogBoxParamA(shellState.instance, MAKEINTRESOURCEA(IDD_NEW_GAME), shellState.mainWindow,
                    NewGameDialogProc, 0);
}
