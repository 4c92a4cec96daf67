// Scenarios of the dialogs: game files saved, refused, deleted, previewed and loaded; a position set up,
// analysed and loaded; every choice of Options, skins and colours, across a restart; the unpacked release.
#include <fstream>

#include "e2e.h"

#include <tlhelp32.h>

namespace e2e {

namespace {

// Whether the Load dialog's Load and Delete buttons can be pressed, as "LD", "L-", "-D" or "--".
std::string ButtonLook(HWND dialog) {
    return std::string(IsWindowEnabled(GetDlgItem(dialog, IDOK)) ? "L" : "-") +
           (IsWindowEnabled(GetDlgItem(dialog, IDC_LOAD_DELETE)) ? "D" : "-");
}

// Selects a file of the Load dialog and waits for its preview to show `placement`.
bool PreviewShows(Program& program, HWND dialog, int row, const std::string& placement) {
    program.ChooseRow(dialog, IDC_LOAD_LIST, row);
    const Board half{LoadSkin(0, 32), 32, false, 1};
    return program.WaitUntil([&] {
        return half.Differing(CaptureWindow(GetDlgItem(dialog, IDC_LOAD_PREVIEW)), placement).empty();
    });
}

// The colour dialog's edits of red, green and blue.
constexpr int ColourEdits[] = {706, 707, 708};

COLORREF Swatch(HWND dialog, int id) {
    const Image button = CaptureWindow(GetDlgItem(dialog, id));
    return button.Pixel(button.width / 2, button.height / 2);
}

// Whether the program has started a process of this exe, which lives on outside the job.
bool StartedChild(Program& program, const char* exeName) {
    auto started = [&] {
        HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
        PROCESSENTRY32 entry{};
        entry.dwSize = sizeof entry;
        bool found = false;
        for (BOOL more = Process32First(snapshot, &entry); more; more = Process32Next(snapshot, &entry))
            found |= entry.th32ParentProcessID == GetProcessId(program.process) &&
                     lstrcmpiA(entry.szExeFile, exeName) == 0;
        CloseHandle(snapshot);
        return found;
    };
    return program.WaitUntil(started, 2 * ShortWait);
}

} // namespace

void GameAndPositionFiles() {
    const Board board{LoadSkin(0, 64)};
    Program program;
    program.NewGame(Human, Human);
    program.Play(board, "e2e4 e7e5 g1f3 b8c6 f1c4");
    const std::vector<std::string> rows = program.Rows();
    const std::string reached = AfterMoves(StartPlacement, "e2e4 e7e5 g1f3 b8c6 f1c4");
    program.SaveAs(IDM_GAME_SAVE, "Save game", "my game", "Game saved");
    const std::string game = ReadWholeFile("Save\\my game.pgn");
    Check(game.find("[White \"Alice\"]\r\n[Black \"Bob\"]\r\n") != std::string::npos, "the names in the file",
          game);
    std::ofstream("Save\\big.pgn") << std::string(4097, ' ');

    HWND dialog = program.WaitForDialog("Load game", IDM_GAME_LOAD);
    HWND files = GetDlgItem(dialog, IDC_LOAD_LIST);
    Check(Join(program.Rows(files)) == "big.pgn|my game.pgn" && ButtonLook(dialog) == "--",
          "game files listed, none chosen", Join(program.Rows(files)));
    program.ChooseRow(dialog, IDC_LOAD_LIST, 0);
    Check(program.WaitUntil([&] { return ButtonLook(dialog) == "-D"; }), "a refused file: Delete, not Load");
    program.Press(dialog, IDC_LOAD_DELETE, false);
    Check(program.WaitUntil([&] { return program.Rows(files).size() == 1; }) &&
              FilesMatching("Save\\*.pgn") == std::vector<std::string>{"my game.pgn"},
          "Delete removes the file and its row");
    Check(PreviewShows(program, dialog, 0, reached) && ButtonLook(dialog) == "LD", "the game previewed");
    program.Press(dialog, IDOK);
    program.ExpectBoard(board, reached, "the loaded game's last position", "f1c4");
    Check(program.Rows() == rows, "the loaded game's rows", Join(program.Rows()));
    Check(program.Close() == 0, "a loaded game asks nothing at close");
}

void SetUpAndAnalyse() {
    const Board board{LoadSkin(0, 64)};
    Program program;
    program.Command(IDM_POSITION_SET);
    program.ExpectBoard(board, "8/8/8/8/8/8/8/8", "Set empties the board");
    program.ClickRow(PaletteWhiteMove);
    program.Answer("Kings are not found!");
    program.Place(board, PaletteKing, "e1", "e8");
    program.Place(board, PaletteRook, "h1");
    program.Place(board, PalettePawn, "e2 a1", "d7");
    const std::string begin = "4k3/3p4/8/8/8/8/4P3/4K2R";
    program.ExpectBoard(board, begin,
                        "the play button places White's pieces, the other Black's, no pawn on the edge");
    program.ClickRow(PaletteBlack);
    Check(program.WaitUntil([&] { return program.Rows() == std::vector<std::string>{" 0."}; }),
          "analysis begins");
    program.SaveAs(IDM_POSITION_SAVE, "Save position", "begin", "Position saved");
    program.Play(board, "d7d5 e2e4");
    program.ClickRow(1);
    program.ExpectBoard(board, AfterMoves(begin, "d7d5"), "a click on row 1 shows its position", "d7d5");
    program.Play(board, "e2e3");
    Check(program.Rows().size() == 3 && program.Rows()[2].find("e2-e3") != std::string::npos,
          "a move from row 1 takes the analysis on from there", Join(program.Rows()));
    HWND dialog = program.WaitForDialog("Load position", IDM_POSITION_LOAD);
    Check(PreviewShows(program, dialog, 0, begin), "the saved position previewed");
    PostMessageA(dialog, WM_COMMAND, MAKEWPARAM(IDC_LOAD_LIST, LBN_DBLCLK),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDC_LOAD_LIST)));
    program.ExpectBoard(board, begin, "a double click loads the position");
    Check(program.Rows() == std::vector<std::string>{" 0."}, "the loaded position stands alone in the list");
    Check(program.Close(nullptr, IDM_EXIT) == 0, "begin position saved: Exit asks nothing");
}

