// Reading the stock skin out of the program's resources and making the scaled and inverted
// pictures that the board checks compare against.
#include "skin.h"

#include <windows.h>

namespace e2e {

namespace {

constexpr int StockSkinResource = 133;

} // namespace

ProgramSkin LoadProgramSkin(const char* exePath) {
    ProgramSkin skin;
    HMODULE module = LoadLibraryExA(exePath, nullptr, LOAD_LIBRARY_AS_DATAFILE);
    if (!module) return skin;
    HBITMAP full = LoadBitmapA(module, MAKEINTRESOURCEA(StockSkinResource));
    HBITMAP canvas = LoadBitmapA(module, MAKEINTRESOURCEA(StockSkinResource));
    if (full && canvas) {
        HDC screen = GetDC(nullptr);
        HDC source = CreateCompatibleDC(screen);
        HDC target = CreateCompatibleDC(screen);
        HGDIOBJ oldSource = SelectObject(source, full);
        HGDIOBJ oldTarget = SelectObject(target, canvas);
        SetStretchBltMode(target, HALFTONE);
        StretchBlt(target, 0, 0, 480, 336, source, 0, 0, 640, 448, SRCCOPY);
        SelectObject(source, oldSource);
        SelectObject(target, oldTarget);
        DeleteDC(source);
        DeleteDC(target);
        ReleaseDC(nullptr, screen);
        skin.full = ImageOfBitmap(full);
        skin.threeQuarter = ImageOfBitmap(canvas);
    }
    if (full) DeleteObject(full);
    if (canvas) DeleteObject(canvas);
    FreeLibrary(module);
    return skin;
}

Image InvertedSkin(const Image& skin) {
    Image inverted = skin;
    for (unsigned char& channel : inverted.bgr)
        channel = static_cast<unsigned char>(255 - channel);
    return inverted;
}

} // namespace e2e
