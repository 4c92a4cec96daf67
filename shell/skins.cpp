// The skin: one bitmap of 10 by 7 tiles, loaded from the resources or a file in SKIN, and its
// copies at half and three-quarter size, each kept selected in a memory device context.
#include <windows.h>

#include "records/settings.h"
#include "resource.h"
#include "shell/shell_parts.h"
#include "shell/shell_state.h"

namespace {

constexpr int SkinWidth = 640, SkinHeight = 448;

// One of the seven skins built into the program.
HBITMAP LoadStockSkin(int number) {
    return LoadBitmapA(shellState.instance, MAKEINTRESOURCEA(IDB_SKIN_FIRST + number));
}

// Stretches the whole skin into the upper left of `target` at the given size.
void ScaleSkin(HDC source, HDC target, int width, int height) {
    SetStretchBltMode(target, HALFTONE);
    SetBrushOrgEx(target, 0, 0, nullptr);
    StretchBlt(target, 0, 0, width, height, source, 0, 0, SkinWidth, SkinHeight, SRCCOPY);
}

// A memory device context compatible with the screen, holding `image`.
HDC SelectIntoNewDc(HBITMAP image) {
    const HDC dc = CreateCompatibleDC(nullptr);
    SelectObject(dc, image);
    return dc;
}

} // namespace

// Replaces the bitmap in `target`: stock skin `number`, or SKIN\<fileName>.bmp when a file
// name is given, falling back to the first stock skin when the file cannot be loaded.
void LoadSkin(HBITMAP& target, int number, const Text& fileName) {
    if (target != nullptr) DeleteObject(target);
    if (fileName.Length() == 0) {
        target = LoadStockSkin(number);
        return;
    }
    Text path("SKIN\\");
    path.AppendText(fileName);
    path.Append(".bmp");
    target = static_cast<HBITMAP>(
        LoadImageA(nullptr, path.Chars(), IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE | LR_CREATEDIBSECTION));
    if (target == nullptr) target = LoadStockSkin(0);
}

void ScaleSkinToHalf(HDC source, HDC target) {
    ScaleSkin(source, target, SkinWidth / 2, SkinHeight / 2);
}

void ScaleSkinToThreeQuarter(HDC source, HDC target) {
    ScaleSkin(source, target, SkinWidth * 3 / 4, SkinHeight * 3 / 4);
}

// Loads the chosen skin and makes its scaled copies; the smaller images start as stock skins
// only to have bitmaps of the right kind to draw into.
void CreateSkinImages() {
    LoadSkin(skinImages.skinFull, displaySettings.skinNumber, displaySettings.skinFileName);
    LoadSkin(skinImages.skinHalf, 0, Text());
    LoadSkin(skinImages.skinThreeQuarter, 0, Text());
    skinImages.skinFullDc = SelectIntoNewDc(skinImages.skinFull);
    skinImages.skinHalfDc = SelectIntoNewDc(skinImages.skinHalf);
    skinImages.skinThreeQuarterDc = SelectIntoNewDc(skinImages.skinThreeQuarter);
    ScaleSkinToHalf(skinImages.skinFullDc, skinImages.skinHalfDc);
    ScaleSkinToThreeQuarter(skinImages.skinFullDc, skinImages.skinThreeQuarterDc);
}

// Deletes the device contexts first, so that the bitmaps are no longer selected anywhere.
void DeleteSkinImages() {
    HDC* dcs[3] = {&skinImages.skinFullDc, &skinImages.skinHalfDc, &skinImages.skinThreeQuarterDc};
    HBITMAP* images[3] = {&skinImages.skinFull, &skinImages.skinHalf, &skinImages.skinThreeQuarter};
    for (int k = 0; k < 3; ++k) {
        DeleteDC(*dcs[k]);
        *dcs[k] = nullptr;
        DeleteObject(*images[k]);
        *images[k] = nullptr;
    }
}