void Options() {
    Image inverted = LoadSkin(0, 64);
    for (unsigned char& channel : inverted.bgr)
        channel = static_cast<unsigned char>(255 - channel);
    CreateDirectoryA("SKIN", nullptr);
    SaveBmp(inverted, "SKIN\\inverted.bmp");
    const Board board{LoadSkin(0, 64)}, turned{board.skin, 64, true}, small{LoadSkin(0, 48), 48, true};
    const std::string placement = AfterMoves(StartPlacement, "e2e4 f7f5 d1h5");
    Program program;
    program.NewGame(Human, Human);
    program.Play(board, "e2e4 f7f5 d1h5");
    program.Click(board.Centre("g7"));
    HWND dialog = program.WaitForDialog("Options", IDM_OPTIONS);
    // Sets boxes and presses a button, which closes the dialog unless it is Apply.
    auto choose = [&](std::initializer_list<std::pair<int, bool>> boxes, int button = IDC_OPTIONS_APPLY) {
        for (const auto& [box, on] : boxes)
            program.SetChecked(dialog, box, on);
        program.Press(dialog, button, button != IDC_OPTIONS_APPLY);
    };
    // Aside, off the board, at the screen's right edge.
    SetWindowPos(dialog, nullptr, GetSystemMetrics(SM_CXSCREEN) - 150, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    // After 1. e4 f5 2. Qh5+ with g7 selected: the last move, the king in check, the selected pawn and its
    // target; each choice off alone takes its own marks away (AI progress none).
    const std::pair<int, std::string> marks[] = {{IDC_OPTIONS_AI_PROGRESS, "e8 g7 g6 h5 d1"},
                                                 {IDC_OPTIONS_LEGAL_MOVE, "e8 g7 h5 d1"},
                                                 {IDC_OPTIONS_LAST_MOVE, "e8 g7 g6"},
                                                 {IDC_OPTIONS_CHECK, "g7 g6 h5 d1"}};
    for (const auto& [box, marked] : marks) {
        choose({{box, false}});
        program.ExpectBoard(board, placement, "marked: " + marked, "", marked);
        program.SetChecked(dialog, box, true);
    }
    choose({{IDC_OPTIONS_COORDINATES, false},
            {IDC_OPTIONS_MOVES_LIST, false},
            {IDC_OPTIONS_WHITE_ON_TOP, true}});
    program.ExpectBoard(turned, placement, "White on top turns the board with its marks", "",
                        marks[0].second);
    Check(PixelsNear(program.Client(), {0, 20, 20, 532}, DefaultBackground) == 20 * 512, "Coordinates off");
    Check(!IsWindowVisible(program.list) && program.Client().Pixel(551, 200) == DefaultBackground,
          "Moves list off hides the list and its frame");
    choose({{IDC_OPTIONS_SCALE_100, false}, {IDC_OPTIONS_SCALE_75, true}});
    program.ExpectBoard(small, placement, "75 % makes the board smaller at once", "", marks[0].second);
    choose({{IDC_OPTIONS_AI_PROGRESS, false}, {IDC_OPTIONS_BEEP, false}}, IDOK);
    dialog = program.WaitForDialog("Options", IDM_OPTIONS);
    choose({{IDC_OPTIONS_LEGAL_MOVE, false}}, IDCANCEL);
    Check(program.Close(SaveGame) == 0, "the program closes normally");

    const std::string settings = ReadWholeFile(FilesMatching("velok-3 {*}.ini").at(0));
    Check(settings.find("LEGAL MOVE = YES\r\nCHECK = YES\r\nLAST MOVE = "
                        "YES\r\nCOORDINATES = NO\r\nWHITE ON TOP = YES\r\n"
                        "MOVELIST = NO\r\nAI PROGRESS = NO\r\nSCALE OF BOARD = "
                        "75\r\n\r\n[SOUND]\r\nBEEP = NO\r\n") != std::string::npos,
          "OK's choices, not Cancel's, are written at exit", settings);
    Program again;
    Check(again.Client().width == 572 && !IsWindowVisible(again.list), "restarted small, no list");
    dialog = again.WaitForDialog("Options", IDM_OPTIONS);
    again.Press(dialog, IDC_OPTIONS_DEFAULT, false);
    // Skins and colours on top of the defaults: a skin file, colours picked and typed.
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
    again.ChooseRow(dialog, IDC_OPTIONS_SKINS, 7); // the file, after the seven stock skins
    again.Press(dialog, IDOK);
    again.ExpectBoard(Board{inverted}, StartPlacement, "the file skin at scale 100, White at the bottom");
    Check(again.WaitForScreen([&](const Image& now) {
        return now.Pixel(690, 10) == background && now.Pixel(551, 200) == RGB(10, 20, 30);
    }),
          "the window in the chosen colours");
    Check(again.Close() == 0, "the program closes with 0");
}

void ReleaseFolder() {
    const std::vector<std::string> unpacked = FilesMatching("*");
    Check(Join(unpacked) ==
              "LICENSE-ARTWORK.txt|README.txt|SKIN/|Save/|drenu-4.url|velok-3.chm|velok3-uci.exe|velok3.exe",
          "the zip unpacks to the program, manual, shortcut, folders and texts", Join(unpacked));
    Program program;
    program.Command(IDM_USER_MANUAL);
    Check(StartedChild(program, "hh.exe"), "Help, User manual starts the help viewer");
    program.Command(IDM_WEB_SITE);
    Check(StartedChild(program, "rundll32.exe"), "the web entry hands the shortcut to the shell");
    Check(program.Close(nullptr, IDM_EXIT) == 0, "Game, Exit ends the program with 0");
    Check(FilesMatching("velok-3 {*}.ini").size() == 1 && FilesMatching("*").size() == unpacked.size() + 1,
          "only the settings file is added, beside the program", Join(FilesMatching("*")));
}

} // namespace e2e
