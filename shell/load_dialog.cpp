// The Load dialog: the games or positions in the folder Save, each parsed into the preview as it
// is selected, loaded into the game on Load or a double click, or deleted.
#include <windows.h>

#include <cstdint>
#include <vector>

#include "core/game_state.h"
#include "records/load_file.h"
#include "resource.h"
#include "shell/shell_parts.h"
#include "shell/shell_state.h"

namespace {

// The list row last parsed, -1 for none; selecting it again reads nothing.
Word lastLoadSelection = -1;

// Sends a message to the file list.
LRESULT ToList(HWND dialog, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    return SendDlgItemMessageA(dialog, IDC_LOAD_LIST, message, wParam, lParam);
}

// The selected row of the file list, -1 for none.
Word SelectedRow(HWND dialog) {
    return static_cast<Word>(ToList(dialog, LB_GETCURSEL));
}

// The path of the file on `row`, read at the length the list reports so no name is cut.
Text RowPath(HWND dialog, Word row) {
    const LRESULT length = ToList(dialog, LB_GETTEXTLEN, row);
    std::vector<char> name(length > 0 ? static_cast<size_t>(length) + 1 : 1, 0);
    if (length > 0) ToList(dialog, LB_GETTEXT, row, reinterpret_cast<LPARAM>(name.data()));
    return LoadFilePath(name.data());
}

// Opens the file for reading alone and reads it whole when it fits the limit; hands what came
// of it to the preview. A file that opens but cannot be read counts as one that does not open.
void PreviewFile(const Text& path) {
    const HANDLE file =
        CreateFileA(path.Chars(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    SelectedFile selected{file != INVALID_HANDLE_VALUE, 0, nullptr};
    std::vector<char> bytes;
    if (selected.opened) {
        DWORD high = 0;
        const DWORD low = GetFileSize(file, &high);
        selected.size = high != 0 || low == INVALID_FILE_SIZE ? UINT32_MAX : low;
        if (FitsLoadLimit(selected.size)) {
            bytes.resize(selected.size + 1);
            DWORD read = 0;
            selected.opened = ReadFile(file, bytes.data(), selected.size, &read, nullptr) != FALSE;
            selected.size = read;
            selected.bytes = bytes.data();
        }
        CloseHandle(file);
    }
    PreviewSelectedFile(previewGame, game.loadDialogKind, selected);
}

// Enables Load and Delete as the list and the preview allow.
void UpdateLoadButtons(HWND dialog) {
    const LoadButtons buttons =
        LoadButtonStates(previewGame, static_cast<Word>(ToList(dialog, LB_GETCOUNT)), SelectedRow(dialog));
    EnableWindow(GetDlgItem(dialog, IDOK), buttons.loadEnabled);
    EnableWindow(GetDlgItem(dialog, IDC_LOAD_DELETE), buttons.deleteEnabled);
}

// Lists the folder anew with nothing selected; also the end of a successful delete.
void ListFiles(HWND dialog) {
    ToList(dialog, LB_RESETCONTENT);
    const Word kind = game.loadDialogKind;
    ToList(dialog, LB_DIR, 0, reinterpret_cast<LPARAM>(LoadListPattern(kind)));
    SetWindowTextA(dialog, LoadDialogTitle(kind));
    previewGame.previewStatus = Text(FileNotSelectedText);
    UpdateLoadButtons(dialog);
    lastLoadSelection = -1;
}

// Parses the newly selected file into the preview.
void OnSelectionChange(HWND dialog) {
    const Word row = SelectedRow(dialog);
    if (row < 0 || row == lastLoadSelection) return;
    lastLoadSelection = row;
    PreviewFile(RowPath(dialog, row));
    UpdateLoadButtons(dialog);
    InvalidateRect(dialog, nullptr, FALSE);
}

// Takes the previewed file over as the game and closes; nothing while Load is disabled, so that
// a double click or Enter on a refused file does nothing.
bool OnLoad(HWND dialog) {
    if (!IsWindowEnabled(GetDlgItem(dialog, IDOK))) return false;
    LoadPreviewedGame(game, previewGame, game.loadDialogKind, &movesListWindow);
    EndDialog(dialog, IDOK);
    return true;
}

// Deletes the selected file and lists the folder anew, or says that it could not.
void OnDelete(HWND dialog) {
    const Word row = SelectedRow(dialog);
    if (row < 0) return;
    if (DeleteFileA(RowPath(dialog, row).Chars()))
        ListFiles(dialog);
    else
        MessageBoxA(dialog, ErrorDeleteFileText, shellState.windowTitle, MB_OK | MB_ICONSTOP);
    UpdateLoadButtons(dialog);
}

// Runs a button or a list notification; true when the dialog has ended.
bool OnCommand(HWND dialog, WPARAM wParam) {
    switch (LOWORD(wParam)) {
    case IDOK: return OnLoad(dialog);
    case IDCANCEL: EndDialog(dialog, IDCANCEL); return true;
    case IDC_LOAD_DELETE: OnDelete(dialog); return false;
    case IDC_LOAD_LIST:
        if (HIWORD(wParam) == LBN_SELCHANGE) OnSelectionChange(dialog);
        if (HIWORD(wParam) == LBN_DBLCLK) return OnLoad(dialog);
        return false;
    default: return false;
    }
}

// The list, the preview pane it feeds, and the three buttons.
INT_PTR CALLBACK LoadDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: ListFiles(dialog); return TRUE;
    case WM_DRAWITEM:
        if (wParam != IDC_LOAD_PREVIEW) return FALSE;
        PaintLoadPreview(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        return TRUE;
    case WM_COMMAND:
        if (!OnCommand(dialog, wParam)) InvalidateRect(GetDlgItem(dialog, IDC_LOAD_PREVIEW), nullptr, FALSE);
        return TRUE;
    default: return FALSE;
    }
}

} // namespace

// Runs the Load dialog for games or positions over the main window.
void ShowLoadDialog(int kind) {
    game.loadDialogKind = kind;
    DialogBoxParamA(shellState.instance, MAKEINTRESOURCEA(IDD_LOAD), shellState.mainWindow, LoadDialogProc,
                    0);
}
