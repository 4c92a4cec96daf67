// The Options dialog: check boxes and radios hold the pending display choices, the dialog keeps
// the pending colours and skin row; OK and Apply take them over at once, Cancel drops them.
#include "shell/options_dialog.h"

#include "records/settings.h"
#include "resource.h"
#include "shell/gdi_objects.h"
#include "shell/main_window.h"
#include "shell/shell_parts.h"
#include "shell/shell_state.h"

namespace {

constexpr int SwatchPixels = 19;

// A check box and the flag of the choices it shows.
struct FlagControl {
    int id;
    std::int32_t OptionsChoices::*flag;
};
constexpr FlagControl flagControls[] = {
    {IDC_OPTIONS_LEGAL_MOVE, &OptionsChoices::showLegalMoves},
    {IDC_OPTIONS_LAST_MOVE, &OptionsChoices::showLastMove},
    {IDC_OPTIONS_CHECK, &OptionsChoices::showCheck},
    {IDC_OPTIONS_AI_PROGRESS, &OptionsChoices::showAiProgress},
    {IDC_OPTIONS_COORDINATES, &OptionsChoices::showCoordinates},
    {IDC_OPTIONS_MOVES_LIST, &OptionsChoices::showMovesList},
    {IDC_OPTIONS_WHITE_ON_TOP, &OptionsChoices::whiteOnTop},
    {IDC_OPTIONS_BEEP, &OptionsChoices::beepAfterMove},
};

// What the dialog holds beside its controls while it is open.
struct PendingState {
    COLORREF background = 0;
    COLORREF ink = 0;
    int skinRow = 0;
    HBITMAP swatches[2] = {};
};
PendingState pending;

// Replaces the pictures on the two colour buttons by squares of the pending colours.
void MakeColourSwatches(HWND dialog) {
    WindowDc dc(dialog);
    const int buttons[2] = {IDC_OPTIONS_BACKGROUND, IDC_OPTIONS_INK};
    const COLORREF colours[2] = {pending.background, pending.ink};
    for (int k = 0; k < 2; ++k) {
        const HBITMAP swatch = CreateCompatibleBitmap(dc.Get(), SwatchPixels, SwatchPixels);
        {
            MemoryDc target(dc.Get());
            Selection selected(target.Get(), swatch);
            const HBRUSH brush = CreateSolidBrush(colours[k]);
            const RECT area{0, 0, SwatchPixels, SwatchPixels};
            FillRect(target.Get(), &area, brush);
            DeleteObject(brush);
        }
        SendDlgItemMessageA(dialog, buttons[k], BM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(swatch));
        if (pending.swatches[k] != nullptr) DeleteObject(pending.swatches[k]);
        pending.swatches[k] = swatch;
    }
}

// Sets the controls and the pending state to `choices`.
void ShowChoices(HWND dialog, const OptionsChoices& choices) {
    for (const FlagControl& control : flagControls)
        CheckDlgButton(dialog, control.id, choices.*control.flag ? BST_CHECKED : BST_UNCHECKED);
    CheckDlgButton(dialog, IDC_OPTIONS_SCALE_75, choices.boardScale == 75 ? BST_CHECKED : BST_UNCHECKED);
    CheckDlgButton(dialog, IDC_OPTIONS_SCALE_100, choices.boardScale == 75 ? BST_UNCHECKED : BST_CHECKED);
    pending.background = choices.background;
    pending.ink = choices.ink;
    pending.skinRow = choices.skinRow;
    SendDlgItemMessageA(dialog, IDC_OPTIONS_SKINS, LB_SETCURSEL, choices.skinRow, 0);
}

// The choices as the controls and the pending state hold them.
OptionsChoices ReadChoices(HWND dialog) {
    OptionsChoices choices = DefaultChoices();
    for (const FlagControl& control : flagControls)
        choices.*control.flag = IsDlgButtonChecked(dialog, control.id) == BST_CHECKED ? 1 : 0;
    choices.boardScale = IsDlgButtonChecked(dialog, IDC_OPTIONS_SCALE_75) == BST_CHECKED ? 75 : 100;
    choices.background = pending.background;
    choices.ink = pending.ink;
    choices.skinRow = pending.skinRow;
    return choices;
}

// The swatches are made anew and the dialog is drawn again; its controls too, since the erase
// of the dialog's background may cover a group box that would otherwise not repaint.
void ShowPendingColours(HWND dialog) {
    MakeColourSwatches(dialog);
    RedrawWindow(dialog, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

// Fills the dialog from the settings and opens the preview on the chosen skin.
void OnInitDialog(HWND dialog) {
    FillSkinList(dialog);
    ShowChoices(dialog, ChoicesFromSettings(displaySettings, InitialSkinListRow(dialog)));
    CreateSkinPreview(dialog);
    MakeColourSwatches(dialog);
}

// OK and Apply: the settings take the choices, and the window shows them at once: the list
// shows or hides, the window takes the size of the scale, and the skin is loaded anew.
void ApplyOptions(HWND dialog) {
    const COLORREF formerBackground = displaySettings.backgroundColor;
    ApplyChoices(ReadChoices(dialog), SkinListRowText(dialog, pending.skinRow), displaySettings);
    ShowWindow(shellState.movesListWindow, displaySettings.showMovesList ? SW_SHOW : SW_HIDE);
    LayoutMainWindow();
    if (displaySettings.backgroundColor != formerBackground) {
        DeleteObject(shellState.backgroundBrush);
        shellState.backgroundBrush = CreateSolidBrush(displaySettings.backgroundColor);
    }
    LoadSelectedSkin(dialog, skinImages.skinFull, skinImages.skinFullDc);
    ScaleSkinToHalf(skinImages.skinFullDc, skinImages.skinHalfDc);
    ScaleSkinToThreeQuarter(skinImages.skinFullDc, skinImages.skinThreeQuarterDc);
    InvalidateRect(shellState.mainWindow, nullptr, TRUE);
    // The list is a window of its own: its rows take the new colours only when it repaints too.
    InvalidateRect(shellState.movesListWindow, nullptr, TRUE);
    // The preview's frame shows the live background colour.
    InvalidateRect(GetDlgItem(dialog, IDC_OPTIONS_PREVIEW), nullptr, FALSE);
}

// "Set to default" changes only what the dialog shows, until OK or Apply.
void SetToDefault(HWND dialog) {
    ShowChoices(dialog, DefaultChoices());
    ReloadSkinPreview(dialog);
    ShowPendingColours(dialog);
}

// The colour dialog for one of the two colours, with the fixed custom colours; OK there makes
// it the pending colour.
void ChooseColour(HWND dialog, COLORREF& colour) {
    COLORREF customs[16];
    for (int k = 0; k < 16; ++k)
        customs[k] = CustomColours[k];
    CHOOSECOLORA choice{};
    choice.lStructSize = sizeof choice;
    choice.hwndOwner = dialog;
    choice.lpCustColors = customs;
    choice.Flags = CC_ANYCOLOR;
    if (!ChooseColorA(&choice)) return;
    colour = choice.rgbResult;
    ShowPendingColours(dialog);
}

// "Pick from skin": a colour pair from the empty squares of the selected skin.
void PickColoursFromSkin(HWND dialog) {
    TileSums dark, light;
    SumPreviewSquares(dark, light);
    const PickedColours picked = PickColours(dark, light);
    pending.background = picked.background;
    pending.ink = picked.ink;
    ShowPendingColours(dialog);
}

// A new row of the skin list is shown in the preview.
void OnSkinSelected(HWND dialog) {
    const int row = static_cast<int>(SendDlgItemMessageA(dialog, IDC_OPTIONS_SKINS, LB_GETCURSEL, 0, 0));
    if (row == LB_ERR || row == pending.skinRow) return;
    pending.skinRow = row;
    ReloadSkinPreview(dialog);
}

// Runs the dialog's buttons and the skin list's selection.
void OnDialogCommand(HWND dialog, int id, int notification) {
    switch (id) {
    case IDOK:
        ApplyOptions(dialog);
        EndDialog(dialog, 0);
        break;
    case IDC_OPTIONS_APPLY: ApplyOptions(dialog); break;
    case IDCANCEL: EndDialog(dialog, 0); break;
    case IDC_OPTIONS_DEFAULT: SetToDefault(dialog); break;
    case IDC_OPTIONS_BACKGROUND: ChooseColour(dialog, pending.background); break;
    case IDC_OPTIONS_INK: ChooseColour(dialog, pending.ink); break;
    case IDC_OPTIONS_PICK: PickColoursFromSkin(dialog); break;
    case IDC_OPTIONS_SKINS:
        if (notification == LBN_SELCHANGE) OnSkinSelected(dialog);
        break;
    default: break;
    }
}

// Releases the preview and the swatches.
void OnDestroy() {
    DeleteSkinPreview();
    for (HBITMAP& swatch : pending.swatches) {
        if (swatch != nullptr) DeleteObject(swatch);
        swatch = nullptr;
    }
}

// The dialog's messages: opening, its buttons and list, the preview's paint and closing.
INT_PTR CALLBACK OptionsDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: OnInitDialog(dialog); return TRUE;
    case WM_COMMAND: OnDialogCommand(dialog, LOWORD(wParam), HIWORD(wParam)); return TRUE;
    case WM_DRAWITEM:
        if (wParam != IDC_OPTIONS_PREVIEW) return FALSE;
        PaintSkinPreview(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        return TRUE;
    case WM_DESTROY: OnDestroy(); return TRUE;
    default: return FALSE;
    }
}

} // namespace

void ShowOptionsDialog() {
    DialogBoxParamA(shellState.instance, MAKEINTRESOURCEA(IDD_OPTIONS), shellState.mainWindow,
                    OptionsDialogProc, 0);
}
