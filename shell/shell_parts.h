// Operations of the shell that several of its files share: settings, skins, dialogs and the
// moves list control.
#pragma once

#include <windows.h>

#include "records/text.h"

// settings_io.cpp
void MakeUserTag();
void ReadSettings(const char* path);
void WriteSettings();
// The settings file's full name in the current folder.
Text SettingsPath();

// skins.cpp
void LoadSkin(HBITMAP& target, int number, const Text& fileName);
void ScaleSkinToHalf(HDC source, HDC target);
void ScaleSkinToThreeQuarter(HDC source, HDC target);
void CreateSkinImages();
void DeleteSkinImages();

// Dialogs, each in its own file.
void ShowAboutDialog();
void ShowNewGameDialog();
INT_PTR ShowPromotionDialog(int colour);
// True when a name was accepted; it then stands in `name`.
bool ShowSaveNameDialog(Text& name, const char* title);
LRESULT CALLBACK NameEditProc(HWND edit, UINT message, WPARAM wParam, LPARAM lParam);
// Subclasses `edit` with NameEditProc.
void SubclassNameEdit(HWND edit);
void SyncSideControls(HWND dialog);
// Loads a game (kind 0) or a position (kind 1) chosen from the folder Save.
void ShowLoadDialog(int kind);
// load_preview.cpp: the Load dialog's owner-drawn preview pane.
void PaintLoadPreview(const DRAWITEMSTRUCT& drawItem);

// commands.cpp
bool FileExists(const char* path);
