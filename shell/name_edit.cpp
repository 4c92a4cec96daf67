// The edit of a player's name or a file name, which refuses the characters that a Windows file
// name cannot hold, so that every name can become part of a file name.
#include <windows.h>

#include "shell/name_rules.h"
#include "shell/shell_parts.h"

namespace {

// The edit procedure that NameEditProc hands everything else to; all edits share it.
WNDPROC formerEditProc = nullptr;

} // namespace

// Swallows the refused characters and hands everything else to the edit.
LRESULT CALLBACK NameEditProc(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CHAR && IsRefusedInName(static_cast<std::uint32_t>(wParam))) return 0;
    return CallWindowProcA(formerEditProc, edit, message, wParam, lParam);
}

// Makes `edit` refuse the characters a file name cannot hold.
void SubclassNameEdit(HWND edit) {
    const LONG_PTR former = SetWindowLongPtrA(edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(NameEditProc));
    formerEditProc = reinterpret_cast<WNDPROC>(former);
}
