// The main window procedure: one case per message, each handed to a small named handler.
#include "shell/main_window.h"

#include "core/game_state.h"
#include "records/settings.h"
#include "shell/shell_state.h"

namespace {

// While the computer thinks the pointer shows it; otherwise the plain arrow.
LRESULT OnSetCursor() {
    SetCursor(LoadCursorA(nullptr, game.thinking ? IDC_WAIT : IDC_ARROW));
    return 1;
}

// The moves list takes the window's colours.
LRESULT OnCtlColorListBox(HDC dc) {
    SetBkColor(dc, displaySettings.backgroundColor);
    SetTextColor(dc, displaySettings.inkColor);
    return reinterpret_cast<LRESULT>(shellState.backgroundBrush);
}

// Closing offers to save unsaved work first; the question has no Cancel, so the close goes on.
void OnClose(HWND window) {
    game.OfferToSave();
    DefWindowProcA(window, WM_CLOSE, 0, 0);
}

// New system colours may change the frame, so the window is sized and painted anew.
void OnSysColorChange(HWND window) {
    LayoutMainWindow();
    InvalidateRect(window, nullptr, TRUE);
}

// Hands each timer to its handler; other timer ids do nothing.
void OnTimer(WPARAM timerId) {
    if (timerId == TickTimer) OnTickTimer();
    if (timerId == ClockTimer) OnClockTimer();
}

} // namespace

// The procedure of the main window; it keeps the window handle current for the rest of the shell.
LRESULT CALLBACK MainWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    shellState.mainWindow = window;
    switch (message) {
    case WM_CREATE: OnMainWindowCreate(window); return 0;
    case WM_DESTROY: OnMainWindowDestroy(); return 0;
    case WM_PAINT: PaintMainWindow(window); return 0;
    case WM_CLOSE: OnClose(window); return 0;
    case WM_SYSCOLORCHANGE: OnSysColorChange(window); return 0;
    case WM_SETCURSOR: return OnSetCursor();
    case WM_MEASUREITEM: reinterpret_cast<MEASUREITEMSTRUCT*>(lParam)->itemHeight = 25; return 0;
    case WM_DRAWITEM: DrawMovesListRow(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)); return 0;
    case WM_CTLCOLORLISTBOX: return OnCtlColorListBox(reinterpret_cast<HDC>(wParam));
    // The cursor keys step through the list even while the main window has the focus.
    case WM_KEYDOWN: SendMessageA(shellState.movesListWindow, message, wParam, lParam); return 0;
    case WM_TIMER: OnTimer(wParam); return 0;
    case WM_COMMAND:
        if (OnCommand(wParam)) return 0;
        break;
    case WM_LBUTTONUP:
    case WM_RBUTTONUP: OnBoardClick(message, lParam); return 0;
    default: break;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}
