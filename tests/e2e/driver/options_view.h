// The Options dialog as the driver works it: its controls by id, its skin list, its colour
// swatches and preview on the screen, and the stock skins read from the program itself.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "image.h"
#include "program.h"

namespace e2e {

// Ids of the Options dialog and the command that opens it.
enum OptionsId : int {
    CommandOptions = 32771,
    OptionsOk = 1,
    OptionsCancel = 2,
    OptionsBackground = 3,
    OptionsInk = 4,
    OptionsPick = 5,
    OptionsApply = 7,
    OptionsDefault = 9,
    OptionsLegalMove = 1005,
    OptionsLastMove = 1006,
    OptionsCheck = 1007,
    OptionsAiProgress = 1008,
    OptionsBeep = 1009,
    OptionsPreview = 1010,
    OptionsSkins = 1011,
    OptionsWhiteOnTop = 1012,
    OptionsCoordinates = 1013,
    OptionsMovesList = 1014,
    OptionsScale75 = 1018,
    OptionsScale100 = 1019,
};

// Every check box of the dialog, in the order of its layout.
extern const int OptionsCheckBoxes[8];

// Opens the dialog from the menu and waits for it.
HWND OpenOptions(Program& program);

// Moves the dialog to the right edge of the screen, off the board of a window at scale 100.
void MoveAside(HWND dialog);

// Sets or clears a check box or radio, as a click would leave it.
void SetChecked(HWND dialog, int id, bool checked);
bool IsChecked(HWND dialog, int id);

// The rows of the skin list, and the selected one (-1 with none).
std::vector<std::string> SkinRows(HWND dialog);
int SelectedSkinRow(HWND dialog);

// Selects a row of the skin list and tells the dialog, as a click on the row does.
void SelectSkinRow(HWND dialog, int row);

// What a control of the dialog shows on the screen, from its window's upper left corner.
Image CaptureControl(HWND dialog, int id);

// The colour in the middle of a colour button's picture.
COLORREF SwatchColour(HWND dialog, int id);

// Stock skin `number` (0 to 6) read from the program's resources.
Image LoadStockSkinImage(const char* exePath, int number);

// A copy of `skin` stretched to width by height with HALFTONE, as the program scales skins.
Image ScaledSkin(const Image& skin, int width, int height);

// The settings file's line "<key> = <value>", or "" when it has none.
std::string SettingsLine(const std::string& file, const std::string& key);

} // namespace e2e
