// The program under test driven from another process: started in a job that dies with the driver, posted
// input, sends with a time limit, dialogs found by class and title, rows read as UTF-16.
#include <algorithm>
#include <cstdio>
#include <fstream>

#include "e2e.h"

namespace e2e {

std::string shotFolder;
int failedChecks = 0;

bool Check(bool ok, const std::string& what, const std::string& detail) {
    std::printf("%s %s%s\n", ok ? "PASS" : "FAIL", what.c_str(),
                ok || detail.empty() ? "" : (": " + detail).c_str());
    std::fflush(stdout);
    if (!ok)
        SaveBmp(CaptureScreen({0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)}),
                shotFolder + "\\" + std::to_string(++failedChecks) + " failed.bmp");
    return ok;
}

void Abort(const std::string& what, const std::string& detail) {
    Check(false, what, detail);
    std::exit(1);
}

LRESULT Send(HWND target, UINT message, WPARAM wParam, LPARAM lParam, bool wide) {
    constexpr int SendLimit = 5000;
    DWORD_PTR result = 0;
    if (!(wide ? SendMessageTimeoutW : SendMessageTimeoutA)(target, message, wParam, lParam, SMTO_NORMAL,
                                                            SendLimit, &result) &&
        IsWindow(target))
        Abort("the program answers", "no answer to message " + std::to_string(message));
    return static_cast<LRESULT>(result);
}

