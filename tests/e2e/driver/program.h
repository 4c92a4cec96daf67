// The program under test as a user meets it: started from the current folder inside a job that
// dies with the driver, driven by posted clicks and commands, watched through its windows.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "image.h"

namespace e2e {

// Limits of the waits, in milliseconds. A computer move at the normal level may take seconds.
constexpr int ShortWait = 3000;
constexpr int ComputerWait = 60000;

// Ids of the program's commands and controls.
enum ProgramId : int {
    CommandAbout = 104,
    CommandExit = 105,
    CommandNewGame = 32774,
    MovesListId = 110,
    MessageTextId = 0xFFFF,
};

enum ButtonEffect : bool { KeepsOpen = false, ClosesDialog = true };
enum SaveQuestion : bool { AsksNothing = false, AsksToSave = true };

class Program {
  public:
    // Starts velok3.exe of the current folder and waits for its main window. `label` names the
    // run in messages.
    void Start(const char* label = "velok3.exe");

    // Starts another copy of velok3.exe and waits for it to end; gives its exit code.
    DWORD StartSecondCopy();

    HWND Window() const { return window; }
    DWORD ProcessId() const { return processId; }

    // Polls `done` in 10 ms steps up to `limit` ms. Stops the scenario when the program has ended
    // or shows a dialog that it has not waited for and whose title is not `allowedDialog`.
    bool WaitUntil(const std::function<bool()>& done, int limit, const char* allowedDialog = nullptr);

    // Posts a release of the play button at client (x, y); `message` may be WM_RBUTTONUP.
    void Click(int x, int y, UINT message = WM_LBUTTONUP);

    // Posts a menu command. Posting keeps the driver free when the command opens a modal dialog.
    void Command(int id);

    // Waits for the visible dialog of this program with the given title; stops the scenario when
    // it does not come.
    HWND WaitForDialog(const char* title, int limit = ShortWait);

    // The visible dialog with this title, or null.
    HWND FindDialog(const char* title) const;

    // Waits for the message box "Velok-3", checks its text and answers it with `button`.
    void ExpectMessage(const std::string& text, int button, int limit = ShortWait);

    // Presses a button of a dialog by posting its BN_CLICKED, and waits for the dialog to close
    // when the button should close it.
    void PressButton(HWND dialog, int id, ButtonEffect effect);

    // Sets the text of a dialog's control.
    void SetText(HWND dialog, int id, const char* text);

    // True when a control of the dialog shows exactly this text.
    bool DialogShows(HWND dialog, const std::string& text) const;

    // The text of a window or of a dialog's control.
    std::string TextOf(HWND window) const;
    std::string ControlText(HWND dialog, int id) const { return TextOf(GetDlgItem(dialog, id)); }

    // Selects row `row` of a drop-down list and notifies the dialog as a user's choice would.
    void ChooseRow(HWND dialog, int id, int row);

    // The rows of the moves list, read across the process boundary.
    std::vector<std::string> Rows() const;

    // Waits until the moves list holds `count` rows.
    bool WaitForRows(int count, int limit);

    // Opens the menu of the bar entry with this mnemonic letter, reads which of its `entries`
    // text rows are greyed, top to bottom, and closes it again. Empty when it could not be read.
    std::vector<bool> MenuEntriesGreyed(char mnemonic, int entries);

    // The client area's size.
    SIZE ClientSize() const;

    // Copies the client area as it is on the screen.
    Image CaptureClient() const;

    // Closes the main window; when the question about saving is expected, checks it and answers
    // No. Returns the exit code after the program has ended.
    DWORD Close(SaveQuestion question);

    // Waits for the program to end by itself and gives its exit code.
    DWORD WaitForExit(int limit);

  private:
    // The visible dialogs (class #32770) of this program.
    std::vector<HWND> Dialogs() const;

    // True for a dialog that the scenario has waited for and that is still open.
    bool Expected(HWND dialog);

    // Stops the scenario with a description of an unexpected dialog.
    [[noreturn]] void AbortOnDialog(HWND dialog) const;

    HANDLE job = nullptr;
    HANDLE process = nullptr;
    DWORD processId = 0;
    HWND window = nullptr;
    HWND list = nullptr;
    std::string label;
    std::vector<HWND> expectedDialogs;
};

// The text of any window of the program, read by a send with a time limit.
std::string WindowText(HWND window);

// The text of a message box, with its line breaks as \n.
std::string MessageBoxText(HWND box);

} // namespace e2e
