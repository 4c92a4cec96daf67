// Steps around game and position files: the save-name dialog, the Load dialog's list read across
// the process boundary, its pane compared with half-size tiles and with texts drawn alike.
#include "file_steps.h"

#include <algorithm>
#include <cstdio>
#include <functional>

#include "report.h"

namespace e2e {

namespace {

constexpr int SendLimit = 5000;
constexpr COLORREF DefaultBackground = RGB(128, 128, 128);
constexpr COLORREF DefaultInk = RGB(255, 255, 255);
constexpr int HalfTile = 32;

// Sends with a time limit, wide where the list answers in UTF-16 under Wine; 0 when no answer came.
LRESULT SendTimed(HWND target, UINT message, WPARAM wParam, LPARAM lParam, bool wide = false) {
    DWORD_PTR result = 0;
    LRESULT sent =
        wide ? SendMessageTimeoutW(target, message, wParam, lParam, SMTO_NORMAL, SendLimit, &result)
             : SendMessageTimeoutA(target, message, wParam, lParam, SMTO_NORMAL, SendLimit, &result);
    if (!sent && IsWindow(target))
        Abort("the Load dialog answers", "no answer to message " + std::to_string(message));
    return static_cast<LRESULT>(result);
}

// Lets the program paint what the last message invalidated.
void LetPaint(HWND dialog) {
    SendTimed(dialog, WM_NULL, 0, 0);
    Sleep(150);
}

// The panel's font, as the program asks for it.
HFONT PanelFont() {
    return CreateFontA(24, 0, 0, 0, FW_DONTCARE, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                       CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY, DEFAULT_PITCH | FF_DONTCARE,
                       "Palatino Linotype");
}

// The skin's tile row of a FEN letter: empty 0, pawn 1 up to king 6.
int PieceRow(char piece) {
    const std::string order = ".pnbrqk";
    const char lower = piece >= 'A' && piece <= 'Z' ? static_cast<char>(piece - 'A' + 'a') : piece;
    const size_t found = order.find(lower);
    return found == std::string::npos ? 0 : static_cast<int>(found);
}

// Captures the pane until `shows` holds of it, for a few seconds at most; gives the last capture.
Image WaitForPreview(HWND dialog, const std::function<bool(const Image&)>& shows) {
    Image pane;
    for (DWORD started = GetTickCount(); GetTickCount() - started < static_cast<DWORD>(ShortWait);
         Sleep(50)) {
        pane = CapturePreview(dialog);
        if (shows(pane)) break;
    }
    return pane;
}

} // namespace

void AnswerSaveName(Program& program, const char* title, const char* name, const char* savedMessage) {
    HWND dialog = program.WaitForDialog(title);
    program.SetText(dialog, SaveNameId, name);
    program.PressButton(dialog, IDOK, ClosesDialog);
    program.ExpectMessage(savedMessage, IDOK);
}

HWND OpenLoadDialog(Program& program, int command, const char* title) {
    program.Command(command);
    HWND dialog = program.WaitForDialog(title);
    LetPaint(dialog);
    return dialog;
}

std::vector<std::string> FileRows(HWND dialog) {
    HWND list = GetDlgItem(dialog, FileListId);
    std::vector<std::string> rows;
    LRESULT count = SendTimed(list, LB_GETCOUNT, 0, 0, true);
    for (LRESULT row = 0; row < count; ++row) {
        LRESULT length = SendTimed(list, LB_GETTEXTLEN, row, 0, true);
        if (length < 0) break;
        std::wstring text(static_cast<size_t>(length) + 1, L'\0');
        LRESULT copied = SendTimed(list, LB_GETTEXT, row, reinterpret_cast<LPARAM>(text.data()), true);
        std::string narrow;
        for (LRESULT i = 0; i < copied; ++i)
            narrow += text[i] < 128 ? static_cast<char>(text[i]) : '?';
        rows.push_back(narrow);
    }
    return rows;
}

void SelectFile(HWND dialog, int row) {
    HWND list = GetDlgItem(dialog, FileListId);
    SendTimed(list, LB_SETCURSEL, row, 0);
    SendTimed(dialog, WM_COMMAND, MAKEWPARAM(FileListId, LBN_SELCHANGE), reinterpret_cast<LPARAM>(list));
    LetPaint(dialog);
}

void DoubleClickFile(HWND dialog) {
    HWND list = GetDlgItem(dialog, FileListId);
    PostMessageA(dialog, WM_COMMAND, MAKEWPARAM(FileListId, LBN_DBLCLK), reinterpret_cast<LPARAM>(list));
    Sleep(300);
}

std::string LoadButtonLook(HWND dialog) {
    std::string look;
    look += IsWindowEnabled(GetDlgItem(dialog, LoadButtonId)) ? 'L' : '-';
    look += IsWindowEnabled(GetDlgItem(dialog, DeleteButtonId)) ? 'D' : '-';
    return look;
}

Image CapturePreview(HWND dialog) {
    HWND pane = GetDlgItem(dialog, PreviewId);
    RECT client{};
    GetClientRect(pane, &client);
    POINT origin{0, 0};
    ClientToScreen(pane, &origin);
    return CaptureScreen(origin.x, origin.y, client.right, client.bottom);
}

Image HalfSkin(const char* exePath) {
    Image half;
    HMODULE module = LoadLibraryExA(exePath, nullptr, LOAD_LIBRARY_AS_DATAFILE);
    if (!module) return half;
    HBITMAP full = LoadBitmapA(module, MAKEINTRESOURCEA(133));
    HBITMAP canvas = LoadBitmapA(module, MAKEINTRESOURCEA(133));
    if (full && canvas) {
        HDC screen = GetDC(nullptr);
        HDC source = CreateCompatibleDC(screen);
        HDC target = CreateCompatibleDC(screen);
        HGDIOBJ oldSource = SelectObject(source, full);
        HGDIOBJ oldTarget = SelectObject(target, canvas);
        SetStretchBltMode(target, HALFTONE);
        SetBrushOrgEx(target, 0, 0, nullptr);
        StretchBlt(target, 0, 0, 320, 224, source, 0, 0, 640, 448, SRCCOPY);
        SelectObject(source, oldSource);
        SelectObject(target, oldTarget);
        DeleteDC(source);
        DeleteDC(target);
        ReleaseDC(nullptr, screen);
        half = ImageOfBitmap(canvas);
    }
    if (full) DeleteObject(full);
    if (canvas) DeleteObject(canvas);
    FreeLibrary(module);
    return half;
}

std::string PreviewSquaresDiffering(const Image& pane, const Image& halfSkin, const Placement& placement) {
    std::string differing;
    for (int screenRow = 0; screenRow < 8; ++screenRow)
        for (int file = 0; file < 8; ++file) {
            const int row = 7 - screenRow;
            const char piece = placement.At(file, row);
            const bool light = (row + file) % 2 != 0, black = piece >= 'a' && piece <= 'z';
            const int sourceX = ((light ? 1 : 0) + (black ? 5 : 0)) * HalfTile;
            const int x = HalfTile * file + 1, y = HalfTile * screenRow + 1;
            // The pane's one-pixel frame is drawn over the board's edge; only what lies inside it
            // is compared.
            const int width = std::min(HalfTile, pane.width - 1 - x);
            const int height = std::min(HalfTile, pane.height - 1 - y);
            ImageDifference difference = width > 0 && height > 0
                                             ? CompareAreas(pane, x, y, halfSkin, sourceX,
                                                            PieceRow(piece) * HalfTile, width, height, 0)
                                             : ImageDifference{1, 255};
            if (difference.pixels != 0)
                differing += std::string(differing.empty() ? "" : " ") + static_cast<char>('a' + file) +
                             static_cast<char>('1' + row);
        }
    return differing;
}

Image DrawnText(const std::string& text, int width, int height) {
    HDC screen = GetDC(nullptr);
    HDC memory = CreateCompatibleDC(screen);
    HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
    HGDIOBJ oldBitmap = SelectObject(memory, bitmap);
    HBRUSH brush = CreateSolidBrush(DefaultBackground);
    RECT area{0, 0, width, height};
    FillRect(memory, &area, brush);
    HFONT font = PanelFont();
    HGDIOBJ oldFont = SelectObject(memory, font);
    SetBkMode(memory, TRANSPARENT);
    SetTextColor(memory, DefaultInk);
    DrawTextA(memory, text.c_str(), static_cast<int>(text.size()), &area,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    SelectObject(memory, oldFont);
    SelectObject(memory, oldBitmap);
    Image image = ImageOfBitmap(bitmap);
    DeleteObject(font);
    DeleteObject(brush);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return image;
}

int PixelsDiffering(const Image& shown, int x, int y, const Image& expected, int rows) {
    const int height = rows < 0 ? expected.height : rows;
    if (x + expected.width > shown.width || y + height > shown.height) return expected.width * height;
    return CompareAreas(shown, x, y, expected, 0, 0, expected.width, height, 8).pixels;
}

bool PreviewShowsStatus(HWND dialog, const std::string& text) {
    // The frame along the edge is drawn in the background colour, as the fill is.
    auto shows = [&text](const Image& pane) {
        return !pane.Empty() && PixelsDiffering(pane, 0, 0, DrawnText(text, pane.width, pane.height)) == 0;
    };
    return shows(WaitForPreview(dialog, shows));
}

Image WaitForPreviewBoard(HWND dialog, const Image& halfSkin, const Placement& placement) {
    return WaitForPreview(dialog, [&](const Image& pane) {
        return PreviewSquaresDiffering(pane, halfSkin, placement).empty();
    });
}

std::string ClockText(int seconds) {
    char text[16];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d", seconds / 3600, seconds % 3600 / 60, seconds % 60);
    return text;
}

int FileClock(const std::string& file, const std::string& marker) {
    const size_t at = file.find(marker);
    if (at == std::string::npos || at + marker.size() + 8 > file.size()) return -1;
    const std::string clock = file.substr(at + marker.size(), 8);
    int hours = 0, minutes = 0, seconds = 0;
    if (std::sscanf(clock.c_str(), "%2d:%2d:%2d", &hours, &minutes, &seconds) != 3) return -1;
    return hours * 3600 + minutes * 60 + seconds;
}

std::vector<std::string> SavedFiles(const char* pattern) {
    std::vector<std::string> names;
    WIN32_FIND_DATAA found{};
    HANDLE search = FindFirstFileA((std::string("Save\\") + pattern).c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return names;
    do
        names.push_back(found.cFileName);
    while (FindNextFileA(search, &found));
    FindClose(search);
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace e2e
