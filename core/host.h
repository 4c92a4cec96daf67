// What the game, the engine and the records ask of the window system, as plain functions.
// The Windows shell implements them; the unit tests link a recording double instead.
#pragma once

#include <cstdint>

class Text;

// The moves list control, as the core sees it: an opaque handle that may be null before the
// control exists. Operations on a null handle are never called.
using ListHandle = void*;

// The moves list of the main window, set by the shell when it creates the control; the engine
// and the records refill it after a move or a load.
extern ListHandle movesListWindow;

enum AskDefault : std::int32_t { DefaultYes = 0, DefaultNo = 1 };

// Talking to the user: an information box, a Yes/No question (1 for Yes) and the promotion choice
// for a pawn of `colour` (the piece code 2 to 5).
void HostShowMessage(const char* text);
std::int32_t HostAskYesNo(const char* text, AskDefault defaultButton);
std::int32_t HostChoosePromotion(std::int32_t colour);

// The moves list control.
void HostListReset(ListHandle list);
void HostListAdd(ListHandle list, const char* row);
void HostListSelect(ListHandle list, std::int32_t row);
std::int32_t HostListCount(ListHandle list);
std::int32_t HostListSelection(ListHandle list);

// Time: milliseconds since an arbitrary start, unsigned and wrapping.
std::uint32_t HostTickCount();

// Repaints: the whole window (with or without erasing the background), the clock of one colour,
// and an immediate update of whatever is invalid.
void HostRepaintWindow(bool erase);
void HostRepaintClock(std::int32_t colour);
void HostUpdateNow();

// During a think: let timers and paints through, show the title with a suffix (empty for the
// plain title), whether Esc is held down right now, the busy cursor, the beep after a move,
// dropping commands that arrived meanwhile, and flashing the window when it is not active.
void HostPumpDuringThink();
void HostShowTitle(const char* suffix);
bool HostEscapeHeld();
void HostSetBusy(bool busy);
void HostBeep();
void HostDropQueuedCommands();
void HostFlashIfInactive();

// Saving: the local date and time, the user's short date, the save-name dialog (true when a name
// was accepted into `name`), and writing a file under the folder Save (true when every byte was
// written).
struct LocalTime {
    std::int32_t year, month, day, hour, minute;
};
LocalTime HostLocalTime();
void HostShortDate(char* out, std::int32_t capacity);
bool HostAskSaveName(Text& name, const char* title);
bool HostWriteSaveFile(const char* fileName, const char* data, std::int32_t length);
