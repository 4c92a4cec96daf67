// One row of the owner-drawn moves list, in the window's colours or, when selected, in colours
// derived from them.
#include "records/settings.h"
#include "shell/main_window.h"
#include "shell/selection_colours.h"

// Draws one row of the moves list, with the selection colours when it is selected.
void DrawMovesListRow(const DRAWITEMSTRUCT& drawItem) {
    if (drawItem.itemID == static_cast<UINT>(-1)) return;
    char text[256] = "";
    const LRESULT length = SendMessageA(drawItem.hwndItem, LB_GETTEXTLEN, drawItem.itemID, 0);
    if (length < 0 || length >= static_cast<LRESULT>(sizeof text)) return;
    SendMessageA(drawItem.hwndItem, LB_GETTEXT, drawItem.itemID, reinterpret_cast<LPARAM>(text));
    RowColours colours{displaySettings.backgroundColor, displaySettings.inkColor};
    if (drawItem.itemState & ODS_SELECTED)
        colours = SelectionColours(displaySettings.backgroundColor, displaySettings.inkColor);
    SetTextColor(drawItem.hDC, colours.ink);
    SetBkColor(drawItem.hDC, colours.background);
    const RECT& area = drawItem.rcItem;
    ExtTextOutA(drawItem.hDC, area.left, area.top, ETO_OPAQUE | ETO_CLIPPED, &area, text,
                static_cast<UINT>(length), nullptr);
}
