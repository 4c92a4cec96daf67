// The dialog that asks for the name of a game or position file, proposing one to accept.
#include <windows.h>

#include "resource.h"
#include "shell/shell_parts.h"
#include "shell/shell_state.h"

namespace {

struct SaveNameRequest {
    Text* name;
    const char* title;
};

// Shows the title and the proposed name, all of it selected, in a guarded edit.
void OnInitDialog(HWND dialog, const SaveNameRequest& request) {
    SetWindowTextA(dialog, request.title);
    SetDlgItemTextA(dialog, IDC_SAVE_NAME, request.name->Chars());
    SubclassNameEdit(GetDlgItem(dialog, IDC_SAVE_NAME));
    SendDlgItemMessageA(dialog, IDC_SAVE_NAME, EM_SETSEL, 0, -1);
}

// OK with a name keeps it and ends with 0; OK with none says so and ends with 1, like Cancel.
void OnOk(HWND dialog, const SaveNameRequest& request) {
    char name[100] = "";
    GetDlgItemTextA(dialog, IDC_SAVE_NAME, name, sizeof name);
    if (name[0] == 0) {
        MessageBoxA(dialog, "Please enter name", shellState.windowTitle, MB_OK | MB_ICONINFORMATION);
        EndDialog(dialog, 1);
        return;
    }
    *request.name = Text(name);
    EndDialog(dialog, 0);
}

// Keeps the request with the dialog and answers OK and Cancel.
INT_PTR CALLBACK SaveNameDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrA(dialog, DWLP_USER, lParam);
        OnInitDialog(dialog, *reinterpret_cast<const SaveNameRequest*>(lParam));
        // The focus goes to the edit, whose text is selected.
        SetFocus(GetDlgItem(dialog, IDC_SAVE_NAME));
        return FALSE;
    }
    if (message != WM_COMMAND) return FALSE;
    const auto* request = reinterpret_cast<const SaveNameRequest*>(GetWindowLongPtrA(dialog, DWLP_USER));
    if (LOWORD(wParam) == IDOK) OnOk(dialog, *request);
    if (LOWORD(wParam) == IDCANCEL) EndDialog(dialog, 1);
    return TRUE;
}

} // namespace

// Asks for the file name under `title`, proposing `name`.
bool ShowSaveNameDialog(Text& name, const char* title) {
    SaveNameRequest request{&name, title};
    return DialogBoxParamA(shellState.instance, MAKEINTRESOURCEA(IDD_SAVE_NAME), shellState.mainWindow,
                           SaveNameDialogProc, reinterpret_cast<LPARAM>(&request)) == 0;
}
