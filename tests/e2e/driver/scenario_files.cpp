// Game and position files through the real program: saving by the menu and the name dialog,
// loading back through the Load dialog and its preview, the files it refuses, deleting, and the
// question asked before a game is left.
#include <windows.h>

#include "file_steps.h"
#include "report.h"
#include "scenarios.h"
#include "steps.h"

namespace e2e {

namespace {

// Panel areas at scale 100: the names, and the clocks above and below the list.
constexpr RECT UpperName{532, 84, 700, 116};
constexpr RECT LowerName{532, 404, 700, 436};
constexpr RECT UpperClock{552, 116, 680, 148};
constexpr RECT LowerClock{552, 436, 680, 468};

int Width(const RECT& area) {
    return area.right - area.left;
}
int Height(const RECT& area) {
    return area.bottom - area.top;
}

// True when the area looks the same in both captures.
bool SameArea(const Image& a, const Image& b, const RECT& area) {
    return CompareAreas(a, area.left, area.top, b, area.left, area.top, Width(area), Height(area), 0)
               .pixels == 0;
}

// True when the panel area shows `text` as the program draws it there. The upper clock's last
// row is the list's frame, which is left out.
bool AreaShows(const Image& client, const RECT& area, const std::string& text) {
    const int rows = area.bottom == UpperClock.bottom ? Height(area) - 1 : Height(area);
    return PixelsDiffering(client, area.left, area.top, DrawnText(text, Width(area), Height(area)), rows) ==
           0;
}

// The clock that counts shows the saved time or up to three seconds more.
bool ClockShowsFrom(const Image& client, const RECT& area, int seconds) {
    for (int more = 0; more <= 3; ++more)
        if (AreaShows(client, area, ClockText(seconds + more))) return true;
    return false;
}

// Starts a game of two named people and plays `moves` ("e2e4 e7e5 ..."), the list growing by one
// row a move.
void StartAndPlay(Program& program, const BoardView& view, const std::string& moves) {
    NewGame game;
    game.black = RowHuman;
    game.whiteName = "Alice";
    game.blackName = "Bob";
    StartNewGame(program, game);
    int rows = 1;
    for (size_t at = 0; at + 4 <= moves.size(); at += 5)
        PlayMove(program, view, moves.substr(at, 4).c_str(), ++rows);
}

// Checks that a click on a piece of the side not to move selects nothing, and that a move of the
// side to move is played.
void CheckSideToMove(Program& program, const BoardView& view, const char* otherPiece, char otherLetter,
                     const char* move, int rows, const std::string& side) {
    ClickSquare(program, view, otherPiece);
    Sleep(300);
    Check(ShowsTile(program.CaptureClient(), view, otherPiece, otherLetter, ColumnPlain),
          "a piece of the side not to move cannot be selected");
    PlayMove(program, view, move, rows);
    Check(true, side + " is to move: " + move + " is played");
}

// A game file of exactly `size` bytes: two names, blanks, and the moves, the last blank ending it.
std::string GameFileOfSize(size_t size) {
    const std::string head = "[White \"Ann\"]\r\n[Black \"Ben\"]\r\n";
    const std::string moves = "1. d4 d5 2. c4 e6 ";
    return head + std::string(size - head.size() - moves.size(), ' ') + moves;
}

// Answers the question of closing with Yes and saves under `name`; gives the exit code.
DWORD CloseAndSave(Program& program, const char* name) {
    PostMessageA(program.Window(), WM_CLOSE, 0, 0);
    program.ExpectMessage("Save current game?", IDYES);
    AnswerSaveName(program, "Save game", name, "Game saved");
    return program.WaitForExit(ShortWait * 2);
}

} // namespace

void SaveAndLoadGame() {
    ProgramSkin stock = LoadProgramSkin(".\\velok3.exe");
    Image halfSkin = HalfSkin(".\\velok3.exe");
    if (stock.full.Empty() || halfSkin.Empty()) Abort("stock skin readable from velok3.exe", "bitmap 133");
    BoardView view{&stock.full, 64, false};
    Placement reached("r1bqkbnr/pppp1ppp/2n5/4p3/2B1P3/5N2/PPPP1PPP/RNBQK2R");

    std::vector<std::string> rows;
    Image played;
    std::string file;
    {
        Program program;
        program.Start();
        // Pauses while each side is to move, so that both clocks have counted.
        StartAndPlay(program, view, "e2e4");
        Sleep(2200);
        PlayMove(program, view, "e7e5", 3);
        Sleep(1200);
        PlayMove(program, view, "g1f3", 4);
        PlayMove(program, view, "b8c6", 5);
        PlayMove(program, view, "f1c4", 6);
        rows = program.Rows();
        played = program.CaptureClient();
        program.Command(CommandGameSave);
        AnswerSaveName(program, "Save game", "my game", "Game saved");
        file = ReadWholeFile("Save\\my game.pgn");
        Check(file.find("[White \"Alice\"]\r\n[Black \"Bob\"]\r\n") != std::string::npos &&
                  file.ends_with("1. e4 e5 2. Nf3 Nc6 3. Bc4 "),
              "the game file holds the names and the moves", file);
        Check(GameMenuLook(program) == "eeGe", "Game Save greyed once the game is saved",
              GameMenuLook(program));
        Check(program.Close(AsksNothing) == 0, "a saved game asks nothing at close");
    }
    const int whiteClock = FileClock(file, "TIME WHITE SIDE = ");
    const int blackClock = FileClock(file, "TIME BLACK SIDE = ");
    Check(whiteClock >= 1 && blackClock >= 2, "the file holds both clocks as they counted",
          ClockText(whiteClock) + " " + ClockText(blackClock));

    Program program;
    program.Start("velok3.exe (second run)");
    HWND dialog = OpenLoadDialog(program, CommandGameLoad, "Load game");
    Check(FileRows(dialog) == std::vector<std::string>{"my game.pgn"}, "the list shows the saved game",
          JoinRows(FileRows(dialog)));
    Check(PreviewShowsStatus(dialog, "File not selected"), "the pane says \"File not selected\"");
    Check(LoadButtonLook(dialog) == "--", "Load and Delete disabled before a selection",
          LoadButtonLook(dialog));
    SelectFile(dialog, 0);
    Image pane = WaitForPreviewBoard(dialog, halfSkin, reached);
    Screenshot("preview of the saved game");
    Check(PreviewSquaresDiffering(pane, halfSkin, reached).empty(),
          "the preview shows the game's last position at half size",
          "squares differing: " + PreviewSquaresDiffering(pane, halfSkin, reached));
    const int frame = CountPixelsNear(pane, 0, pane.height - 1, pane.width, 1, RGB(128, 128, 128), 0) +
                      CountPixelsNear(pane, 0, 0, 1, pane.height, RGB(128, 128, 128), 0);
    Check(frame == pane.width + pane.height, "the pane is framed in the background colour");
    Check(LoadButtonLook(dialog) == "LD", "Load and Delete enabled for a good file", LoadButtonLook(dialog));
    program.PressButton(dialog, LoadButtonId, ClosesDialog);

    Check(program.Rows() == rows, "the loaded game has the same list rows", JoinRows(program.Rows()));
    Image loaded;
    bool board = WaitForScreen(
        program, [&](const Image& now) { return SquaresDiffering(now, view, reached) == "f1 c4"; }, ShortWait,
        &loaded);
    Screenshot("loaded game");
    Check(board && ShowsTile(loaded, view, "c4", 'B', ColumnLastMove),
          "the board shows the last position, last move marked",
          "squares differing: " + SquaresDiffering(loaded, view, reached));
    Check(SameArea(played, loaded, UpperName) && SameArea(played, loaded, LowerName),
          "both names shown as in the game that was saved");
    Check(AreaShows(loaded, LowerClock, ClockText(whiteClock)),
          "White's clock stands at the saved time, " + ClockText(whiteClock));
    Check(ClockShowsFrom(loaded, UpperClock, blackClock),
          "Black's clock goes on from the saved time, " + ClockText(blackClock));
    Check(GameMenuLook(program) == "eeGe", "Game Save greyed right after a load", GameMenuLook(program));
    CheckSideToMove(program, view, "d2", 'P', "g8f6", static_cast<int>(rows.size()) + 1, "Black");
    Check(program.Close(AsksToSave) == 0, "a move after the load makes the game worth a question at close");
}

void SaveAndLoadPosition() {
    ProgramSkin stock = LoadProgramSkin(".\\velok3.exe");
    Image halfSkin = HalfSkin(".\\velok3.exe");
    if (stock.full.Empty() || halfSkin.Empty()) Abort("stock skin readable from velok3.exe", "bitmap 133");
    BoardView view{&stock.full, 64, false};
    const char* placement = "rnbqkbnr/pppp1ppp/8/4p3/4P3/5N2/PPPP1PPP/RNBQKB1R";

    Program program;
    program.Start();
    StartAndPlay(program, view, "e2e4 e7e5 g1f3");
    program.Command(CommandPositionSave);
    // The title goes by the kind of game, which is a game from the start.
    AnswerSaveName(program, "Save game", "black to move", "Position saved");
    const std::string line = ReadWholeFile("Save\\black to move.fen");
    Check(line == std::string(placement) + " b - - 0 0\"",
          "the position file holds the board and Black to move", line);
    WriteWholeFile("Save\\a game.pgn", "1. d4 ");

    program.Command(CommandPositionLoad);
    program.ExpectMessage("Save current game?", IDNO);
    HWND dialog = program.WaitForDialog("Load position");
    Check(FileRows(dialog) == std::vector<std::string>{"black to move.fen"},
          "the list shows position files only", JoinRows(FileRows(dialog)));
    SelectFile(dialog, 0);
    Image pane = WaitForPreviewBoard(dialog, halfSkin, Placement(placement));
    Screenshot("preview of the position");
    Check(PreviewSquaresDiffering(pane, halfSkin, Placement(placement)).empty(),
          "the preview shows the position",
          "squares differing: " + PreviewSquaresDiffering(pane, halfSkin, Placement(placement)));
    DoubleClickFile(dialog);
    Check(program.WaitUntil([dialog] { return !IsWindow(dialog) || !IsWindowVisible(dialog); }, ShortWait,
                            "Load position"),
          "a double click on a good file loads it and closes the dialog");

    Check(program.Rows() == std::vector<std::string>{" 0."}, "the list holds the row \" 0.\" alone",
          JoinRows(program.Rows()));
    Image loaded;
    bool board = WaitForScreen(
        program, [&](const Image& now) { return SquaresDiffering(now, view, Placement(placement)).empty(); },
        ShortWait, &loaded);
    Screenshot("loaded position");
    Check(board, "the board shows the loaded position", SquaresDiffering(loaded, view, Placement(placement)));
    Check(AreaShows(loaded, UpperName, "Analyse mode"), "the panel says \"Analyse mode\"");
    Check(AreaShows(loaded, LowerClock, "") && AreaShows(loaded, UpperClock, ""), "no clocks are shown");
    Check(GameMenuLook(program) == "eeGe", "Game Save greyed in an analysis", GameMenuLook(program));
    Check(PositionMenuLook(program) == "eee", "Position Save enabled in an analysis",
          PositionMenuLook(program));
    CheckSideToMove(program, view, "d2", 'P', "g8f6", 2, "Black");

    // Row 1 of a game that Black began has White to move.
    program.Command(CommandPositionSave);
    AnswerSaveName(program, "Save position", "after f6", "Position saved");
    const std::string after = ReadWholeFile("Save\\after f6.fen");
    Check(after == "rnbqkb1r/pppp1ppp/5n2/4p3/4P3/5N2/PPPP1PPP/RNBQKB1R w - - 0 0\"",
          "saving in the analysis writes the position shown, White to move", after);
    Check(program.Close(AsksNothing) == 0, "a loaded position asks nothing at close");
}

void LoadRefusals() {
    Image halfSkin = HalfSkin(".\\velok3.exe");
    if (halfSkin.Empty()) Abort("stock skin readable from velok3.exe", "bitmap 133");
    Program program;
    program.Start();
    const std::vector<std::string> idleRows = program.Rows();

    HWND dialog = OpenLoadDialog(program, CommandGameLoad, "Load game");
    Check(FileRows(dialog).empty(), "no folder Save: the list is empty");
    Check(PreviewShowsStatus(dialog, "File not found"), "the pane says \"File not found\"");
    Check(LoadButtonLook(dialog) == "--", "Load and Delete disabled", LoadButtonLook(dialog));
    program.PressButton(dialog, CancelButtonId, ClosesDialog);

    CreateDirectoryA("Save", nullptr);
    WriteWholeFile("Save\\a exact.pgn", GameFileOfSize(4096));
    WriteWholeFile("Save\\b over.pgn", GameFileOfSize(4097));
    WriteWholeFile("Save\\c fen.pgn", "[FEN \"8/8/8/8/8/8/8/8 w\"]\r\n\r\n1. e4 ");
    WriteWholeFile("Save\\d error.fen", "4k2P/8/8/8/8/8/8/4K3 w - - 0 0\"");
    WriteWholeFile("Save\\e over.fen", "4k3/8/8/8/8/8/8/4K3 w - - 0 0\"");
    WriteWholeFile("Save\\f fine.fen", "4k3/8/8/8/8/8/8/4K2Q w - - 0 0\"");

    dialog = OpenLoadDialog(program, CommandGameLoad, "Load game");
    Check(FileRows(dialog) == std::vector<std::string>{"a exact.pgn", "b over.pgn", "c fen.pgn"},
          "the game list shows the three game files, sorted", JoinRows(FileRows(dialog)));
    SelectFile(dialog, 0);
    Placement opened("rnbqkbnr/ppp2ppp/4p3/3p4/2PP4/8/PP2PPPP/RNBQKBNR");
    Image pane = WaitForPreviewBoard(dialog, halfSkin, opened);
    Check(PreviewSquaresDiffering(pane, halfSkin, opened).empty(),
          "a file of exactly 4096 bytes is read to its end",
          "squares differing: " + PreviewSquaresDiffering(pane, halfSkin, opened));
    Check(LoadButtonLook(dialog) == "LD", "and may be loaded", LoadButtonLook(dialog));

    SelectFile(dialog, 1);
    Screenshot("file too big");
    Check(PreviewShowsStatus(dialog, "File is too big"), "4097 bytes: \"File is too big\"");
    Check(LoadButtonLook(dialog) == "-D", "a refused file may be deleted, not loaded",
          LoadButtonLook(dialog));
    DoubleClickFile(dialog);
    Check(IsWindowVisible(dialog) != FALSE, "a double click on a refused file leaves the dialog open");

    SelectFile(dialog, 2);
    Check(PreviewShowsStatus(dialog, "Not begin position"), "a [FEN tag: \"Not begin position\"");

    // The row selected again is not read again; another selection reads it anew.
    SelectFile(dialog, 0);
    WriteWholeFile("Save\\a exact.pgn", "[FEN \"\"]");
    SelectFile(dialog, 0);
    // Waits the whole while for the new text, which must not come.
    Check(
        !PreviewShowsStatus(dialog, "Not begin position") &&
            PreviewSquaresDiffering(WaitForPreviewBoard(dialog, halfSkin, opened), halfSkin, opened).empty(),
        "selecting the selected row again does not read the file again");
    SelectFile(dialog, 1);
    SelectFile(dialog, 0);
    Check(PreviewShowsStatus(dialog, "Not begin position"), "selecting it anew reads the new text");

    // A file held open elsewhere can neither be read nor deleted, and the dialog says so.
    HANDLE held = CreateFileA("Save\\c fen.pgn", GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    SelectFile(dialog, 2);
    Check(PreviewShowsStatus(dialog, "Error open file"), "a file held open elsewhere: \"Error open file\"");
    Check(LoadButtonLook(dialog) == "-D", "which may be deleted, not loaded", LoadButtonLook(dialog));
    program.PressButton(dialog, DeleteButtonId, KeepsOpen);
    program.ExpectMessage("Error delete file", IDOK);
    CloseHandle(held);
    Check(FileRows(dialog).size() == 3, "a failed delete leaves the list as it was",
          JoinRows(FileRows(dialog)));

    SelectFile(dialog, 1);
    program.PressButton(dialog, DeleteButtonId, KeepsOpen);
    Sleep(300);
    Check(SavedFiles("*.pgn") == std::vector<std::string>{"a exact.pgn", "c fen.pgn"},
          "Delete removes the file", JoinRows(SavedFiles("*.pgn")));
    Check(FileRows(dialog) == std::vector<std::string>{"a exact.pgn", "c fen.pgn"}, "the list is read anew",
          JoinRows(FileRows(dialog)));
    Check(PreviewShowsStatus(dialog, "File not selected"), "after a delete: \"File not selected\"");
    Check(LoadButtonLook(dialog) == "--", "after a delete nothing is selected", LoadButtonLook(dialog));
    program.PressButton(dialog, CancelButtonId, ClosesDialog);
    Check(program.Rows() == idleRows, "Cancel after previews leaves the game as it was",
          JoinRows(program.Rows()));

    dialog = OpenLoadDialog(program, CommandPositionLoad, "Load position");
    Check(FileRows(dialog) == std::vector<std::string>{"d error.fen", "e over.fen", "f fine.fen"},
          "the position list shows the three position files", JoinRows(FileRows(dialog)));
    SelectFile(dialog, 0);
    Check(PreviewShowsStatus(dialog, " Error position"), "a pawn on the last row: \" Error position\"");
    SelectFile(dialog, 1);
    Screenshot("game over");
    Check(PreviewShowsStatus(dialog, " Game over"), "two bare kings: \" Game over\"");
    Check(LoadButtonLook(dialog) == "-D", "a refused position may be deleted, not loaded",
          LoadButtonLook(dialog));
    SelectFile(dialog, 2);
    const Placement fine("4k3/8/8/8/8/8/8/4K2Q");
    Check(PreviewSquaresDiffering(WaitForPreviewBoard(dialog, halfSkin, fine), halfSkin, fine).empty(),
          "a good position is previewed");
    for (int left = 3; left > 0; --left) {
        SelectFile(dialog, 0);
        program.PressButton(dialog, DeleteButtonId, KeepsOpen);
        Sleep(300);
    }
    Check(SavedFiles("*.fen").empty(), "every position file deleted", JoinRows(SavedFiles("*.fen")));
    Check(PreviewShowsStatus(dialog, "File not found"), "the last delete leaves \"File not found\"");
    Check(LoadButtonLook(dialog) == "--", "with both buttons disabled", LoadButtonLook(dialog));
    program.PressButton(dialog, CancelButtonId, ClosesDialog);
    Check(program.Close(AsksNothing) == 0, "no game, no question at close");
}

void OfferToSaveOnLeaving() {
    ProgramSkin stock = LoadProgramSkin(".\\velok3.exe");
    BoardView view{&stock.full, 64, false};
    Program program;
    program.Start();
    StartAndPlay(program, view, "e2e4");

    // An empty name saves nothing and leaves the game unsaved.
    program.Command(CommandGameSave);
    HWND nameDialog = program.WaitForDialog("Save game");
    program.SetText(nameDialog, SaveNameId, "");
    program.PressButton(nameDialog, IDOK, KeepsOpen);
    program.ExpectMessage("Please enter name", IDOK);
    Check(program.WaitUntil([nameDialog] { return !IsWindow(nameDialog) || !IsWindowVisible(nameDialog); },
                            ShortWait, "Save game"),
          "after \"Please enter name\" the name dialog closes");
    Check(SavedFiles("*.pgn").empty(), "an empty name writes no file", JoinRows(SavedFiles("*.pgn")));
    Check(GameMenuLook(program) == "eeee", "Game Save still enabled", GameMenuLook(program));

    // New: Yes saves first, then the New game dialog comes.
    program.Command(CommandNewGame);
    program.ExpectMessage("Save current game?", IDYES);
    AnswerSaveName(program, "Save game", "offer new", "Game saved");
    program.PressButton(program.WaitForDialog("New game"), IDCANCEL, ClosesDialog);
    Check(ReadWholeFile("Save\\offer new.pgn").ends_with("\r\n\r\n1. e4 "), "Yes before New saves the game");

    // Nothing new since: Load asks nothing.
    program.PressButton(OpenLoadDialog(program, CommandGameLoad, "Load game"), CancelButtonId, ClosesDialog);
    Check(true, "after the save, Game Load asks nothing");

    // No before Position Load: nothing written, and the game no longer counts as unsaved.
    PlayMove(program, view, "e7e5", 3);
    program.Command(CommandPositionLoad);
    program.ExpectMessage("Save current game?", IDNO);
    program.PressButton(program.WaitForDialog("Load position"), CancelButtonId, ClosesDialog);
    Check(SavedFiles("*.pgn") == std::vector<std::string>{"offer new.pgn"}, "No saves nothing",
          JoinRows(SavedFiles("*.pgn")));
    program.Command(CommandNewGame);
    program.PressButton(program.WaitForDialog("New game"), IDCANCEL, ClosesDialog);
    Check(true, "after No, New asks nothing");

    // Yes before Game Load: the new file is in the list at once.
    PlayMove(program, view, "g1f3", 4);
    program.Command(CommandGameLoad);
    program.ExpectMessage("Save current game?", IDYES);
    AnswerSaveName(program, "Save game", "offer load", "Game saved");
    HWND dialog = program.WaitForDialog("Load game");
    Check(FileRows(dialog) == std::vector<std::string>{"offer load.pgn", "offer new.pgn"},
          "Yes before Load saves the game, which the list then shows", JoinRows(FileRows(dialog)));
    program.PressButton(dialog, CancelButtonId, ClosesDialog);

    // Yes at close.
    PlayMove(program, view, "b8c6", 5);
    Check(CloseAndSave(program, "offer close") == 0, "Yes at close saves, then the program ends with 0");
    Check(ReadWholeFile("Save\\offer close.pgn").ends_with("1. e4 e5 2. Nf3 Nc6 "),
          "the file holds all four moves", ReadWholeFile("Save\\offer close.pgn"));
}

} // namespace e2e
