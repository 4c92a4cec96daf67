// The host seam on Windows: what the game, the engine and the records ask of the window system,
// done with the main window, its moves list and the program's dialogs.
#include <windows.h>

#include "core/host.h"
#include "records/text.h"
#include "resource.h"
#include "shell/main_window.h"
#include "shell/shell_parts.h"
#include "shell/shell_state.h"

namespace {

HWND ListWindow(ListHandle list) {
    return static_cast<HWND>(list);
}

// Dispatches waiting messages of one kind for the main window, sharing `count` with the other
// kinds; a kind is cut off once the count stands above 100, after at least one message.
void PumpMessagesOfKind(UINT kind, int& count) {
    MSG message;
    while (PeekMessageA(&message, shellState.mainWindow, kind, kind, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
        if (++count > 100) return;
    }
}

} // namespace

void HostShowMessage(const char* text) {
    MessageBoxA(shellState.mainWindow, text, shellState.windowTitle, MB_OK | MB_ICONINFORMATION);
}

std::int32_t HostAskYesNo(const char* text, AskDefault defaultButton) {
    const UINT style =
        MB_YESNO | MB_ICONQUESTION | (defaultButton == DefaultNo ? MB_DEFBUTTON2 : MB_DEFBUTTON1);
    return MessageBoxA(shellState.mainWindow, text, shellState.windowTitle, style) == IDYES ? 1 : 0;
}

std::int32_t HostChoosePromotion(std::int32_t colour) {
    const INT_PTR piece = ShowPromotionDialog(colour);
    return piece >= 2 && piece <= 5 ? static_cast<std::int32_t>(piece) : 5;
}

void HostListReset(ListHandle list) {
    SendMessageA(ListWindow(list), LB_RESETCONTENT, 0, 0);
}

void HostListAdd(ListHandle list, const char* row) {
    SendMessageA(ListWindow(list), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row));
}

void HostListSelect(ListHandle list, std::int32_t row) {
    SendMessageA(ListWindow(list), LB_SETCURSEL, row, 0);
}

std::int32_t HostListCount(ListHandle list) {
    return static_cast<std::int32_t>(SendMessageA(ListWindow(list), LB_GETCOUNT, 0, 0));
}

std::int32_t HostListSelection(ListHandle list) {
    return static_cast<std::int32_t>(SendMessageA(ListWindow(list), LB_GETCURSEL, 0, 0));
}

std::uint32_t HostTickCount() {
    return GetTickCount();
}

void HostRepaintWindow(bool erase) {
    InvalidateRect(shellState.mainWindow, nullptr, erase ? TRUE : FALSE);
}

void HostRepaintClock(std::int32_t colour) {
    const RECT clock = ClockRect(colour);
    InvalidateRect(shellState.mainWindow, &clock, FALSE);
}

void HostUpdateNow() {
    UpdateWindow(shellState.mainWindow);
}

// Lets timers and paints through while the engine thinks; input waits for the end of the think.
void HostPumpDuringThink() {
    int count = 0;
    PumpMessagesOfKind(WM_TIMER, count);
    PumpMessagesOfKind(WM_PAINT, count);
    PumpMessagesOfKind(WM_NCPAINT, count);
}

void HostShowTitle(const char* suffix) {
    Text title(shellState.windowTitle);
    title.Append(suffix);
    SetWindowTextA(shellState.mainWindow, title.Chars());
}

bool HostEscapeHeld() {
    return (GetAsyncKeyState(VK_ESCAPE) & 0x8000) != 0;
}

void HostSetBusy(bool busy) {
    SetCursor(LoadCursorA(nullptr, busy ? IDC_WAIT : IDC_ARROW));
}

void HostBeep() {
    MessageBeep(0);
}

// Commands given during the think are dropped, not run on the position the move has made.
void HostDropQueuedCommands() {
    MSG message;
    for (int k = 0; k < 51; ++k)
        if (!PeekMessageA(&message, shellState.mainWindow, WM_COMMAND, WM_COMMAND, PM_REMOVE)) return;
}

void HostFlashIfInactive() {
    if (GetActiveWindow() != shellState.mainWindow) FlashWindow(shellState.mainWindow, TRUE);
}

LocalTime HostLocalTime() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    return LocalTime{now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute};
}

void HostShortDate(char* out, std::int32_t capacity) {
    char date[127] = "";
    GetDateFormatA(LOCALE_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, date, sizeof date);
    lstrcpynA(out, date, capacity);
}

bool HostAskSaveName(Text& name, const char* title) {
    return ShowSaveNameDialog(name, title);
}

bool HostWriteSaveFile(const char* fileName, const char* data, std::int32_t length) {
    CreateDirectoryA("Save", nullptr);
    Text path("Save\\");
    path.Append(fileName);
    const HANDLE file =
        CreateFileA(path.Chars(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    DWORD written = 0;
    const BOOL ok = WriteFile(file, data, static_cast<DWORD>(length), &written, nullptr);
    CloseHandle(file);
    return ok && written == static_cast<DWORD>(length);
}
