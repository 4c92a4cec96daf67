// Steps of the scenarios about game and position files: the Save commands with the name dialog,
// the Load dialog's list, buttons and preview, and texts drawn as the program draws them.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "board_view.h"
#include "image.h"
#include "program.h"

namespace e2e {

// Menu commands and controls of the file dialogs.
enum FileId : int {
    CommandGameSave = 32772,
    CommandGameLoad = 32773,
    CommandPositionLoad = 32779,
    CommandPositionSave = 32780,
    LoadButtonId = 1,
    CancelButtonId = 2,
    DeleteButtonId = 3,
    FileListId = 1012,
    PreviewId = 1013,
    SaveNameId = 1017,
};

// Answers the open save-name dialog with `name` and OK, then the message that follows.
void AnswerSaveName(Program& program, const char* title, const char* name, const char* savedMessage);

// Opens the Load dialog by its menu command; gives the dialog, whose title must be `title`.
HWND OpenLoadDialog(Program& program, int command, const char* title);

// The rows of the Load dialog's file list.
std::vector<std::string> FileRows(HWND dialog);

// Selects row `row` of the file list as a click would, and waits for the pane to be repainted.
void SelectFile(HWND dialog, int row);

// Double clicks the selected row, as the list reports it.
void DoubleClickFile(HWND dialog);

// Whether Load and Delete can be pressed, as "LD", "L-", "-D" or "--".
std::string LoadButtonLook(HWND dialog);

// The preview pane as it is on the screen.
Image CapturePreview(HWND dialog);

// The skin at half size as the program makes it, for the preview's tiles.
Image HalfSkin(const char* exePath);

// The squares of the pane whose tiles differ from `placement`, drawn from White's side, as
// "a1 b1 ...".
std::string PreviewSquaresDiffering(const Image& pane, const Image& halfSkin, const Placement& placement);

// `text` drawn in the panel's font, centred on one line in a `width` by `height` area filled
// with the default background, in the default ink.
Image DrawnText(const std::string& text, int width, int height);

// How many pixels of an area of `shown` at (x, y) differ from `expected` of the same size, in
// the first `rows` rows (all of them for -1).
int PixelsDiffering(const Image& shown, int x, int y, const Image& expected, int rows = -1);

// Whether the pane shows the status `text` in place of a board, waiting a little for it.
bool PreviewShowsStatus(HWND dialog, const std::string& text);

// Waits a little for the pane to show the board of `placement`; gives the last capture.
Image WaitForPreviewBoard(HWND dialog, const Image& halfSkin, const Placement& placement);

// A clock's text, "HH:MM:SS", of a count of seconds.
std::string ClockText(int seconds);

// The clock written in a game file behind `marker` ("TIME WHITE SIDE = "), in seconds; -1 when
// it is not there.
int FileClock(const std::string& file, const std::string& marker);

// The names of the files in the folder Save matching `pattern` ("*.pgn").
std::vector<std::string> SavedFiles(const char* pattern);

} // namespace e2e
