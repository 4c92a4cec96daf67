// What the scenarios of the end-to-end driver are written with: the report, pictures of the screen, the board
// as the program draws it, and the program, driven as a user would drive it.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "resources/resource.h"
#include "shell/board_geometry.h"

namespace e2e {

// Waits in milliseconds; the height of the moves list's rows in pixels.
constexpr int ShortWait = 3000, ComputerWait = 60000, PaintPause = 300, ListRowHeight = 25;
constexpr COLORREF DefaultBackground = RGB(128, 128, 128), DefaultInk = RGB(255, 255, 255);
constexpr const char* SaveGame = "Save current game?";
constexpr const char* StartPlacement = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR";

// One PASS or FAIL line per check, a screenshot per failure; Abort ends the driver, and the program with it.
bool Check(bool ok, const std::string& what, const std::string& detail = "");
[[noreturn]] void Abort(const std::string& what, const std::string& detail = "");
extern std::string shotFolder;
extern int failedChecks;

// 24-bit pixels, blue, green, red, in rows top down padded to four bytes as GDI has them.
struct Image {
    int width = 0, height = 0;
    std::vector<unsigned char> bgr;
    COLORREF Pixel(int x, int y) const;
    static int RowBytes(int width) { return (width * 3 + 3) & ~3; }
};
Image CaptureScreen(const RECT& area);
Image CaptureWindow(HWND window, bool whole = false); // the client area unless whole
bool SaveBmp(const Image& image, const std::string& path);
int PixelsNear(const Image& image, const RECT& area, COLORREF colour, int tolerance = 0);
int PixelsDiffering(const Image& a, int ax, int ay, const Image& b, int bx, int by, int width, int height);
Image LoadSkin(int number, int tileSize); // stock skin `number` of velok3.exe, scaled as the program does

// The board on the screen, drawn from a skin whose tile row is the piece (empty, then pawn to king) and
// column the square's look. A placement is a FEN field or its 64 squares, rank 8 first.
struct Board {
    Image skin;
    int tileSize = 64;
    bool whiteOnTop = false;
    int origin = BoardOrigin;

    POINT Centre(const std::string& square) const;
    bool Shows(const Image& shot, const std::string& square, char piece, int column = -1) const; // -1: plain
    // The squares ("a1 b1") not showing `placement`, on last-move tiles for those of `lastMove` ("e2e4").
    std::string Differing(const Image& shot, const std::string& placement,
                          const std::string& lastMove = "") const;
};
std::string AfterMoves(const std::string& placement, const std::string& moves); // plain moves, "e2e4 e7e5"

std::string ReadWholeFile(const std::string& path);
std::vector<std::string> FilesMatching(const std::string& pattern); // sorted, folders with a slash
std::string Join(const std::vector<std::string>& items);

// A send with a time limit: a hung program fails the run instead of holding it.
LRESULT Send(HWND target, UINT message, WPARAM wParam, LPARAM lParam, bool wide = false);

enum Side : int { Computer = 0, Human = 1 };
enum Level : int { Easy = 0, Normal = 1 };
enum Palette : int { PalettePawn = 0, PaletteRook = 3, PaletteKing = 5, PaletteWhiteMove = 7, PaletteBlack };

class Program {
  public:
    Program();               // starts velok3.exe of the current folder, in a job, and waits for its window
    DWORD StartSecondCopy(); // its exit code, once it has ended by itself
    HWND window = nullptr, list = nullptr;
    HANDLE process = nullptr;

    // Polls `done`; aborts when the program ends or shows a dialog not waited for nor `allowed`.
    bool WaitUntil(const std::function<bool()>& done, int limit = ShortWait, const char* allowed = nullptr);
    bool WaitForScreen(const std::function<bool(const Image&)>& shows, Image* last = nullptr);
    // Checks as `what` that `board` comes to show `placement`, `lastMove`, and other marks on `marked` only.
    bool ExpectBoard(const Board& board, const std::string& placement, const std::string& what,
                     const std::string& lastMove = "", const std::string& marked = "");
    Image Client() const { return CaptureWindow(window); }
    void Command(int id) const { PostMessageA(window, WM_COMMAND, id, 0); }
    void Click(POINT at, UINT message = WM_LBUTTONUP) const {
        PostMessageA(window, message, 0, MAKELPARAM(at.x, at.y));
    }
    HWND WaitForDialog(const char* title, int command = 0); // opened by the menu command, if given
    void Press(HWND dialog, int id, bool closes = true);
    void Answer(const std::string& text, int button = IDOK); // the message box "Velok-3"
    void SetText(HWND dialog, int id, const std::string& text) const {
        Send(GetDlgItem(dialog, id), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }
    void SetChecked(HWND dialog, int id, bool on) const { // read when a button takes the boxes over
        Send(GetDlgItem(dialog, id), BM_SETCHECK, on ? BST_CHECKED : BST_UNCHECKED, 0);
    }
    void ChooseRow(HWND dialog, int id, int row);          // in a drop-down or list, notified as a click
    std::vector<std::string> Rows(HWND listBox = nullptr); // of the moves list unless given
    int SelectedRow() const { return static_cast<int>(Send(list, LB_GETCURSEL, 0, 0)); }
    bool WaitForRows(int count, int limit = ShortWait);
    void ClickRow(int row);
    // Fills in the New game dialog ("Alice", "Bob") and starts, or gives the dialog.
    HWND NewGame(Side white, Side black, Level level = Easy, bool start = true);
    void Play(const Board& board, const std::string& moves); // two clicks and a new row each
    // In set-up: a palette row, then squares ("e1 h1") by the play button for White, the other for Black.
    void Place(const Board& board, int paletteRow, const std::string& white, const std::string& black = "");
    void SaveAs(int command, const char* title, const std::string& name, const char* saved);
    // Closes the window or uses a menu command, answering No to `asks`; the exit code.
    DWORD Close(const char* asks = nullptr, int command = 0);

  private:
    HANDLE job = nullptr;
    std::vector<HWND> expected;
};

// The scenarios, run by name from main.cpp, and the manual's pictures.
void StartUp(), HumanPlay(), AgainstComputer(), GameAndPositionFiles(), SetUpAndAnalyse(), Options(),
    ReleaseFolder(), ManualPictures();

} // namespace e2e
