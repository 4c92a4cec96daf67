// The skin list of the Options dialog: the seven stock skins, then every file of the SKIN folder
// that has the size of a skin, in the order the system finds them; and loading the selected row.
#include <windows.h>

#include <vector>

#include "records/settings.h"
#include "resource.h"
#include "shell/options_dialog.h"
#include "shell/shell_parts.h"

namespace {

// Adds one row at the end of the unsorted list.
void AddRow(HWND dialog, const char* text) {
    SendDlgItemMessageA(dialog, IDC_OPTIONS_SKINS, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
}

// Whether a file of the skin folder loads as a bitmap of the size of a skin; the image is only
// looked at, then deleted.
bool LoadsAsSkin(const char* fileName) {
    Text path("SKIN\\");
    path.Append(fileName);
    const HANDLE image = LoadImageA(nullptr, path.Chars(), IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE);
    if (image == nullptr) return false;
    BITMAP facts{};
    const bool read = GetObjectA(image, sizeof facts, &facts) != 0;
    DeleteObject(image);
    return read && IsSkinFile(fileName, facts.bmWidth, facts.bmHeight);
}

} // namespace

void FillSkinList(HWND dialog) {
    for (const char* name : StockSkinNames)
        AddRow(dialog, name);
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA("SKIN\\*.bmp", &found);
    if (search == INVALID_HANDLE_VALUE) return;
    do {
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0 && LoadsAsSkin(found.cFileName))
            AddRow(dialog, SkinRowName(found.cFileName).Chars());
    } while (FindNextFileA(search, &found));
    FindClose(search);
}

Text SkinListRowText(HWND dialog, int row) {
    const LRESULT length = SendDlgItemMessageA(dialog, IDC_OPTIONS_SKINS, LB_GETTEXTLEN, row, 0);
    if (length == LB_ERR) return Text();
    std::vector<char> text(static_cast<std::size_t>(length) + 1, '\0');
    SendDlgItemMessageA(dialog, IDC_OPTIONS_SKINS, LB_GETTEXT, row, reinterpret_cast<LPARAM>(text.data()));
    return Text(text.data());
}

int InitialSkinListRow(HWND dialog) {
    const int count = static_cast<int>(SendDlgItemMessageA(dialog, IDC_OPTIONS_SKINS, LB_GETCOUNT, 0, 0));
    std::vector<Text> rows;
    for (int row = 0; row < count; ++row)
        rows.push_back(SkinListRowText(dialog, row));
    return InitialSkinRow(displaySettings, rows.data(), count);
}

void LoadSelectedSkin(HWND dialog, HBITMAP& target, HDC dc) {
    const int row = static_cast<int>(SendDlgItemMessageA(dialog, IDC_OPTIONS_SKINS, LB_GETCURSEL, 0, 0));
    HBITMAP fresh = nullptr;
    if (row >= StockSkinCount)
        LoadSkin(fresh, 0, SkinListRowText(dialog, row));
    else
        LoadSkin(fresh, row < 0 ? 0 : row, Text());
    SelectObject(dc, fresh);
    if (target != nullptr) DeleteObject(target);
    target = fresh;
}
