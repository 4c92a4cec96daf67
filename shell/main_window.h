// The main window: its procedure and the handlers it calls, each defined in the file of its
// concern (creation, commands, timers, paint, mouse, layout, the moves list's rows).
#pragma once

#include <windows.h>

LRESULT CALLBACK MainWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// main_window_create.cpp
void OnMainWindowCreate(HWND window);
void OnMainWindowDestroy();

// commands.cpp: false when the id is not one of the program's commands.
bool OnCommand(WPARAM wParam);
void UpdateMenuState();

// timers.cpp
void OnTickTimer();
void OnClockTimer();
// The rectangle of the clock of `colour`, 32 pixels high, which the paint recognises.
RECT ClockRect(int colour);

// layout.cpp
void LayoutMainWindow();

// paint.cpp
void PaintMainWindow(HWND window);

// moves_list_row.cpp
void DrawMovesListRow(const DRAWITEMSTRUCT& drawItem);

// mouse.cpp
void OnBoardClick(UINT message, LPARAM lParam);

// list_navigation.cpp: a notification code of the moves list, outside set-position mode.
void OnMovesListNotify(WORD code);
