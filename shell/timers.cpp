// The two timers of the main window: the 20 ms tick that ends refusal marks and starts the
// computer's moves, and the 1 s clock of the human side to move.
#include "core/game_state.h"
#include "records/settings.h"
#include "shell/board_geometry.h"
#include "shell/main_window.h"
#include "shell/shell_state.h"

namespace {

// A refused square shows for this many ticks, about 300 ms.
constexpr Word RefusalTicks = 15;

// Ages every refusal mark and ends those that have shown long enough.
void AgeRefusalMarks() {
    for (auto& row : game.board)
        for (BoardCell& cell : row) {
            if (cell.mark != MarkRefused) continue;
            if (++cell.markAge < RefusalTicks) continue;
            cell.mark = MarkNone;
            cell.markAge = 0;
            InvalidateRect(shellState.mainWindow, nullptr, TRUE);
        }
}

} // namespace

RECT ClockRect(int colour) {
    const ListRect list{shellState.listLeft, shellState.listTop, shellState.listWidth, shellState.listHeight};
    const int top = ClockTop(colour, displaySettings.whiteOnTop, list);
    return RECT{list.left, top, list.left + list.width, top + ClockHeight};
}

// The only place where a computer move begins.
void OnTickTimer() {
    AgeRefusalMarks();
    if (game.thinkPending && !game.thinking) {
        game.ThinkDriver();
        UpdateMenuState();
    }
}

// Counts a second for the human side to move in a game in play.
void OnClockTimer() {
    if (game.setupMode || game.setupStart || !game.gameActive) return;
    if (game.sides[game.sideToMove].kind == SideComputer) return;
    ++game.sides[game.sideToMove].clockSeconds;
    const RECT clock = ClockRect(game.sideToMove);
    InvalidateRect(shellState.mainWindow, &clock, TRUE);
}
