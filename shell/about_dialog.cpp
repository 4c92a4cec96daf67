// The About dialog: logo, version and credits, closed by OK or Esc.
#include <windows.h>

#include "resource.h"
#include "shell/shell_parts.h"
#include "shell/shell_state.h"

namespace {

// Nothing to set up; OK or Esc closes the dialog.
INT_PTR CALLBACK AboutDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_INITDIALOG) return TRUE;
    if (message == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)) {
        EndDialog(dialog, LOWORD(wParam));
        return TRUE;
    }
    return FALSE;
}

} // namespace

// Shows the About dialog over the main window until it is closed.
void ShowAboutDialog() {
    DialogBoxParamA(shellState.instance, MAKEINTRESOURCEA(IDD_ABOUT), shellState.mainWindow, AboutDialogProc,
                    0);
}
