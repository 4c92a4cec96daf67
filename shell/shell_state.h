// The shell's records: window handles, font, brush and the moves list's rectangle (ShellState),
// and the current skin at its three sizes (SkinImages). One instance each, alive with the window.
#pragma once

#include <windows.h>

struct ShellState {
    HINSTANCE instance = nullptr;
    HWND mainWindow = nullptr;
    char windowClassName[100] = "";
    char windowTitle[100] = "";
    HWND movesListWindow = nullptr;
    HFONT panelFont = nullptr;
    HBRUSH backgroundBrush = nullptr;
    int listLeft = 552, listTop = 148, listWidth = 128, listHeight = 256;
    UINT playButtonMessage = WM_LBUTTONUP;
};

struct SkinImages {
    HBITMAP skinFull = nullptr;
    HDC skinFullDc = nullptr;
    HBITMAP skinThreeQuarter = nullptr;
    HDC skinThreeQuarterDc = nullptr;
    HBITMAP skinHalf = nullptr;
    HDC skinHalfDc = nullptr;
};

extern ShellState shellState;
extern SkinImages skinImages;

// Timer ids of the main window.
enum ShellTimer : UINT_PTR { TickTimer = 1, ClockTimer = 2 };
