// The size of the main window and the place of the moves list for the present board scale.
#include "records/settings.h"
#include "shell/board_geometry.h"
#include "shell/main_window.h"
#include "shell/shell_state.h"

namespace {

// The window's outer size for a client area of the board and the panel.
SIZE OuterSize() {
    const int boardPixels = 8 * TileSizeForScale(displaySettings.boardScale);
    RECT outer{0, 0, boardPixels + 188, boardPixels + 40};
    AdjustWindowRect(&outer, WS_CAPTION, TRUE);
    return SIZE{outer.right - outer.left, outer.bottom - outer.top};
}

} // namespace

// Places the list and sizes the window: centred on the screen before it is first shown,
// afterwards keeping its upper left corner.
void LayoutMainWindow() {
    const ListRect list = ListRectForScale(displaySettings.boardScale);
    shellState.listLeft = list.left;
    shellState.listTop = list.top;
    shellState.listWidth = list.width;
    shellState.listHeight = list.height;
    MoveWindow(shellState.movesListWindow, shellState.listLeft, shellState.listTop, shellState.listWidth,
               shellState.listHeight, TRUE);

    const SIZE outer = OuterSize();
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    GetWindowPlacement(shellState.mainWindow, &placement);
    RECT& normal = placement.rcNormalPosition;
    if (!IsWindowVisible(shellState.mainWindow)) {
        normal.left = GetSystemMetrics(SM_CXSCREEN) / 2 - outer.cx / 2;
        normal.top = GetSystemMetrics(SM_CYSCREEN) / 2 - outer.cy / 2;
    }
    if (normal.left < 0) normal.left = 0;
    if (normal.top < 0) normal.top = 0;
    normal.right = normal.left + outer.cx;
    normal.bottom = normal.top + outer.cy;
    SetWindowPlacement(shellState.mainWindow, &placement);
}
