// Starting, driving and watching the program from another process: posted input, sends with a
// time limit, dialogs found by class and title, list rows read as UTF-16 as Wine gives them.
#include "program.h"

#include "report.h"

#include <algorithm>
#include <cstdlib>

namespace e2e {

namespace {

constexpr int SendLimit = 5000;
constexpr const char* DialogClass = "#32770";
constexpr const char* WindowClass = "VELOK3";
constexpr const char* MenuClass = "#32768";

struct WindowSearch {
    DWORD processId;
    const char* className;
    std::vector<HWND> found;
};

// Collects the visible top-level windows of one process with one class name.
BOOL CALLBACK CollectWindow(HWND window, LPARAM parameter) {
    auto* search = reinterpret_cast<WindowSearch*>(parameter);
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    char name[64] = "";
    GetClassNameA(window, name, sizeof name);
    if (owner == search->processId && IsWindowVisible(window) && lstrcmpA(name, search->className) == 0)
        search->found.push_back(window);
    return TRUE;
}

std::vector<HWND> WindowsOf(DWORD processId, const char* className) {
    WindowSearch search{processId, className, {}};
    EnumWindows(CollectWindow, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

// Sends with a time limit and stops the scenario when the program does not answer: a hung
// program must fail the run, not hold it. A window that has gone meanwhile gives 0.
enum SendForm : bool { AnsiSend = false, WideSend = true };

LRESULT SendOrAbort(HWND target, UINT message, WPARAM wParam, LPARAM lParam, SendForm form = AnsiSend) {
    DWORD_PTR result = 0;
    LRESULT sent =
        form == WideSend
            ? SendMessageTimeoutW(target, message, wParam, lParam, SMTO_NORMAL, SendLimit, &result)
            : SendMessageTimeoutA(target, message, wParam, lParam, SMTO_NORMAL, SendLimit, &result);
    if (!sent && IsWindow(target))
        Abort("program answers a message", "no answer to message " + std::to_string(message));
    return static_cast<LRESULT>(result);
}

// The rows are plain ASCII; anything else shows as '?' in a message.
std::string Narrow(const std::wstring& wide) {
    std::string text;
    for (wchar_t c : wide)
        text += c < 128 ? static_cast<char>(c) : '?';
    return text;
}

// The largest channel difference of two colours.
int ColourDistance(COLORREF a, COLORREF b) {
    return std::max({std::abs(GetRValue(a) - GetRValue(b)), std::abs(GetGValue(a) - GetGValue(b)),
                     std::abs(GetBValue(a) - GetBValue(b))});
}

// True when a row band of the picture holds a pixel near `colour`.
bool BandHolds(const Image& image, int top, int bottom, COLORREF colour, int tolerance) {
    for (int y = top; y < bottom; ++y)
        for (int x = 0; x < image.width; ++x)
            if (ColourDistance(image.Pixel(x, y), colour) <= tolerance) return true;
    return false;
}

// Finds the text rows of an open menu, top to bottom, and says which are greyed. A row is a band
// at least 5 pixels high that differs from the menu's colour (separators are thinner); it is
// enabled when it holds the menu text colour, or, highlighted, the highlighted text colour.
std::vector<bool> GreyedMenuRows(const Image& popup) {
    const COLORREF background = GetSysColor(COLOR_MENU);
    const int margin = 3, bottom = popup.height - margin;
    auto rowHasInk = [&](int y) {
        for (int x = margin; x < popup.width - margin; ++x)
            if (ColourDistance(popup.Pixel(x, y), background) > 40) return true;
        return false;
    };
    std::vector<bool> greyed;
    int top = -1;
    for (int y = margin; y <= bottom; ++y) {
        if (y < bottom && rowHasInk(y)) {
            if (top < 0) top = y;
            continue;
        }
        if (top >= 0 && y - top >= 5) {
            bool highlighted = BandHolds(popup, top, y, GetSysColor(COLOR_HIGHLIGHT), 8);
            COLORREF text = GetSysColor(highlighted ? COLOR_HIGHLIGHTTEXT : COLOR_MENUTEXT);
            greyed.push_back(!BandHolds(popup, top, y, text, 60));
        }
        top = -1;
    }
    return greyed;
}

} // namespace

std::string WindowText(HWND target) {
    if (!target) return "";
    LRESULT length = SendOrAbort(target, WM_GETTEXTLENGTH, 0, 0);
    std::string text(static_cast<size_t>(length) + 1, '\0');
    LRESULT copied = SendOrAbort(target, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(copied < 0 ? 0 : static_cast<size_t>(copied));
    return text;
}

std::string MessageBoxText(HWND box) {
    std::string plain;
    for (char c : WindowText(GetDlgItem(box, MessageTextId)))
        if (c != '\r') plain += c;
    return plain;
}

void Program::Start(const char* name) {
    label = name;
    job = CreateJobObjectA(nullptr, nullptr);
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION info{};
    char commandLine[] = "velok3.exe";
    if (!CreateProcessA(".\\velok3.exe", commandLine, nullptr, nullptr, FALSE, CREATE_SUSPENDED, nullptr,
                        nullptr, &startup, &info))
        Abort("start " + label, "CreateProcess failed with error " + std::to_string(GetLastError()));
    AssignProcessToJobObject(job, info.hProcess);
    ResumeThread(info.hThread);
    CloseHandle(info.hThread);
    process = info.hProcess;
    processId = info.dwProcessId;
    WaitForInputIdle(process, 10000);
    auto found = [this] {
        auto windows = WindowsOf(processId, WindowClass);
        window = windows.empty() ? nullptr : windows.front();
        return window != nullptr;
    };
    if (!WaitUntil(found, 10000)) Abort("start " + label, "no visible window of class VELOK3");
    list = GetDlgItem(window, MovesListId);
}

DWORD Program::StartSecondCopy() {
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION info{};
    char commandLine[] = "velok3.exe";
    if (!CreateProcessA(".\\velok3.exe", commandLine, nullptr, nullptr, FALSE, CREATE_SUSPENDED, nullptr,
                        nullptr, &startup, &info))
        Abort("start a second copy", "CreateProcess failed");
    AssignProcessToJobObject(job, info.hProcess);
    ResumeThread(info.hThread);
    CloseHandle(info.hThread);
    DWORD code = 259;
    if (WaitForSingleObject(info.hProcess, 10000) != WAIT_OBJECT_0)
        Abort("second copy ends by itself", "still running after 10 s");
    GetExitCodeProcess(info.hProcess, &code);
    CloseHandle(info.hProcess);
    return code;
}

std::vector<HWND> Program::Dialogs() const {
    return WindowsOf(processId, DialogClass);
}

bool Program::Expected(HWND dialog) {
    std::erase_if(expectedDialogs, [](HWND known) { return !IsWindow(known) || !IsWindowVisible(known); });
    return std::find(expectedDialogs.begin(), expectedDialogs.end(), dialog) != expectedDialogs.end();
}

void Program::AbortOnDialog(HWND dialog) const {
    std::string title = TextOf(dialog);
    std::string text = MessageBoxText(dialog);
    Abort("no unexpected dialog", "dialog \"" + title + "\" says \"" + text + "\"");
}

bool Program::WaitUntil(const std::function<bool()>& done, int limit, const char* allowedDialog) {
    const DWORD started = GetTickCount();
    for (;;) {
        if (done()) return true;
        if (WaitForSingleObject(process, 0) == WAIT_OBJECT_0) {
            // The end may have come just after the test, and be what the test waits for.
            if (done()) return true;
            DWORD code = 0;
            GetExitCodeProcess(process, &code);
            Abort(label + " keeps running", "it ended with exit code " + std::to_string(code));
        }
        for (HWND dialog : Dialogs()) {
            if (Expected(dialog)) continue;
            std::string title = TextOf(dialog);
            bool closing = !IsWindow(dialog) || !IsWindowVisible(dialog);
            if (!closing && !(allowedDialog && title == allowedDialog)) AbortOnDialog(dialog);
        }
        if (GetTickCount() - started >= static_cast<DWORD>(limit)) return false;
        Sleep(10);
    }
}

void Program::Click(int x, int y, UINT message) {
    PostMessageA(window, message, 0, MAKELPARAM(x, y));
}

void Program::Command(int id) {
    PostMessageA(window, WM_COMMAND, MAKEWPARAM(id, 0), 0);
}

HWND Program::FindDialog(const char* title) const {
    for (HWND dialog : Dialogs())
        if (TextOf(dialog) == title) return dialog;
    return nullptr;
}

HWND Program::WaitForDialog(const char* title, int limit) {
    HWND dialog = nullptr;
    if (!WaitUntil([&] { return (dialog = FindDialog(title)) != nullptr; }, limit, title))
        Abort(std::string("dialog \"") + title + "\" opens",
              "not there after " + std::to_string(limit) + " ms");
    expectedDialogs.push_back(dialog);
    return dialog;
}

void Program::ExpectMessage(const std::string& text, int button, int limit) {
    HWND box = WaitForDialog("Velok-3", limit);
    std::string shown = MessageBoxText(box);
    Check(shown == text, "message \"" + text + "\"", "the box says \"" + shown + "\"");
    PressButton(box, button, ClosesDialog);
}

void Program::PressButton(HWND dialog, int id, ButtonEffect effect) {
    std::string title = TextOf(dialog);
    PostMessageA(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, id)));
    if (effect == ClosesDialog &&
        !WaitUntil([dialog] { return !IsWindow(dialog) || !IsWindowVisible(dialog); }, ShortWait,
                   title.c_str()))
        Abort("dialog closes on button " + std::to_string(id), "still open");
}

void Program::SetText(HWND dialog, int id, const char* text) {
    SendOrAbort(GetDlgItem(dialog, id), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
}

std::string Program::TextOf(HWND target) const {
    return WindowText(target);
}

bool Program::DialogShows(HWND dialog, const std::string& text) const {
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (TextOf(child) == text) return true;
    return false;
}

void Program::ChooseRow(HWND dialog, int id, int row) {
    HWND combo = GetDlgItem(dialog, id);
    SendOrAbort(combo, CB_SETCURSEL, row, 0);
    SendOrAbort(dialog, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), reinterpret_cast<LPARAM>(combo));
}

std::vector<std::string> Program::Rows() const {
    std::vector<std::string> rows;
    LRESULT count = SendOrAbort(list, LB_GETCOUNT, 0, 0, WideSend);
    for (LRESULT row = 0; row < count; ++row) {
        LRESULT length = SendOrAbort(list, LB_GETTEXTLEN, row, 0, WideSend);
        if (length < 0) break;
        std::wstring text(static_cast<size_t>(length) + 1, L'\0');
        LRESULT copied = SendOrAbort(list, LB_GETTEXT, row, reinterpret_cast<LPARAM>(text.data()), WideSend);
        text.resize(copied < 0 ? 0 : static_cast<size_t>(copied));
        rows.push_back(Narrow(text));
    }
    return rows;
}

bool Program::WaitForRows(int count, int limit) {
    // A thinking program answers sends only between root moves, so a slow answer is "not yet".
    auto reached = [&] {
        DWORD_PTR rows = 0;
        return SendMessageTimeoutW(list, LB_GETCOUNT, 0, 0, SMTO_NORMAL, 200, &rows) &&
               static_cast<int>(rows) >= count;
    };
    return WaitUntil(reached, limit);
}

std::vector<bool> Program::MenuEntriesGreyed(char mnemonic, int entries) {
    // Wine keeps a menu's state inside its own process, so GetMenuState from here fails; the
    // driver opens the menu as Alt and the letter would and reads the state off the screen.
    PostMessageA(window, WM_SYSCOMMAND, SC_KEYMENU, mnemonic);
    std::vector<bool> greyed;
    auto read = [&] {
        auto popups = WindowsOf(processId, MenuClass);
        if (popups.empty()) return false;
        RECT frame{};
        GetWindowRect(popups.front(), &frame);
        greyed = GreyedMenuRows(
            CaptureScreen(frame.left, frame.top, frame.right - frame.left, frame.bottom - frame.top));
        return static_cast<int>(greyed.size()) == entries;
    };
    bool seen = WaitUntil(read, ShortWait);
    auto closed = [this] { return WindowsOf(processId, MenuClass).empty(); };
    PostMessageA(window, WM_KEYDOWN, VK_ESCAPE, 0);
    if (!WaitUntil(closed, ShortWait)) Abort("menu closes on Esc", "the menu stays open");
    // The first Esc leaves the menu bar selected, as after Alt; the second ends that mode too.
    PostMessageA(window, WM_KEYDOWN, VK_ESCAPE, 0);
    if (!seen) greyed.clear();
    return greyed;
}

SIZE Program::ClientSize() const {
    RECT client{};
    GetClientRect(window, &client);
    return {client.right, client.bottom};
}

Image Program::CaptureClient() const {
    POINT origin{0, 0};
    ClientToScreen(window, &origin);
    SIZE size = ClientSize();
    return CaptureScreen(origin.x, origin.y, size.cx, size.cy);
}

DWORD Program::Close(SaveQuestion question) {
    PostMessageA(window, WM_CLOSE, 0, 0);
    if (question == AsksToSave) ExpectMessage("Save current game?", IDNO);
    return WaitForExit(ShortWait * 2);
}

DWORD Program::WaitForExit(int limit) {
    if (!WaitUntil([this] { return WaitForSingleObject(process, 0) == WAIT_OBJECT_0; }, limit))
        Abort(label + " ends", "still running after " + std::to_string(limit) + " ms");
    DWORD code = 0;
    GetExitCodeProcess(process, &code);
    return code;
}

} // namespace e2e
