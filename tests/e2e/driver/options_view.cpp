// Working the Options dialog from outside the program: sends with a time limit to its controls,
// its list read as wide text, and pictures of its controls taken from the screen.
#include "options_view.h"

#include <cstring>

#include "report.h"

namespace e2e {

namespace {

constexpr UINT SendLimit = 2000;

// Sends to a control of the dialog and stops the scenario when the program does not answer.
LRESULT SendToControl(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam, bool wide = false) {
    HWND control = GetDlgItem(dialog, id);
    DWORD_PTR result = 0;
    LRESULT sent =
        wide ? SendMessageTimeoutW(control, message, wParam, lParam, SMTO_NORMAL, SendLimit, &result)
             : SendMessageTimeoutA(control, message, wParam, lParam, SMTO_NORMAL, SendLimit, &result);
    if (!sent) Abort("the Options dialog answers", "no answer from control " + std::to_string(id));
    return static_cast<LRESULT>(result);
}

// A 24-bit top-down DIB section of the given size, its pixels at `bits`.
HBITMAP CreateTopDownBitmap(int width, int height, void** bits) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    info.bmiHeader.biCompression = BI_RGB;
    return CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, bits, nullptr, 0);
}

} // namespace

const int OptionsCheckBoxes[8] = {OptionsLegalMove,   OptionsLastMove,  OptionsCheck,      OptionsAiProgress,
                                  OptionsCoordinates, OptionsMovesList, OptionsWhiteOnTop, OptionsBeep};

HWND OpenOptions(Program& program) {
    program.Command(CommandOptions);
    return program.WaitForDialog("Options");
}

void MoveAside(HWND dialog) {
    RECT frame{};
    GetWindowRect(dialog, &frame);
    SetWindowPos(dialog, nullptr, GetSystemMetrics(SM_CXSCREEN) - 150, frame.top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void SetChecked(HWND dialog, int id, bool checked) {
    SendToControl(dialog, id, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
}

bool IsChecked(HWND dialog, int id) {
    return SendToControl(dialog, id, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

std::vector<std::string> SkinRows(HWND dialog) {
    std::vector<std::string> rows;
    LRESULT count = SendToControl(dialog, OptionsSkins, LB_GETCOUNT, 0, 0, true);
    for (LRESULT row = 0; row < count; ++row) {
        LRESULT length = SendToControl(dialog, OptionsSkins, LB_GETTEXTLEN, row, 0, true);
        if (length < 0) break;
        std::wstring text(static_cast<size_t>(length) + 1, L'\0');
        LRESULT copied =
            SendToControl(dialog, OptionsSkins, LB_GETTEXT, row, reinterpret_cast<LPARAM>(text.data()), true);
        text.resize(copied < 0 ? 0 : static_cast<size_t>(copied));
        std::string narrow;
        for (wchar_t c : text)
            narrow += c < 128 ? static_cast<char>(c) : '?';
        rows.push_back(narrow);
    }
    return rows;
}

int SelectedSkinRow(HWND dialog) {
    return static_cast<int>(SendToControl(dialog, OptionsSkins, LB_GETCURSEL, 0, 0));
}

void SelectSkinRow(HWND dialog, int row) {
    SendToControl(dialog, OptionsSkins, LB_SETCURSEL, row, 0);
    DWORD_PTR result = 0;
    SendMessageTimeoutA(dialog, WM_COMMAND, MAKEWPARAM(OptionsSkins, LBN_SELCHANGE),
                        reinterpret_cast<LPARAM>(GetDlgItem(dialog, OptionsSkins)), SMTO_NORMAL, SendLimit,
                        &result);
}

Image CaptureControl(HWND dialog, int id) {
    RECT frame{};
    GetWindowRect(GetDlgItem(dialog, id), &frame);
    return CaptureScreen(frame.left, frame.top, frame.right - frame.left, frame.bottom - frame.top);
}

COLORREF SwatchColour(HWND dialog, int id) {
    Image button = CaptureControl(dialog, id);
    return button.Pixel(button.width / 2, button.height / 2);
}

Image LoadStockSkinImage(const char* exePath, int number) {
    Image image;
    HMODULE module = LoadLibraryExA(exePath, nullptr, LOAD_LIBRARY_AS_DATAFILE);
    if (!module) return image;
    HBITMAP bitmap = LoadBitmapA(module, MAKEINTRESOURCEA(133 + number));
    if (bitmap) {
        image = ImageOfBitmap(bitmap);
        DeleteObject(bitmap);
    }
    FreeLibrary(module);
    return image;
}

Image ScaledSkin(const Image& skin, int width, int height) {
    void* sourceBits = nullptr;
    void* targetBits = nullptr;
    HBITMAP source = CreateTopDownBitmap(skin.width, skin.height, &sourceBits);
    HBITMAP target = CreateTopDownBitmap(width, height, &targetBits);
    const int sourceStride = (skin.width * 3 + 3) & ~3;
    for (int y = 0; y < skin.height; ++y)
        std::memcpy(static_cast<unsigned char*>(sourceBits) + y * sourceStride, &skin.bgr[y * skin.width * 3],
                    static_cast<size_t>(skin.width) * 3);
    HDC sourceDc = CreateCompatibleDC(nullptr);
    HDC targetDc = CreateCompatibleDC(nullptr);
    HGDIOBJ oldSource = SelectObject(sourceDc, source);
    HGDIOBJ oldTarget = SelectObject(targetDc, target);
    SetStretchBltMode(targetDc, HALFTONE);
    SetBrushOrgEx(targetDc, 0, 0, nullptr);
    StretchBlt(targetDc, 0, 0, width, height, sourceDc, 0, 0, skin.width, skin.height, SRCCOPY);
    GdiFlush();
    SelectObject(sourceDc, oldSource);
    SelectObject(targetDc, oldTarget);
    DeleteDC(sourceDc);
    DeleteDC(targetDc);
    Image scaled = ImageOfBitmap(target);
    DeleteObject(source);
    DeleteObject(target);
    return scaled;
}

std::string SettingsLine(const std::string& file, const std::string& key) {
    const std::string start = key + " = ";
    size_t at = file.rfind("\n" + start);
    if (at == std::string::npos) return "";
    size_t end = file.find("\r\n", at + 1);
    return file.substr(at + 1, end == std::string::npos ? std::string::npos : end - at - 1);
}

} // namespace e2e
