// The program under test driven from another process: started in a job that dies with the driver,
// posted input, sends with a time limit, dialogs found by class and title, rows read as UTF-16.
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
    if (!ok) Screenshot(std::to_string(++failedChecks) + " failed");
    return ok;
}

void Abort(const std::string& what, const std::string& detail) {
    Check(false, what, detail);
    std::exit(1);
}

void Screenshot(const std::string& name) {
    RECT screen{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    SaveBmp(CaptureScreen(screen), shotFolder + "\\" + name + ".bmp");
}

namespace {

constexpr int SendLimit = 5000;

std::vector<HWND> WindowsOf(HANDLE process, const char* className) {
    struct Search {
        DWORD processId;
        const char* className;
        std::vector<HWND> found;
    } search{GetProcessId(process), className, {}};
    EnumWindows(
        [](HWND window, LPARAM parameter) -> BOOL {
            auto* search = reinterpret_cast<Search*>(parameter);
            DWORD owner = 0;
            char name[64] = "";
            GetWindowThreadProcessId(window, &owner);
            GetClassNameA(window, name, sizeof name);
            if (owner == search->processId && IsWindowVisible(window) &&
                lstrcmpA(name, search->className) == 0)
                search->found.push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

// A send with a time limit: a hung program fails the run instead of holding it.
LRESULT Send(HWND target, UINT message, WPARAM wParam, LPARAM lParam, bool wide = false) {
    DWORD_PTR result = 0;
    LRESULT sent =
        wide ? SendMessageTimeoutW(target, message, wParam, lParam, SMTO_NORMAL, SendLimit, &result)
             : SendMessageTimeoutA(target, message, wParam, lParam, SMTO_NORMAL, SendLimit, &result);
    if (!sent && IsWindow(target))
        Abort("the program answers", "no answer to message " + std::to_string(message));
    return static_cast<LRESULT>(result);
}

std::string TextOf(HWND window) {
    if (!window) return "";
    std::string text(static_cast<size_t>(Send(window, WM_GETTEXTLENGTH, 0, 0)) + 1, '\0');
    text.resize(
        static_cast<size_t>(Send(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
    std::erase(text, '\r');
    return text;
}

PROCESS_INFORMATION Launch(HANDLE job) {
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION info{};
    char commandLine[] = "velok3.exe";
    if (!CreateProcessA(".\\velok3.exe", commandLine, nullptr, nullptr, FALSE, CREATE_SUSPENDED, nullptr,
                        nullptr, &startup, &info))
        Abort("velok3.exe starts", "CreateProcess error " + std::to_string(GetLastError()));
    AssignProcessToJobObject(job, info.hProcess);
    ResumeThread(info.hThread);
    CloseHandle(info.hThread);
    return info;
}

} // namespace

void Program::Start(const std::string& label) {
    name = label;
    job = CreateJobObjectA(nullptr, nullptr);
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    PROCESS_INFORMATION info = Launch(job);
    process = info.hProcess;
    WaitForInputIdle(process, 10000);
    auto found = [this] {
        auto windows = WindowsOf(process, "VELOK3");
        window = windows.empty() ? nullptr : windows.front();
        return window != nullptr;
    };
    if (!WaitUntil(found, 10000)) Abort(name + " shows its window", "no visible window of class VELOK3");
    list = GetDlgItem(window, IDC_MOVES_LIST);
}

DWORD Program::StartSecondCopy() {
    PROCESS_INFORMATION info = Launch(job);
    DWORD code = STILL_ACTIVE;
    if (WaitForSingleObject(info.hProcess, 10000) != WAIT_OBJECT_0) Abort("a second copy ends by itself");
    GetExitCodeProcess(info.hProcess, &code);
    CloseHandle(info.hProcess);
    return code;
}

bool Program::WaitUntil(const std::function<bool()>& done, int limit, const char* allowed) {
    const DWORD started = GetTickCount();
    for (;;) {
        if (done()) return true;
        if (WaitForSingleObject(process, 0) == WAIT_OBJECT_0) {
            if (done()) return true;
            DWORD code = 0;
            GetExitCodeProcess(process, &code);
            Abort(name + " keeps running", "it ended with exit code " + std::to_string(code));
        }
        std::erase_if(expected, [](HWND dialog) { return !IsWindow(dialog) || !IsWindowVisible(dialog); });
        for (HWND dialog : WindowsOf(process, "#32770")) {
            if (std::find(expected.begin(), expected.end(), dialog) != expected.end() ||
                !IsWindowVisible(dialog))
                continue;
            const std::string title = TextOf(dialog);
            if (!allowed || title != allowed)
                Abort("no unexpected dialog",
                      "\"" + title + "\" says \"" + TextOf(GetDlgItem(dialog, 0xFFFF)) + "\"");
        }
        if (GetTickCount() - started >= static_cast<DWORD>(limit)) return false;
        Sleep(10);
    }
}

bool Program::WaitForScreen(const std::function<bool(const Image&)>& shows, Image* last) {
    Image shot;
    bool seen = WaitUntil([&] {
        shot = Client();
        return shows(shot);
    });
    if (last) *last = shot;
    return seen;
}

bool Program::ExpectBoard(const Board& board, const std::string& placement, const std::string& what,
                          const std::string& lastMove, const std::string& marked) {
    Image shot;
    const bool seen = WaitForScreen(
        [&](const Image& now) { return board.Differing(now, placement, lastMove) == marked; }, &shot);
    return Check(seen, what, "squares differing: " + board.Differing(shot, placement, lastMove));
}

SIZE Program::ClientSize() const {
    RECT client{};
    GetClientRect(window, &client);
    return {client.right, client.bottom};
}

HWND Program::WaitForDialog(const char* title) {
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
    if (closes && !WaitUntil([dialog] { return !IsWindow(dialog) || !IsWindowVisible(dialog); }, ShortWait,
                             title.c_str()))
        Abort("dialog \"" + title + "\" closes on button " + std::to_string(id));
}

void Program::Answer(const std::string& text, int button) {
    HWND box = WaitForDialog("Velok-3");
    const std::string shown = TextOf(GetDlgItem(box, 0xFFFF));
    Check(shown == text, "message \"" + text + "\"", "the box says \"" + shown + "\"");
    Press(box, button);
}

void Program::SetText(HWND dialog, int id, const std::string& text) {
    Send(GetDlgItem(dialog, id), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void Program::SetChecked(HWND dialog, int id, bool checked) {
    // The dialog reads its boxes when a button takes them over, as a click would leave them.
    Send(GetDlgItem(dialog, id), BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
}

bool Program::Checked(HWND dialog, int id) {
    return Send(GetDlgItem(dialog, id), BM_GETCHECK, 0, 0) == BST_CHECKED;
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
    // Wine 8 answers LB_GETTEXT in UTF-16 even to the A form, so ask in the W form.
    listBox = listBox ? listBox : list;
    std::vector<std::string> rows;
    const LRESULT count = Send(listBox, LB_GETCOUNT, 0, 0, true);
    for (LRESULT row = 0; row < count; ++row) {
        // A list refilled meanwhile has fewer rows.
        const LRESULT length = Send(listBox, LB_GETTEXTLEN, row, 0, true);
        if (length < 0) break;
        std::wstring text(static_cast<size_t>(length) + 1, L'\0');
        const LRESULT copied = Send(listBox, LB_GETTEXT, row, reinterpret_cast<LPARAM>(text.data()), true);
        text.resize(static_cast<size_t>(std::clamp<LRESULT>(copied, 0, length)));
        rows.emplace_back(text.begin(), text.end());
    }
    return rows;
}

int Program::SelectedRow() {
    return static_cast<int>(Send(list, LB_GETCURSEL, 0, 0));
}

bool Program::WaitForRows(int count, int limit) {
    // A thinking program answers only between root moves, so a slow answer is "not yet".
    return WaitUntil(
        [&] {
            DWORD_PTR rows = 0;
            return SendMessageTimeoutW(list, LB_GETCOUNT, 0, 0, SMTO_NORMAL, 200, &rows) &&
                   static_cast<int>(rows) >= count;
        },
        limit);
}

void Program::ClickRow(int row) {
    constexpr int RowHeight = 25;
    const LPARAM at = MAKELPARAM(30, row * RowHeight + RowHeight / 2);
    PostMessageA(list, WM_LBUTTONDOWN, MK_LBUTTON, at);
    PostMessageA(list, WM_LBUTTONUP, 0, at);
}

bool Program::StepTo(WPARAM key, int row) {
    for (int presses = 0; presses < 12 && SelectedRow() != row; ++presses) {
        const int before = SelectedRow();
        Key(key);
        WaitUntil([&] { return SelectedRow() != before; });
    }
    return SelectedRow() == row;
}

HWND Program::NewGame(Side white, Side black, Level level, bool start) {
    Command(IDM_GAME_NEW);
    HWND dialog = WaitForDialog("New game");
    const struct {
        Side side;
        int type, nameEdit;
        const char* name;
    } sides[] = {{white, IDC_WHITE_TYPE, IDC_WHITE_NAME, "Alice"},
                 {black, IDC_BLACK_TYPE, IDC_BLACK_NAME, "Bob"}};
    for (const auto& side : sides) {
        ChooseRow(dialog, side.type, side.side);
        if (side.side == Human) SetText(dialog, side.nameEdit, side.name);
    }
    if (white == Computer || black == Computer) ChooseRow(dialog, IDC_AI_LEVEL, level);
    if (start) Press(dialog, IDOK);
    return dialog;
}

void Program::Play(const Board& board, const std::string& moves) {
    // Each move's row follows the row shown, whose successors a move from there takes back.
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

void Program::SaveAs(const char* title, const std::string& fileName, const char* saved) {
    HWND dialog = WaitForDialog(title);
    SetText(dialog, IDC_SAVE_NAME, fileName);
    Press(dialog, IDOK, fileName.empty() ? false : true);
    Answer(saved);
}

DWORD Program::Close(bool asksToSave, int command) {
    if (command)
        Command(command);
    else
        PostMessageA(window, WM_CLOSE, 0, 0);
    if (asksToSave) Answer("Save current game?", IDNO);
    return WaitForExit();
}

DWORD Program::WaitForExit() {
    const int limit = 2 * ShortWait;
    if (!WaitUntil([this] { return WaitForSingleObject(process, 0) == WAIT_OBJECT_0; }, limit))
        Abort(name + " ends", "still running after " + std::to_string(limit) + " ms");
    DWORD code = 0;
    GetExitCodeProcess(process, &code);
    return code;
}

std::string ReadWholeFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void WriteWholeFile(const std::string& path, const std::string& bytes) {
    if (!(std::ofstream(path, std::ios::binary) << bytes)) Abort("file " + path + " written");
}

std::string CrLf(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\r\n";
    return text;
}

std::vector<std::string> FilesMatching(const std::string& pattern) {
    std::vector<std::string> names;
    WIN32_FIND_DATAA found{};
    HANDLE search = FindFirstFileA(pattern.c_str(), &found);
    for (bool more = search != INVALID_HANDLE_VALUE; more; more = FindNextFileA(search, &found)) {
        const std::string name = found.cFileName;
        if (name != "." && name != "..")
            names.push_back(name + (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY ? "/" : ""));
    }
    if (search != INVALID_HANDLE_VALUE) FindClose(search);
    std::sort(names.begin(), names.end());
    return names;
}

std::string Join(const std::vector<std::string>& items) {
    std::string joined;
    for (const std::string& item : items)
        joined += (joined.empty() ? "" : "|") + item;
    return joined;
}

std::string SettingsFileName() {
    Program program;
    program.Start("velok3.exe, to learn the settings file's name");
    program.Close(false);
    const auto found = FilesMatching("velok-3 {*}.ini");
    if (found.empty()) Abort("the settings file is written at exit");
    return found.front();
}

} // namespace e2e
