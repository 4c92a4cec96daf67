// What the main window does when it is created and destroyed: settings, font, moves list, skin,
// mouse buttons, timers and the start position, and their release in reverse at the end.
#include <cstdlib>

#include "core/game_state.h"
#include "records/settings.h"
#include "resource.h"
#include "shell/main_window.h"
#include "shell/shell_parts.h"
#include "shell/shell_state.h"

namespace {

// The font of the panel and the moves list; without PALA.TTF the system substitutes a face.
HFONT CreatePanelFont() {
    return CreateFontA(24, 0, 0, 0, FW_DONTCARE, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                       CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY, DEFAULT_PITCH | FF_DONTCARE,
                       "Palatino Linotype");
}

// Creates the owner-drawn moves list and publishes its handle to the game.
void CreateMovesList(HWND window) {
    shellState.movesListWindow = CreateWindowExA(
        0, "LISTBOX", "List box",
        WS_CHILD | WS_VISIBLE | LBS_NOTIFY | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT, 552,
        148, 128, 256, window, reinterpret_cast<HMENU>(IDC_MOVES_LIST), shellState.instance, nullptr);
    movesListWindow = shellState.movesListWindow;
    SendMessageA(shellState.movesListWindow, WM_SETFONT, reinterpret_cast<WPARAM>(shellState.panelFont),
                 FALSE);
}

// Plays with the right button when the user has swapped the buttons. Asking the system means
// setting the swap, so the former setting is put back at once.
UINT PlayButtonMessage() {
    if (!SwapMouseButton(FALSE)) return WM_LBUTTONUP;
    SwapMouseButton(TRUE);
    return WM_RBUTTONUP;
}

} // namespace

// Sets up everything the window needs; the list exists before the settings are read, since
// they show or hide it, and the layout needs the scale from the settings.
void OnMainWindowCreate(HWND window) {
    shellState.mainWindow = window;
    MakeUserTag();
    std::srand(GetTickCount());
    AddFontResourceA("PALA.TTF");
    shellState.panelFont = CreatePanelFont();
    CreateMovesList(window);
    ReadSettings(SettingsPath().Chars());
    CreateSkinImages();
    shellState.playButtonMessage = PlayButtonMessage();
    SetTimer(window, TickTimer, 20, nullptr);
    SetTimer(window, ClockTimer, 1000, nullptr);
    game.ResetGameState(ResetStartPosition);
    LayoutMainWindow();
    UpdateMenuState();
}

// Releases the window's GDI objects, stores the settings and ends the message loop.
void OnMainWindowDestroy() {
    DeleteObject(shellState.backgroundBrush);
    shellState.backgroundBrush = nullptr;
    DeleteObject(shellState.panelFont);
    shellState.panelFont = nullptr;
    DeleteSkinImages();
    WriteSettings();
    PostQuitMessage(0);
}
