// Scenarios of the files and of set-up: a game and a position saved and loaded back through the
// Load dialog with its preview, a refused file deleted, and a position set up and analysed.
#include "e2e.h"

namespace e2e {

namespace {

const std::vector<std::string> PaletteRows{" Pawn", " Knight",      " Bishop",     " Rook",      " Queen",
                                           " King", " Clear field", " White move", " Black move"};
enum PaletteRow : int {
    PalettePawn = 0,
    PaletteRook = 3,
    PaletteKing = 5,
    PaletteWhiteMove = 7,
    PaletteBlackMove = 8
};

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

} // namespace

void GameAndPositionFiles() {
    const Board board{LoadSkin(0, 64)};
    Program program;
    program.Start();
    program.NewGame(Human, Human);
    program.Play(board, "e2e4 e7e5 g1f3 b8c6 f1c4");
    const std::vector<std::string> rows = program.Rows();
    const std::string reached = AfterMoves(StartPlacement, "e2e4 e7e5 g1f3 b8c6 f1c4");
    program.Command(IDM_GAME_SAVE);
    program.SaveAs("Save game", "my game", "Game saved");
    const std::string game = ReadWholeFile("Save\\my game.pgn");
    Check(game.find("[White \"Alice\"]\r\n[Black \"Bob\"]\r\n") != std::string::npos &&
              game.ends_with("\r\n1. e4 e5 2. Nf3 Nc6 3. Bc4 "),
          "the game file holds the names and the moves", game);
    WriteWholeFile("Save\\big.pgn", std::string(4097, ' '));

    program.Command(IDM_GAME_LOAD);
    HWND dialog = program.WaitForDialog("Load game");
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
    program.Play(board, "g8f6");

    program.Command(IDM_POSITION_SAVE);
    program.SaveAs("Save game", "six", "Position saved");
    const std::string sixth = "r1bqkb1r/pppp1ppp/2n2n2/4p3/2B1P3/5N2/PPPP1PPP/RNBQK2R";
    Check(ReadWholeFile("Save\\six.fen").starts_with(sixth + " w "),
          "the position file holds the board, White to move", ReadWholeFile("Save\\six.fen"));
    program.Command(IDM_POSITION_LOAD);
    program.Answer("Save current game?", IDNO);
    dialog = program.WaitForDialog("Load position");
    Check(Join(program.Rows(GetDlgItem(dialog, IDC_LOAD_LIST))) == "six.fen", "position files listed");
    Check(PreviewShows(program, dialog, 0, sixth), "the preview shows the position");
    PostMessageA(dialog, WM_COMMAND, MAKEWPARAM(IDC_LOAD_LIST, LBN_DBLCLK),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDC_LOAD_LIST)));
    Check(program.WaitUntil([dialog] { return !IsWindowVisible(dialog); }, ShortWait, "Load position"),
          "a double click loads");
    program.ExpectBoard(board, sixth, "the loaded position on the board");
    Check(program.Rows() == std::vector<std::string>{" 0."}, "the loaded position stands alone in the list");
    program.Play(board, "d2d3");
    Check(program.Close(false) == 0, "a loaded position asks nothing at close");
}

void SetUpAndAnalyse() {
    const Board board{LoadSkin(0, 64)};
    Program program;
    program.Start();
    program.Command(IDM_POSITION_SET);
    Check(program.WaitUntil([&] { return program.Rows() == PaletteRows; }), "Set shows the palette");
    program.ExpectBoard(board, "8/8/8/8/8/8/8/8", "Set empties the board");
    program.ClickRow(PaletteWhiteMove);
    program.Answer("Kings are not found!");
    Check(program.Rows() == PaletteRows, "a refused set-up stays");
    program.Place(board, PaletteKing, "e1", "e8");
    program.Place(board, PaletteRook, "h1");
    program.Place(board, PalettePawn, "e2 a1", "d7");
    const std::string begin = "4k3/3p4/8/8/8/8/4P3/4K2R";
    program.ExpectBoard(board, begin,
                        "the play button places White's pieces, the other Black's, no pawn on the edge");
    program.ClickRow(PaletteBlackMove);
    Check(program.WaitUntil([&] { return program.Rows() == std::vector<std::string>{" 0."}; }),
          "analysis begins");
    program.Command(IDM_POSITION_SAVE);
    program.SaveAs("Save position", "begin", "Position saved");
    Check(ReadWholeFile("Save\\begin.fen") == begin + " b - - 0 0\"",
          "the begin position saved byte for byte", ReadWholeFile("Save\\begin.fen"));
    program.Play(board, "d7d5 e2e4");
    program.ClickRow(1);
    program.ExpectBoard(board, AfterMoves(begin, "d7d5"), "a click on row 1 shows its position", "d7d5");
    program.Play(board, "e2e3");
    Check(program.Rows().size() == 3 && program.Rows()[2].find("e2-e3") != std::string::npos,
          "a move from row 1 takes the analysis on from there", Join(program.Rows()));
    Check(program.Close(false, IDM_EXIT) == 0, "begin position saved: Exit asks nothing");
}

} // namespace e2e
