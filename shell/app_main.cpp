// The program's entry: one copy only, the window class, the main window and the message loop.
#include <windows.h>

#include "resource.h"
#include "shell/main_window.h"
#include "shell/shell_state.h"

ShellState shellState;
SkinImages skinImages;

namespace {

// When a copy of the program is already running, brings its window forward and says so.
bool ActivateRunningCopy() {
    const HWND running = FindWindowA(shellState.windowClassName, nullptr);
    if (running == nullptr) return false;
    if (IsIconic(running)) ShowWindow(running, SW_RESTORE);
    SetForegroundWindow(running);
    return true;
}

} // namespace

// Registers the class of the main window; the paint covers the client area, so no brush.
ATOM RegisterMainClass(HINSTANCE instance) {
    WNDCLASSEXA windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.style = CS_HREDRAW | CS_VREDRAW;
    windowClass.lpfnWndProc = MainWindowProc;
    windowClass.hInstance = instance;
    windowClass.hIcon = LoadIconA(instance, MAKEINTRESOURCEA(IDI_VELOK3));
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    windowClass.lpszMenuName = MAKEINTRESOURCEA(IDM_MAIN_MENU);
    windowClass.lpszClassName = shellState.windowClassName;
    return RegisterClassExA(&windowClass);
}

// Creates and shows the main window; false when it could not be made.
bool CreateMainWindow(HINSTANCE instance, int showCommand) {
    shellState.instance = instance;
    const HWND window =
        CreateWindowExA(0, shellState.windowClassName, shellState.windowTitle,
                        WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_MAXIMIZEBOX, CW_USEDEFAULT,
                        CW_USEDEFAULT, 800, 600, nullptr, nullptr, instance, nullptr);
    if (window == nullptr) return false;
    ShowWindow(window, showCommand);
    UpdateWindow(window);
    return true;
}

// Runs the program: the exit code of the message loop, or 0 when it ends early.
int AppMain(HINSTANCE instance, HINSTANCE, LPSTR, int showCommand) {
    LoadStringA(instance, IDS_WINDOW_TITLE, shellState.windowTitle, sizeof shellState.windowTitle);
    LoadStringA(instance, IDS_WINDOW_CLASS, shellState.windowClassName, sizeof shellState.windowClassName);
    if (ActivateRunningCopy()) return 0;
    if (!RegisterMainClass(instance) || !CreateMainWindow(instance, showCommand)) return 0;
    MSG message{};
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return static_cast<int>(message.wParam);
}

int WINAPI WinMain(HINSTANCE instance, HINSTANCE previous, LPSTR commandLine, int showCommand) {
    return AppMain(instance, previous, commandLine, showCommand);
}