namespace {

std::vector<HWND> WindowsOf(HANDLE process, const char* className) {
    std::vector<HWND> found;
    for (HWND at = nullptr; (at = FindWindowExA(nullptr, at, className, nullptr)) != nullptr;) {
        DWORD owner = 0;
        GetWindowThreadProcessId(at, &owner);
        if (owner == GetProcessId(process) && IsWindowVisible(at)) found.push_back(at);
    }
    return found;
}

DWORD ExitCode(HANDLE process) {
    DWORD code = 0;
    GetExitCodeProcess(process, &code);
    return code;
}

std::string TextOf(HWND window) {
    std::string text(static_cast<size_t>(Send(window, WM_GETTEXTLENGTH, 0, 0)) + 1, '\0');
    text.resize(
        static_cast<size_t>(Send(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
    std::erase(text, '\r');
    return text;
}

HANDLE Launch(HANDLE job) {
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION info{};
    if (!CreateProcessA(".\\velok3.exe", nullptr, nullptr, nullptr, FALSE, CREATE_SUSPENDED, nullptr, nullptr,
                        &startup, &info))
        Abort("velok3.exe starts", "error " + std::to_string(GetLastError()));
    AssignProcessToJobObject(job, info.hProcess);
    ResumeThread(info.hThread);
    CloseHandle(info.hThread);
    return info.hProcess;
}

} // namespace

Program::Program() {
    job = CreateJobObjectA(nullptr, nullptr);
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    process = Launch(job);
    if (!WaitUntil([this] { return !WindowsOf(process, "VELOK3").empty(); }, 10000))
        Abort("velok3.exe shows its window");
    window = WindowsOf(process, "VELOK3").front();
    list = GetDlgItem(window, IDC_MOVES_LIST);
}

DWORD Program::StartSecondCopy() {
    HANDLE second = Launch(job);
    if (WaitForSingleObject(second, 10000) != WAIT_OBJECT_0) Abort("a second copy ends by itself");
    return ExitCode(second);
}

bool Program::WaitUntil(const std::function<bool()>& done, int limit, const char* allowed) {
    for (const DWORD started = GetTickCount(); !done(); Sleep(10)) {
        if (WaitForSingleObject(process, 0) == WAIT_OBJECT_0 && !done())
            Abort("velok3.exe keeps running", "it ended with exit code " + std::to_string(ExitCode(process)));
        std::erase_if(expected, [](HWND dialog) { return !IsWindowVisible(dialog); });
        for (HWND dialog : WindowsOf(process, "#32770"))
            if (std::find(expected.begin(), expected.end(), dialog) == expected.end() &&
                (!allowed || TextOf(dialog) != allowed))
                Abort("no unexpected dialog", TextOf(dialog) + ": " + TextOf(GetDlgItem(dialog, 0xFFFF)));
        if (GetTickCount() - started >= static_cast<DWORD>(limit)) return false;
    }
    return true;
}

bool Program::WaitForScreen(const std::function<bool(const Image&)>& shows, Image* last) {
    Image shot;
    return WaitUntil([&] { return shows(*(last ? last : &shot) = Client()); });
}

bool Program::ExpectBoard(const Board& board, const std::string& placement, const std::string& what,
                          const std::string& lastMove, const std::string& marked) {
    Image shot;
    const bool seen = WaitForScreen(
        [&](const Image& now) { return board.Differing(now, placement, lastMove) == marked; }, &shot);
    return Check(seen, what, "squares differing: " + board.Differing(shot, placement, lastMove));
}

HWND Program::WaitForDialog(const char* title, int command) {
    if (command) Command(command);
    HWND dialog = nullptr;
    auto found = [&] {
        for (HWND open : WindowsOf(process, "#32770"))
            if (TextOf(open) == title) dialog = open;
        return dialog != nullptr;
    };
    if (!WaitUntil(found, ShortWait, title)) Abort(std::string("dialog \"") + title + "\" opens");
    expected.push_back(dialog);
    return dialog;
}

void Program::Press(HWND dialog, int id, bool closes) {
    const std::string title = TextOf(dialog);
    PostMessageA(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, id)));
    if (closes && !WaitUntil([dialog] { return !IsWindowVisible(dialog); }, ShortWait, title.c_str()))
        Abort("dialog \"" + title + "\" closes on button " + std::to_string(id));
}

void Program::Answer(const std::string& text, int button) {
    HWND box = WaitForDialog("Velok-3");
    Check(TextOf(GetDlgItem(box, 0xFFFF)) == text, "message \"" + text + "\"",
          TextOf(GetDlgItem(box, 0xFFFF)));
    Press(box, button);
}

void Program::ChooseRow(HWND dialog, int id, int row) {
    HWND control = GetDlgItem(dialog, id);
    char kind[16] = "";
    GetClassNameA(control, kind, sizeof kind);
    const bool combo = lstrcmpiA(kind, "ComboBox") == 0;
    Send(control, combo ? CB_SETCURSEL : LB_SETCURSEL, row, 0);
    Send(dialog, WM_COMMAND, MAKEWPARAM(id, combo ? CBN_SELCHANGE : LBN_SELCHANGE),
         reinterpret_cast<LPARAM>(control));
}

std::vector<std::string> Program::Rows(HWND listBox) {
    // Wine 8 answers LB_GETTEXT in UTF-16 even to the A form. A list refilled meanwhile is shorter.
    listBox = listBox ? listBox : list;
    std::vector<std::string> rows;
    for (LRESULT row = 0, count = Send(listBox, LB_GETCOUNT, 0, 0, true); row < count; ++row) {
        const LRESULT length = Send(listBox, LB_GETTEXTLEN, row, 0, true);
        std::wstring text(static_cast<size_t>(std::max<LRESULT>(length, 0)) + 1, L'\0');
        const LRESULT copied = Send(listBox, LB_GETTEXT, row, reinterpret_cast<LPARAM>(text.data()), true);
        if (copied < 0) break;
        rows.emplace_back(text.begin(), text.begin() + std::min(copied, length));
    }
    return rows;
}

bool Program::WaitForRows(int count, int limit) {
    // A thinking program answers only between root moves, so a slow answer is "not yet".
    DWORD_PTR rows = 0;
    auto enough = [&] {
        return SendMessageTimeoutW(list, LB_GETCOUNT, 0, 0, SMTO_NORMAL, 200, &rows) && int(rows) >= count;
    };
    return WaitUntil(enough, limit);
}

void Program::ClickRow(int row) {
    const LPARAM at = MAKELPARAM(30, row * ListRowHeight + ListRowHeight / 2);
    PostMessageA(list, WM_LBUTTONDOWN, MK_LBUTTON, at);
    PostMessageA(list, WM_LBUTTONUP, 0, at);
}

HWND Program::NewGame(Side white, Side black, Level level, bool start) {
    HWND dialog = WaitForDialog("New game", IDM_GAME_NEW);
    ChooseRow(dialog, IDC_WHITE_TYPE, white);
    ChooseRow(dialog, IDC_BLACK_TYPE, black);
    if (white == Human) SetText(dialog, IDC_WHITE_NAME, "Alice");
    if (black == Human) SetText(dialog, IDC_BLACK_NAME, "Bob");
    if (white == Computer || black == Computer) ChooseRow(dialog, IDC_AI_LEVEL, level);
    if (start) Press(dialog, IDOK);
    return dialog;
}

void Program::Play(const Board& board, const std::string& moves) {
    // Each move's row follows the row shown, and takes back the rows after that.
    for (size_t at = 0; at + 4 <= moves.size(); at += 5) {
        const size_t row = static_cast<size_t>(SelectedRow() + 1);
        const std::string from = moves.substr(at, 2), to = moves.substr(at + 2, 2);
        Click(board.Centre(from));
        Click(board.Centre(to));
        auto played = [&] {
            const auto rows = Rows();
            return rows.size() > row && (rows[row].find(from + "-" + to) != std::string::npos ||
                                         rows[row].find(from + "x" + to) != std::string::npos);
        };
        if (!WaitUntil(played)) Abort("move " + from + to + " is played", Join(Rows()));
    }
}

void Program::Place(const Board& board, int paletteRow, const std::string& white, const std::string& black) {
    ClickRow(paletteRow);
    for (const auto& [squares, button] : {std::pair{white, WM_LBUTTONUP}, {black, WM_RBUTTONUP}})
        for (size_t at = 0; at + 2 <= squares.size(); at += 3)
            Click(board.Centre(squares.substr(at, 2)), button);
}

void Program::SaveAs(int command, const char* title, const std::string& fileName, const char* saved) {
    HWND dialog = WaitForDialog(title, command);
    SetText(dialog, IDC_SAVE_NAME, fileName);
    Press(dialog, IDOK, !fileName.empty());
    Answer(saved);
}

DWORD Program::Close(const char* asks, int command) {
    PostMessageA(window, command ? WM_COMMAND : WM_CLOSE, command, 0);
    if (asks) Answer(asks, IDNO);
    if (!WaitUntil([this] { return WaitForSingleObject(process, 0) == WAIT_OBJECT_0; }, 2 * ShortWait))
        Abort("velok3.exe ends");
    return ExitCode(process);
}

std::string ReadWholeFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

std::vector<std::string> FilesMatching(const std::string& pattern) {
    std::vector<std::string> names;
    WIN32_FIND_DATAA found{};
    HANDLE search = FindFirstFileA(pattern.c_str(), &found);
    for (bool more = search != INVALID_HANDLE_VALUE; more; more = FindNextFileA(search, &found))
        if (found.cFileName[0] != '.')
            names.push_back(found.cFileName +
                            std::string(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY ? "/" : ""));
    FindClose(search);
    std::sort(names.begin(), names.end());
    return names;
}

std::string Join(const std::vector<std::string>& items) {
    std::string joined;
    for (const std::string& item : items)
        joined += (joined.empty() ? "" : "|") + item;
    return joined;
}

} // namespace e2e
