// Every resource id of the program: menus and commands (IDM_), dialogs (IDD_), controls (IDC_),
// bitmaps (IDB_), the icon (IDI_) and strings (IDS_). Shared by the .rc file and the shell.
#pragma once

// Strings.
#define IDS_WINDOW_TITLE 103
#define IDS_WINDOW_CLASS 109

// The menu and its commands.
#define IDM_MAIN_MENU 109
#define IDM_ABOUT 104
#define IDM_EXIT 105
#define IDM_OPTIONS 32771
#define IDM_GAME_SAVE 32772
#define IDM_GAME_LOAD 32773
#define IDM_GAME_NEW 32774
#define IDM_USER_MANUAL 32776
#define IDM_POSITION_LOAD 32779
#define IDM_POSITION_SAVE 32780
#define IDM_POSITION_SET 32781
#define IDM_WEB_SITE 32783

// Dialogs.
#define IDD_ABOUT 103
#define IDD_PROMOTION 129
#define IDD_OPTIONS 132
#define IDD_LOAD 145
#define IDD_NEW_GAME 146
#define IDD_SAVE_NAME 152

// Controls. The moves list is a child of the main window; the promotion buttons carry the code
// of their piece.
#define IDC_MOVES_LIST 110
#define IDC_PROMOTE_KNIGHT 2
#define IDC_PROMOTE_BISHOP 3
#define IDC_PROMOTE_ROOK 4
#define IDC_PROMOTE_QUEEN 5
#define IDC_WHITE_TYPE 1014
#define IDC_WHITE_NAME 1015
#define IDC_BLACK_TYPE 1016
#define IDC_BLACK_NAME 1017
#define IDC_AI_LEVEL 1019
#define IDC_WHITE_PICTURE 1025
#define IDC_BLACK_PICTURE 1026
#define IDC_SAVE_NAME 1017
// The Load dialog: list of files, preview pane and the Delete button.
#define IDC_LOAD_DELETE 3
#define IDC_LOAD_LIST 1012
#define IDC_LOAD_PREVIEW 1013

// The Options dialog: the OK, Cancel, colour and Apply buttons keep the small ids of its layout.
#define IDC_OPTIONS_BACKGROUND 3
#define IDC_OPTIONS_INK 4
#define IDC_OPTIONS_PICK 5
#define IDC_OPTIONS_APPLY 7
#define IDC_OPTIONS_DEFAULT 9
#define IDC_OPTIONS_LEGAL_MOVE 1005
#define IDC_OPTIONS_LAST_MOVE 1006
#define IDC_OPTIONS_CHECK 1007
#define IDC_OPTIONS_AI_PROGRESS 1008
#define IDC_OPTIONS_BEEP 1009
#define IDC_OPTIONS_PREVIEW 1010
#define IDC_OPTIONS_SKINS 1011
#define IDC_OPTIONS_WHITE_ON_TOP 1012
#define IDC_OPTIONS_COORDINATES 1013
#define IDC_OPTIONS_MOVES_LIST 1014
#define IDC_OPTIONS_SCALE_75 1018
#define IDC_OPTIONS_SCALE_100 1019
#ifndef IDC_STATIC
#define IDC_STATIC (-1)
#endif

// Bitmaps and the icon. The seven stock skins take consecutive ids from IDB_SKIN_FIRST.
#define IDB_SKIN_FIRST 133
#define IDB_SKIN_BOOK 133
#define IDB_SKIN_CLASSIC 134
#define IDB_SKIN_OLD 135
#define IDB_SKIN_BRIGHT 136
#define IDB_SKIN_MODERN 137
#define IDB_SKIN_DESK 138
#define IDB_SKIN_CLEAR 139
#define IDB_ABOUT_LOGO 149
#define IDI_VELOK3 165
