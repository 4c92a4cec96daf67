// The Options dialog: display, sound, colours and skin. Its procedure, the skin list and the
// preview of the position in the selected skin live in three files that share these operations.
#pragma once

#include <windows.h>

#include "records/text.h"
#include "shell/options_rules.h"

// options_dialog.cpp: runs the dialog over the main window; the settings change on OK and Apply.
void ShowOptionsDialog();

// options_skin_list.cpp
// Fills the list with the stock skins and the skin files of the right size, unsorted.
void FillSkinList(HWND dialog);
// The list row to select at opening, by the present settings.
int InitialSkinListRow(HWND dialog);
// The text of a row of the skin list.
Text SkinListRowText(HWND dialog, int row);
// Loads the skin of the selected row into `target` (replacing its bitmap), while `dc` holds it:
// the new bitmap is selected into `dc` before the old one is deleted.
void LoadSelectedSkin(HWND dialog, HBITMAP& target, HDC dc);

// options_preview.cpp
// Makes the two preview images of the selected skin, full and half size.
void CreateSkinPreview(HWND dialog);
// Loads the newly selected skin into the preview and has the preview drawn anew.
void ReloadSkinPreview(HWND dialog);
// Draws the position of the game in the half-size preview, framed in the background colour.
void PaintSkinPreview(const DRAWITEMSTRUCT& drawItem);
// The byte sums of the dark and light empty squares of the full-size preview.
void SumPreviewSquares(TileSums& dark, TileSums& light);
// Releases the preview's device contexts and bitmaps.
void DeleteSkinPreview();
