// Scenarios of the Options dialog and of the release: every choice seen on the board and kept
// across a restart, skin files and colours, and the folder unpacked from the release zip.
#include "e2e.h"

#include <tlhelp32.h>

namespace e2e {

namespace {

// The check boxes of the Options dialog.
constexpr int Boxes[] = {IDC_OPTIONS_LEGAL_MOVE,  IDC_OPTIONS_LAST_MOVE, IDC_OPTIONS_CHECK,
                         IDC_OPTIONS_AI_PROGRESS, IDC_OPTIONS_BEEP,      IDC_OPTIONS_WHITE_ON_TOP,
                         IDC_OPTIONS_COORDINATES, IDC_OPTIONS_MOVES_LIST};
// The colour dialog's edits of red, green and blue.
constexpr int ColourEdits[] = {706, 707, 708};

// Opens the Options dialog, and moves it aside to the screen's right edge, off the board.
HWND OpenOptions(Program& program, bool aside = false) {
    program.Command(IDM_OPTIONS);
    HWND dialog = program.WaitForDialog("Options");
    RECT frame{};
    GetWindowRect(dialog, &frame);
    if (aside)
        SetWindowPos(dialog, nullptr, GetSystemMetrics(SM_CXSCREEN) - 150, frame.top, 0, 0,
                     SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    return dialog;
}

COLORREF Swatch(HWND dialog, int id) {
    const Image button = CaptureWindow(GetDlgItem(dialog, id));
    return button.Pixel(button.width / 2, button.height / 2);
}

// The processes the program started from an exe of this name; ended once seen, for the job
// does not take them along.
bool StartedChild(Program& program, const char* exeName) {
    std::vector<DWORD> children;
    program.WaitUntil(
        [&] {
            HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
            PROCESSENTRY32 entry{};
            entry.dwSize = sizeof entry;
            for (BOOL more = Process32First(snapshot, &entry); more; more = Process32Next(snapshot, &entry))
                if (entry.th32ParentProcessID == GetProcessId(program.process) &&
                    lstrcmpiA(entry.szExeFile, exeName) == 0)
                    children.push_back(entry.th32ProcessID);
            CloseHandle(snapshot);
            return !children.empty();
        },
        2 * ShortWait);
    for (DWORD id : children)
        if (HANDLE child = OpenProcess(PROCESS_TERMINATE, FALSE, id)) {
            TerminateProcess(child, 0);
            CloseHandle(child);
        }
    return !children.empty();
}

} // namespace

void OptionsOnTheBoard() {
    const Board board{LoadSkin(0, 64)}, turned{board.skin, 64, true}, small{LoadSkin(0, 48), 48, true};
    const std::string placement = AfterMoves(StartPlacement, "e2e4 f7f5 d1h5");
    Program program;
    program.Start();
    program.NewGame(Human, Human);
    program.Play(board, "e2e4 f7f5 d1h5");
    program.Click(board.Centre("g7"));
    HWND dialog = OpenOptions(program, true);
    for (int box : Boxes)
        Check(program.Checked(dialog, box) == (box != IDC_OPTIONS_WHITE_ON_TOP),
              "box " + std::to_string(box) + " opens as set");
    // After 1. e4 f5 2. Qh5+ with g7 selected: the last move, the king in check, the selected pawn
    // and its target; each choice off alone takes its own marks away.
    const struct {
        int box;
        const char* marked;
    } marks[] = {{0, "e8 g7 g6 h5 d1"},
                 {IDC_OPTIONS_LEGAL_MOVE, "e8 g7 h5 d1"},
                 {IDC_OPTIONS_LAST_MOVE, "e8 g7 g6"},
                 {IDC_OPTIONS_CHECK, "g7 g6 h5 d1"}};
    for (const auto& mark : marks) {
        if (mark.box) program.SetChecked(dialog, mark.box, false);
        program.Press(dialog, IDC_OPTIONS_APPLY, false);
        program.ExpectBoard(board, placement, std::string("marked: ") + mark.marked, "", mark.marked);
        if (mark.box) program.SetChecked(dialog, mark.box, true);
    }
    program.SetChecked(dialog, IDC_OPTIONS_COORDINATES, false);
    program.SetChecked(dialog, IDC_OPTIONS_MOVES_LIST, false);
    program.SetChecked(dialog, IDC_OPTIONS_WHITE_ON_TOP, true);
    program.Press(dialog, IDC_OPTIONS_APPLY, false);
    program.ExpectBoard(turned, placement, "White on top turns the board with its marks", "",
                        marks[0].marked);
    Check(PixelsNear(program.Client(), {0, 20, 20, 532}, DefaultBackground) == 20 * 512, "Coordinates off");
    Check(!IsWindowVisible(program.list) && program.Client().Pixel(551, 200) == DefaultBackground,
          "Moves list off hides the list and its frame");
    program.SetChecked(dialog, IDC_OPTIONS_SCALE_100, false);
    program.SetChecked(dialog, IDC_OPTIONS_SCALE_75, true);
    program.Press(dialog, IDC_OPTIONS_APPLY, false);
    program.ExpectBoard(small, placement, "75 % makes the board smaller at once", "", marks[0].marked);
    Check(program.ClientSize().cx == 572, "and the window");
    Screenshot("options applied");
    program.SetChecked(dialog, IDC_OPTIONS_AI_PROGRESS, false);
    program.SetChecked(dialog, IDC_OPTIONS_BEEP, false);
    program.Press(dialog, IDOK);
    dialog = OpenOptions(program);
    program.SetChecked(dialog, IDC_OPTIONS_LEGAL_MOVE, false);
    program.Press(dialog, IDCANCEL);
    Check(program.Close(true) == 0, "the program closes normally");

    const std::string settings = ReadWholeFile(FilesMatching("velok-3 {*}.ini").at(0));
    Check(
        settings.find(
            "LEGAL MOVE = YES\r\nCHECK = YES\r\nLAST MOVE = YES\r\nCOORDINATES = NO\r\nWHITE ON TOP = YES\r\n"
            "MOVELIST = NO\r\nAI PROGRESS = NO\r\nSCALE OF BOARD = 75\r\n\r\n[SOUND]\r\nBEEP = NO\r\n") !=
            std::string::npos,
        "OK's choices, not Cancel's, are written at exit", settings);
    Program again;
    again.Start("velok3.exe, started again");
    Check(again.ClientSize().cx == 572 && !IsWindowVisible(again.list),
          "the next start opens small, without the list");
    dialog = OpenOptions(again);
    for (int box : Boxes)
        Check(again.Checked(dialog, box) ==
                  (box < IDC_OPTIONS_AI_PROGRESS || box == IDC_OPTIONS_WHITE_ON_TOP),
              "box " + std::to_string(box) + " reopens as chosen");
    again.Press(dialog, IDC_OPTIONS_DEFAULT, false);
    again.Press(dialog, IDOK);
    again.ExpectBoard(board, StartPlacement, "Set to default and OK: scale 100, White at the bottom");
    Check(again.Close(false) == 0, "the second run ends with 0");
}

void OptionsSkinsAndColours() {
    const Image stock = LoadSkin(0, 64);
    Image inverted = stock;
    for (unsigned char& channel : inverted.bgr)
        channel = static_cast<unsigned char>(255 - channel);
    CreateDirectoryA("SKIN", nullptr);
    SaveBmp(inverted, "SKIN\\inverted.bmp");
    SaveBmp(Image{320, 224, std::vector<unsigned char>(320 * 224 * 3)}, "SKIN\\small.bmp");
    Program program;
    program.Start();
    HWND dialog = OpenOptions(program);
    const std::vector<std::string> skins = program.Rows(GetDlgItem(dialog, IDC_OPTIONS_SKINS));
    Check(skins.size() == 8 && skins.back() == "inverted",
          "the skin list holds the stock skins and the file of skin size", Join(skins));
    program.Press(dialog, IDC_OPTIONS_BACKGROUND, false);
    program.Press(program.WaitForDialog("Color"), IDCANCEL);
    Check(Swatch(dialog, IDC_OPTIONS_BACKGROUND) == DefaultBackground,
          "Cancel in the colour dialog keeps the colour");
    program.ChooseRow(dialog, IDC_OPTIONS_SKINS, 2);
    program.Press(dialog, IDC_OPTIONS_PICK, false);
    Check(program.WaitUntil([&] { return Swatch(dialog, IDC_OPTIONS_BACKGROUND) != DefaultBackground; }),
          "Pick from skin takes the colours of the third skin");
    const COLORREF background = Swatch(dialog, IDC_OPTIONS_BACKGROUND);
    program.Press(dialog, IDC_OPTIONS_INK, false);
    HWND colour = program.WaitForDialog("Color");
    for (int k = 0; k < 3; ++k)
        program.SetText(colour, ColourEdits[k], std::to_string(10 * (k + 1)));
    program.Press(colour, IDOK);
    Check(program.WaitUntil([&] { return Swatch(dialog, IDC_OPTIONS_INK) == RGB(10, 20, 30); }),
          "the colour dialog's red, green and blue make the ink");
    const Image preview = CaptureWindow(GetDlgItem(dialog, IDC_OPTIONS_PREVIEW));
    program.ChooseRow(dialog, IDC_OPTIONS_SKINS, 7);
    Check(program.WaitUntil([&] {
        const Image now = CaptureWindow(GetDlgItem(dialog, IDC_OPTIONS_PREVIEW));
        return PixelsDiffering(now, 0, 0, preview, 0, 0, now.width, now.height) > now.width * now.height / 2;
    }),
          "choosing the file skin changes the preview");
    program.Press(dialog, IDOK);
    const Board board{inverted};
    for (int run = 0; run < 2; ++run) {
        if (run) program.Start("velok3.exe, started again");
        program.ExpectBoard(board, StartPlacement, "the board in the file skin");
        Image shot;
        const bool coloured = program.WaitForScreen(
            [&](const Image& now) {
                return now.Pixel(690, 10) == background && now.Pixel(551, 200) == RGB(10, 20, 30);
            },
            &shot);
        Check(coloured, "the window in the chosen colours",
              std::to_string(shot.Pixel(690, 10)) + " for " + std::to_string(background) + ", " +
                  std::to_string(shot.Pixel(551, 200)) + " for " + std::to_string(RGB(10, 20, 30)));
        Check(program.Close(false, IDM_EXIT) == 0, "Exit ends the program with 0");
    }
}

void ReleaseFolder() {
    const std::vector<std::string> unpacked{
        "LICENSE-ARTWORK.txt", "README.txt",  "SKIN/",          "Save/",
        "drenu-4.url",         "velok-3.chm", "velok3-uci.exe", "velok3.exe"};
    Check(FilesMatching("*") == unpacked,
          "the zip unpacks to the program, manual, shortcut, folders and texts", Join(FilesMatching("*")));
    Check(ReadWholeFile("velok-3.chm").starts_with("ITSF") &&
              ReadWholeFile("drenu-4.url").starts_with("[InternetShortcut]"),
          "a compiled manual and an Internet shortcut");
    const Board board{LoadSkin(0, 64)};
    Program program;
    program.Start("velok3.exe of the release folder");
    program.Command(IDM_USER_MANUAL);
    Check(StartedChild(program, "hh.exe"), "Help, User manual starts the help viewer");
    program.Command(IDM_WEB_SITE);
    Check(StartedChild(program, "rundll32.exe"), "the web entry hands the shortcut to the shell");
    program.NewGame(Human, Human);
    program.Play(board, "e2e4");
    Check(program.Close(true, IDM_EXIT) == 0, "Game, Exit ends the program with 0");
    const std::vector<std::string> added = FilesMatching("velok-3 {*}.ini");
    Check(added.size() == 1 && FilesMatching("*").size() == unpacked.size() + 1,
          "only the settings file is added, beside the program", Join(FilesMatching("*")));

    std::string settings = ReadWholeFile(added.at(0));
    settings.replace(settings.find("FILE NAME = \r\n"), 14, "FILE NAME = Marble\r\n");
    WriteWholeFile(added.at(0), settings);
    const Board marble{LoadSkinFile("SKIN\\Marble.bmp")};
    program.Start("velok3.exe with the example skin");
    program.ExpectBoard(marble, StartPlacement, "the example skin of the SKIN folder draws the board");
    Check(program.Close(false) == 0, "the program with the example skin ends with 0");
}

} // namespace e2e
