// What the scenarios of the end-to-end driver are written with: the report, pictures of the
// screen, the board as the program draws it, and the program, driven as a user would drive it.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "resources/resource.h"
#include "shell/board_geometry.h"

namespace e2e {

// Limits of the waits in milliseconds.
constexpr int ShortWait = 3000, ComputerWait = 60000, PaintPause = 300;
constexpr COLORREF DefaultBackground = RGB(128, 128, 128), DefaultInk = RGB(255, 255, 255);
constexpr const char* StartPlacement = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR";

// One PASS or FAIL line per check, a screenshot per failure; Abort ends the driver and, by the
// job object, the program.
bool Check(bool ok, const std::string& what, const std::string& detail = "");
[[noreturn]] void Abort(const std::string& what, const std::string& detail = "");
extern std::string shotFolder;
extern int failedChecks;

// 24-bit pixels, blue, green, red, in rows top down padded to four bytes as GDI has them.
struct Image {
    int width = 0, height = 0;
    std::vector<unsigned char> bgr;
    COLORREF Pixel(int x, int y) const;
};
Image CaptureScreen(const RECT& area);
Image CaptureWindow(HWND window, bool whole = false); // the client area unless whole
bool SaveBmp(const Image& image, const std::string& path);
int PixelsNear(const Image& image, const RECT& area, COLORREF colour, int tolerance = 0);
int PixelsDiffering(const Image& a, int ax, int ay, const Image& b, int bx, int by, int width, int height);
Image LoadSkin(int number, int tileSize);    // stock skin `number` of velok3.exe, scaled as the program does
int PanelTextWidth(const std::string& text); // in the face the panel asks for by name

// The board on the screen, drawn from a skin whose tile row is the piece (empty, then pawn to king)
// and column the square's look. A placement is a FEN field or its 64 squares, rank 8 first.
struct Board {
    Image skin;
    int tileSize = 64;
    bool whiteOnTop = false;
    int origin = BoardOrigin;

    POINT Centre(const std::string& square) const;
    bool Shows(const Image& shot, const std::string& square, char piece, int column = -1) const; // -1: plain
    // The squares not showing `placement` on plain tiles, or on last-move tiles for those of
    // `lastMove` ("e2e4"), as "a1 b1 ...".
    std::string Differing(const Image& shot, const std::string& placement,
                          const std::string& lastMove = "") const;
};
std::string AfterMoves(const std::string& placement, const std::string& moves); // plain moves, "e2e4 e7e5"

std::string ReadWholeFile(const std::string& path);
void WriteWholeFile(const std::string& path, const std::string& bytes);
std::vector<std::string> FilesMatching(const std::string& pattern); // sorted, folders with a slash
std::string Join(const std::vector<std::string>& items);

enum Side : int { Computer = 0, Human = 1 };
enum Level : int { Easy = 0, Normal = 1 };

class Program {
  public:
    void Start();            // of the current folder, in a job
    DWORD StartSecondCopy(); // its exit code, once it has ended by itself
    HWND window = nullptr, list = nullptr;
    HANDLE process = nullptr;

    // Polls `done`; aborts when the program ends or shows a dialog not waited for nor `allowed`.
    bool WaitUntil(const std::function<bool()>& done, int limit = ShortWait, const char* allowed = nullptr);
    bool WaitForScreen(const std::function<bool(const Image&)>& shows, Image* last = nullptr);
    // Waits for `board` to show `placement`, its last move and no other square marked but those
    // of `marked` ("e8 d1", rank 8 first), and checks that it does as `what`.
    bool ExpectBoard(const Board& board, const std::string& placement, const std::string& what,
                     const std::string& lastMove = "", const std::string& marked = "");
    Image Client() const { return CaptureWindow(window); }

    void Command(int id) const { PostMessageA(window, WM_COMMAND, id, 0); }
    void Click(POINT at, UINT message = WM_LBUTTONUP) const {
        PostMessageA(window, message, 0, MAKELPARAM(at.x, at.y));
    }
    void Key(WPARAM key) const { PostMessageA(window, WM_KEYDOWN, key, 1); }

    HWND WaitForDialog(const char* title);
    void Press(HWND dialog, int id, bool closes = true);
    void Answer(const std::string& text, int button = IDOK); // the message box "Velok-3"
    void SetText(HWND dialog, int id, const std::string& text);
    bool Checked(HWND dialog, int id);
    void SetChecked(HWND dialog, int id, bool checked);
    void ChooseRow(HWND dialog, int id, int row); // in a drop-down or list, notified as a click

    // The rows of the moves list or another list box.
    std::vector<std::string> Rows(HWND listBox = nullptr);
    int SelectedRow();
    bool WaitForRows(int count, int limit = ShortWait);
    void ClickRow(int row);

    // Fills in the New game dialog ("Alice", "Bob") and starts, or gives the dialog.
    HWND NewGame(Side white, Side black, Level level = Easy, bool start = true);
    void Play(const Board& board, const std::string& moves); // two clicks and a new row each
    // In set-up: a palette row, then squares ("e1 h1") by the play button for White, the other for Black.
    void Place(const Board& board, int paletteRow, const std::string& white, const std::string& black = "");
    void SaveAs(const char* title, const std::string& name, const char* saved); // the name dialog

    // Closes the window or uses a menu command, answering No when asked to save; the exit code.
    DWORD Close(bool asksToSave, int command = 0);
    DWORD WaitForExit();

  private:
    HANDLE job = nullptr;
    std::vector<HWND> expected;
};

void StartUp();
void HumanPlay();
void AgainstComputer();
void GameAndPositionFiles();
void SetUpAndAnalyse();
void Options();
void ReleaseFolder();
void ManualPictures();

} // namespace e2e
