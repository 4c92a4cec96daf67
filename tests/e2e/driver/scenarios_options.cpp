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

HWND OpenOptions(Program& program) {
    program.Command(IDM_OPTIONS);
    return program.WaitForDialog("Options");
}

COLORREF Swatch(HWND dialog, int id) {
    const Image button = CaptureWindow(GetDlgItem(dialog, id));
    return button.Pixel(button.width / 2, button.height / 2);
}

// Whether the program has started a process of this exe, which lives on outside the job.
bool StartedChild(Program& program, const char* exeName) {
    return program.WaitUntil(
        [&] {
            HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
            PROCESSENTRY32 entry{};
            entry.dwSize = sizeof entry;
            bool found = false;
            for (BOOL more = Process32First(snapshot, &entry); more; more = Process32Next(snapshot, &entry))
                found |= entry.th32ParentProcessID == GetProcessId(program.process) &&
                         lstrcmpiA(entry.szExeFile, exeName) == 0;
            CloseHandle(snapshot);
            return found;
        },
        2 * ShortWait);
}

} // namespace

void Options() {
    Image inverted = LoadSkin(0, 64);
    for (unsigned char& channel : inverted.bgr)
        channel = static_cast<unsigned char>(255 - channel);
    CreateDirectoryA("SKIN", nullptr);
    SaveBmp(inverted, "SKIN\\inverted.bmp");
    const Board board{LoadSkin(0, 64)}, turned{board.skin, 64, true}, small{LoadSkin(0, 48), 48, true};
    const std::string placement = AfterMoves(StartPlacement, "e2e4 f7f5 d1h5");
    Program program;
    program.Start();
    program.NewGame(Human, Human);
    program.Play(board, "e2e4 f7f5 d1h5");
    program.Click(board.Centre("g7"));
    HWND dialog = OpenOptions(program);
    // Aside, off the board, at the screen's right edge.
    SetWindowPos(dialog, nullptr, GetSystemMetrics(SM_CXSCREEN) - 150, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    // After 1. e4 f5 2. Qh5+ with g7 selected: the last move, the king in check, the selected pawn
    // and its target; each choice off alone takes its own marks away.
    const std::pair<int, std::string> marks[] = {{0, "e8 g7 g6 h5 d1"},
                                                 {IDC_OPTIONS_LEGAL_MOVE, "e8 g7 h5 d1"},
                                                 {IDC_OPTIONS_LAST_MOVE, "e8 g7 g6"},
                                                 {IDC_OPTIONS_CHECK, "g7 g6 h5 d1"}};
    for (const auto& [box, marked] : marks) {
        if (box) program.SetChecked(dialog, box, false);
        program.Press(dialog, IDC_OPTIONS_APPLY, false);
        program.ExpectBoard(board, placement, "marked: " + marked, "", marked);
        if (box) program.SetChecked(dialog, box, true);
    }
    program.SetChecked(dialog, IDC_OPTIONS_COORDINATES, false);
    program.SetChecked(dialog, IDC_OPTIONS_MOVES_LIST, false);
    program.SetChecked(dialog, IDC_OPTIONS_WHITE_ON_TOP, true);
    program.Press(dialog, IDC_OPTIONS_APPLY, false);
    program.ExpectBoard(turned, placement, "White on top turns the board with its marks", "",
                        marks[0].second);
    Check(PixelsNear(program.Client(), {0, 20, 20, 532}, DefaultBackground) == 20 * 512, "Coordinates off");
    Check(!IsWindowVisible(program.list) && program.Client().Pixel(551, 200) == DefaultBackground,
          "Moves list off hides the list and its frame");
    program.SetChecked(dialog, IDC_OPTIONS_SCALE_100, false);
    program.SetChecked(dialog, IDC_OPTIONS_SCALE_75, true);
    program.Press(dialog, IDC_OPTIONS_APPLY, false);
    program.ExpectBoard(small, placement, "75 % makes the board smaller at once", "", marks[0].second);
    Check(program.Client().width == 572, "and the window");
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
    again.Start();
    Check(again.Client().width == 572 && !IsWindowVisible(again.list), "restarted small, no list");
    dialog = OpenOptions(again);
    for (int box : Boxes)
        Check(again.Checked(dialog, box) ==
                  (box < IDC_OPTIONS_AI_PROGRESS || box == IDC_OPTIONS_WHITE_ON_TOP),
              "box " + std::to_string(box) + " reopens as chosen");
    again.Press(dialog, IDC_OPTIONS_DEFAULT, false);
    // Skins and colours on top of the defaults: a skin file, colours picked and typed.
    const std::vector<std::string> skins = again.Rows(GetDlgItem(dialog, IDC_OPTIONS_SKINS));
    Check(skins.size() == 8 && skins.back() == "inverted", "the skin list holds the stock skins and the file",
          Join(skins));
    again.ChooseRow(dialog, IDC_OPTIONS_SKINS, 2);
    again.Press(dialog, IDC_OPTIONS_PICK, false);
    Check(again.WaitUntil([&] { return Swatch(dialog, IDC_OPTIONS_BACKGROUND) != DefaultBackground; }),
          "Pick from skin takes the colours of the third skin");
    again.Press(dialog, IDC_OPTIONS_INK, false);
    HWND colour = again.WaitForDialog("Color");
    for (int k = 0; k < 3; ++k)
        again.SetText(colour, ColourEdits[k], std::to_string(10 * (k + 1)));
    again.Press(colour, IDOK);
    Check(again.WaitUntil([&] { return Swatch(dialog, IDC_OPTIONS_INK) == RGB(10, 20, 30); }),
          "the colour dialog's red, green and blue make the ink");
    const COLORREF background = Swatch(dialog, IDC_OPTIONS_BACKGROUND);
    const Image preview = CaptureWindow(GetDlgItem(dialog, IDC_OPTIONS_PREVIEW));
    again.ChooseRow(dialog, IDC_OPTIONS_SKINS, 7);
    Check(again.WaitUntil([&] {
        const Image now = CaptureWindow(GetDlgItem(dialog, IDC_OPTIONS_PREVIEW));
        return PixelsDiffering(now, 0, 0, preview, 0, 0, now.width, now.height) > now.width * now.height / 2;
    }),
          "choosing the file skin changes the preview");
    again.Press(dialog, IDOK);
    again.ExpectBoard(Board{inverted}, StartPlacement, "the file skin at scale 100, White at the bottom");
    Check(again.WaitForScreen([&](const Image& now) {
        return now.Pixel(690, 10) == background && now.Pixel(551, 200) == RGB(10, 20, 30);
    }),
          "the window in the chosen colours");
    Check(again.Close(false, IDM_EXIT) == 0, "Exit ends the program with 0");
}

void ReleaseFolder() {
    const std::vector<std::string> unpacked{
        "LICENSE-ARTWORK.txt", "README.txt",  "SKIN/",          "Save/",
        "drenu-4.url",         "velok-3.chm", "velok3-uci.exe", "velok3.exe"};
    Check(FilesMatching("*") == unpacked,
          "the zip unpacks to the program, manual, shortcut, folders and texts", Join(FilesMatching("*")));
    const Board board{LoadSkin(0, 64)};
    Program program;
    program.Start();
    program.Command(IDM_USER_MANUAL);
    Check(StartedChild(program, "hh.exe"), "Help, User manual starts the help viewer");
    program.Command(IDM_WEB_SITE);
    Check(StartedChild(program, "rundll32.exe"), "the web entry hands the shortcut to the shell");
    HWND dialog = OpenOptions(program);
    Check(program.Rows(GetDlgItem(dialog, IDC_OPTIONS_SKINS)).back() == "Marble", "example skin offered");
    program.Press(dialog, IDCANCEL);
    program.NewGame(Human, Human);
    program.Play(board, "e2e4");
    Check(program.Close(true, IDM_EXIT) == 0, "Game, Exit ends the program with 0");
    Check(FilesMatching("velok-3 {*}.ini").size() == 1 && FilesMatching("*").size() == unpacked.size() + 1,
          "only the settings file is added, beside the program", Join(FilesMatching("*")));
}

} // namespace e2e
