// The menu commands of the main window, bound to their ids, and the grey state of the two Save
// entries that follows every command.
#include <windows.h>

#include "core/game_state.h"
#include "records/load_file.h"
#include "resource.h"
#include "shell/main_window.h"
#include "shell/options_dialog.h"
#include "shell/set_position.h"
#include "shell/shell_parts.h"
#include "shell/shell_state.h"

namespace {

// Opens a file of the current folder with the program the system associates with it.
void OpenWithShell(const char* file) {
    ShellExecuteA(shellState.mainWindow, "open", file, nullptr, nullptr, SW_SHOWNORMAL);
}

// The help file beside the program: the old format when it is there, else the compiled one.
void OpenUserManual() {
    OpenWithShell(FileExists("velok-3.hlp") ? "velok-3.hlp" : "velok-3.chm");
}

// Enables a menu entry, or greys and disables it.
void SetMenuEntryEnabled(HMENU menu, UINT id, bool enabled) {
    MENUITEMINFOA item{};
    item.cbSize = sizeof item;
    item.fMask = MIIM_STATE;
    item.fState = enabled ? MFS_ENABLED : MFS_GRAYED | MFS_DISABLED;
    SetMenuItemInfoA(menu, id, FALSE, &item);
}

// Offers to save the game on the board, then lets the user set up a new one.
void StartNewGame() {
    game.OfferToSave();
    ShowNewGameDialog();
}

// Offers to save the game on the board, then lets the user pick a file of `kind` to load.
void LoadFromFolder(LoadKind kind) {
    game.OfferToSave();
    ShowLoadDialog(kind);
}

} // namespace

// Whether a file of that name can be found.
bool FileExists(const char* path) {
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA(path, &found);
    if (search == INVALID_HANDLE_VALUE) return false;
    FindClose(search);
    return true;
}

// Save game only with new moves of a played game; Save position in any game outside set-up.
void UpdateMenuState() {
    const HMENU menu = GetMenu(shellState.mainWindow);
    const bool playing = game.gameActive && !game.setupMode;
    SetMenuEntryEnabled(menu, IDM_POSITION_SAVE, playing);
    SetMenuEntryEnabled(menu, IDM_GAME_SAVE, playing && game.setupStart == 0 && game.gameDirty == 1);
}

// Runs the command in the low word of wParam and refreshes the menu; false for an id that is
// not the program's, which the caller hands to DefWindowProcA.
bool OnCommand(WPARAM wParam) {
    switch (LOWORD(wParam)) {
    case IDM_ABOUT: ShowAboutDialog(); break;
    case IDM_EXIT: SendMessageA(shellState.mainWindow, WM_CLOSE, 0, 0); break;
    case IDM_GAME_SAVE: game.SaveGame(); break;
    case IDM_GAME_NEW: StartNewGame(); break;
    case IDM_GAME_LOAD: LoadFromFolder(LoadGames); break;
    case IDM_POSITION_LOAD: LoadFromFolder(LoadPositions); break;
    case IDM_OPTIONS: ShowOptionsDialog(); break;
    case IDM_POSITION_SAVE: game.SavePosition(); break;
    case IDM_POSITION_SET: OnPositionSet(); break;
    case IDM_USER_MANUAL: OpenUserManual(); break;
    case IDM_WEB_SITE: OpenWithShell("drenu-4.url"); break;
    case IDC_MOVES_LIST:
        // In set-up the list is the palette; otherwise it is the way through the game.
        if (!game.setupMode)
            OnMovesListNotify(HIWORD(wParam));
        else if (HIWORD(wParam) == LBN_SELCHANGE)
            OnSetupListSelection();
        break;
    default: return false;
    }
    UpdateMenuState();
    return true;
}
