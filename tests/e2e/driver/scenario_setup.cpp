// Setting up a position by hand: the palette in the moves list, both mouse buttons, the silent
// refusals and the worded ones, the offers to save before set-up, and the analysis that follows.
#include <windows.h>

#include <sstream>

#include "report.h"
#include "scenarios.h"
#include "steps.h"

namespace e2e {

namespace {

enum SetupCommand : int { CommandPositionSave = 32780, CommandPositionSet = 32781 };

enum PaletteRow : int {
    RowPawn = 0,
    RowKnight,
    RowBishop,
    RowRook,
    RowQueen,
    RowKing,
    RowClear,
    RowWhiteMove,
    RowBlackMove,
};

const std::vector<std::string> paletteRows{" Pawn", " Knight",      " Bishop",     " Rook",      " Queen",
                                           " King", " Clear field", " White move", " Black move"};

constexpr int SaveNameId = 1017;
constexpr const char* EmptyBoard = "8/8/8/8/8/8/8/8";

// Panel areas at scale 100, inside the list's frame lines: the upper name, where the mode's name
// stands, and the lower name with the clocks.
constexpr RECT UpperName{532, 84, 700, 116};
constexpr RECT NamesAndClocks[] = {{552, 116, 680, 146}, {532, 406, 700, 436}, {552, 436, 680, 468}};

int InkPixels(const Image& image, const RECT& area) {
    return CountPixelsNear(image, area.left, area.top, area.right - area.left, area.bottom - area.top,
                           RGB(255, 255, 255), 40);
}

// A user at the board in set-up: chooses palette rows with a click on the list and places pieces
// with either button.
class SetupHand {
  public:
    SetupHand(Program& program, const BoardView& view) : program(program), view(view) {}

    // Clicks a row of the moves list with the left button, as a user would.
    void Choose(int row) {
        ClickListRow(program, row);
        chosen = row;
    }

    // Clicks the squares of blank-separated tokens: "Ke1" places a white king with the play
    // button, "ke8" a black one with the other button, "-e2" clears the square. The palette row
    // is chosen first when it changes.
    void Put(const std::string& tokens) {
        std::istringstream words(tokens);
        std::string token;
        while (words >> token) {
            const std::string pieces = "pnbrqk";
            const char letter = token[0];
            const int row =
                letter == '-' ? RowClear : static_cast<int>(pieces.find(static_cast<char>(tolower(letter))));
            if (row != chosen) Choose(row);
            POINT centre = SquareCentre(view, token.c_str() + 1);
            program.Click(centre.x, centre.y,
                          isupper(static_cast<unsigned char>(letter)) || letter == '-' ? WM_LBUTTONUP
                                                                                       : WM_RBUTTONUP);
        }
    }

    // Waits until the board shows exactly the placement of a FEN field.
    bool Shows(const char* placement, Image* last = nullptr) {
        Placement expected(placement);
        Image shown;
        bool seen = WaitForScreen(
            program, [&](const Image& now) { return SquaresDiffering(now, view, expected).empty(); },
            ShortWait, &shown);
        if (!seen) lastDifference = SquaresDiffering(shown, view, expected);
        if (last) *last = shown;
        return seen;
    }

    // A new palette has no row chosen.
    void PaletteRefilled() { chosen = -1; }

    std::string lastDifference;

  private:
    Program& program;
    const BoardView& view;
    int chosen = -1;
};

// Waits for the moves list to hold exactly these rows.
bool WaitForListRows(Program& program, const std::vector<std::string>& rows) {
    return program.WaitUntil([&] { return program.Rows() == rows; }, ShortWait);
}

// Position, Set, when nothing is to be saved: the palette and an empty board.
void EnterSetUp(Program& program, SetupHand& hand) {
    program.Command(CommandPositionSet);
    hand.PaletteRefilled();
    Check(WaitForListRows(program, paletteRows), "Set turns the moves list into the palette",
          JoinRows(program.Rows()));
    Check(SelectedRow(program) == -1, "no palette row is chosen at first");
    Check(hand.Shows(EmptyBoard), "Set empties the board", hand.lastDifference);
}

// Tries to leave set-up by a move row and expects the refusal with its message; the palette, its
// chosen row and the board stay.
void ExpectRefusal(Program& program, SetupHand& hand, int row, const char* message, const char* placement) {
    hand.Choose(row);
    program.ExpectMessage(message, IDOK);
    Check(program.Rows() == paletteRows && SelectedRow(program) == row,
          std::string("after \"") + message + "\" the palette stays with its row chosen");
    Check(hand.Shows(placement), std::string("after \"") + message + "\" the board is unchanged",
          hand.lastDifference);
}

// Leaves set-up by a move row and checks the analysis that begins: one row, the mode's name in
// the panel instead of names and clocks, and the Save entries of analysis.
void ExpectAnalysis(Program& program, const Image& setupLook) {
    Check(WaitForListRows(program, {" 0."}), "a move row that passes leaves the single row \" 0.\"",
          JoinRows(program.Rows()));
    Check(SelectedRow(program) == 0, "row \" 0.\" is selected");
    Image shown;
    bool renamed = WaitForScreen(
        program,
        [&](const Image& now) {
            return InkPixels(now, UpperName) > 10 &&
                   CompareAreas(now, UpperName.left, UpperName.top, setupLook, UpperName.left, UpperName.top,
                                UpperName.right - UpperName.left, UpperName.bottom - UpperName.top, 40)
                           .pixels > 10;
        },
        ShortWait, &shown);
    Check(renamed, "the panel's mode name changes from set-up to analysis");
    int others = 0;
    for (const RECT& area : NamesAndClocks)
        others += InkPixels(shown, area);
    Check(others == 0, "analysis shows no names and no clocks", std::to_string(others) + " ink pixels");
    Check(PositionMenuLook(program) == "eee", "Position Save is enabled in analysis",
          PositionMenuLook(program));
    Check(GameMenuLook(program) == "eeGe", "Game Save stays grey in analysis", GameMenuLook(program));
}

// Answers the save-name dialog with `name` and the message that follows.
void SaveUnder(Program& program, const char* title, const char* name, const char* saved) {
    HWND dialog = program.WaitForDialog(title);
    program.SetText(dialog, SaveNameId, name);
    program.PressButton(dialog, IDOK, ClosesDialog);
    program.ExpectMessage(saved, IDOK);
}

// The number of files that match a pattern.
int CountFiles(const char* pattern) {
    WIN32_FIND_DATAA found{};
    HANDLE search = FindFirstFileA(pattern, &found);
    if (search == INVALID_HANDLE_VALUE) return 0;
    int count = 1;
    while (FindNextFileA(search, &found))
        ++count;
    FindClose(search);
    return count;
}

// A game of two people with one move played, and unsaved.
void StartGameWithOneMove(Program& program, const BoardView& view) {
    NewGame twoPeople;
    twoPeople.black = RowHuman;
    twoPeople.whiteName = "Alice";
    twoPeople.blackName = "Bob";
    StartNewGame(program, twoPeople);
    PlayMove(program, view, "e2e4", 2);
}

// Waits until the board shows the placement with the last move marked: only the squares it left
// and reached differ from plain tiles, and both carry the mark.
bool ShowsAfterMove(Program& program, const BoardView& view, const char* placement, const char* from,
                    const char* to, char piece, std::string& difference) {
    const Placement expected(placement);
    const std::string marked[] = {std::string(from) + " " + to, std::string(to) + " " + from};
    Image shown;
    const bool seen = WaitForScreen(
        program,
        [&](const Image& now) {
            const std::string differing = SquaresDiffering(now, view, expected);
            return (differing == marked[0] || differing == marked[1]) &&
                   ShowsTile(now, view, from, '.', ColumnLastMove) &&
                   ShowsTile(now, view, to, piece, ColumnLastMove);
        },
        ShortWait, &shown);
    difference = SquaresDiffering(shown, view, expected);
    return seen;
}

} // namespace

void SetPositionByHand() {
    ProgramSkin skin = LoadProgramSkin(".\\velok3.exe");
    BoardView view{&skin.full, 64, false};
    Program program;
    program.Start();
    SetupHand hand(program, view);
    EnterSetUp(program, hand);
    Image setupLook = program.CaptureClient();
    Check(InkPixels(setupLook, UpperName) > 10, "the panel names the mode");
    Check(PositionMenuLook(program) == "eeG", "Position Save is grey in set-up", PositionMenuLook(program));
    Check(GameMenuLook(program) == "eeGe", "Game Save is grey in set-up", GameMenuLook(program));

    ClickSquare(program, view, "e4");
    Sleep(300);
    Check(hand.Shows(EmptyBoard), "before a palette row is chosen, a click places nothing",
          hand.lastDifference);

    // Each button places its colour; the same click again takes the piece away, and the other
    // button turns it over.
    hand.Put("Ke1 ke8 Ra1 rh8 Rh1");
    Check(hand.Shows("4k2r/8/8/8/8/8/8/R3K2R"), "the play button places white pieces, the other black ones",
          hand.lastDifference);
    hand.Put("Rh1 ra1");
    Check(hand.Shows("4k2r/8/8/8/8/8/8/r3K3"), "the same click takes a piece away; the other button turns it",
          hand.lastDifference);
    hand.Put("Ra1 Pe2 Pf2 pd7 Pc8 pd1 Qd1");
    Check(hand.Shows("4k2r/3p4/8/8/8/8/4PP2/R2QK3"), "pawns are refused on the edge rows, silently",
          hand.lastDifference);
    hand.Put("-d1 -d4");
    Check(hand.Shows("4k2r/3p4/8/8/8/8/4PP2/R3K3"), "Clear field empties a square", hand.lastDifference);
    Screenshot("position set up");

    hand.Choose(RowBlackMove);
    ExpectAnalysis(program, setupLook);
    Screenshot("analysis begins");

    // Black moves first: a click on a white piece selects nothing.
    ClickSquare(program, view, "e2");
    Sleep(300);
    Check(ShowsTile(program.CaptureClient(), view, "e2", 'P', ColumnPlain), "White cannot move first");
    PlayMove(program, view, "d7d5", 2);
    PlayMove(program, view, "e2e4", 3);
    std::vector<std::string> rows = program.Rows();
    Check(rows[1].find("d7-d5") != std::string::npos && rows[2].find("e2-e4") != std::string::npos,
          "the list holds Black's move, then White's", JoinRows(rows));
    // Only the squares of the last move differ from plain tiles, and they carry its mark.
    Image shown;
    bool moved = WaitForScreen(
        program,
        [&](const Image& now) {
            return SquaresDiffering(now, view, Placement("4k2r/8/8/3p4/4P3/8/5P2/R3K3")) == "e2 e4" &&
                   ShowsTile(now, view, "e2", '.', ColumnLastMove) &&
                   ShowsTile(now, view, "e4", 'P', ColumnLastMove);
        },
        ShortWait, &shown);
    Check(moved, "both moves are on the board, the last one marked",
          SquaresDiffering(shown, view, Placement("4k2r/8/8/3p4/4P3/8/5P2/R3K3")));
    Screenshot("a move for each side");

    program.Command(CommandExit);
    program.ExpectMessage("Save begin position?", IDNO);
    Check(program.WaitForExit(ShortWait * 2) == 0, "after No the program ends with 0");
}

void SetPositionRefusals() {
    ProgramSkin skin = LoadProgramSkin(".\\velok3.exe");
    BoardView view{&skin.full, 64, false};
    Program program;
    program.Start();
    SetupHand hand(program, view);
    EnterSetUp(program, hand);

    // What a game's material allows: eight pawns off the edge rows, one king, two knights, two
    // rooks, one queen and a bishop of each square colour. Everything else here is refused.
    hand.Put(
        "Pa2 Pb2 Pc2 Pd2 Pe2 Pf2 Pg2 Ph2 Pa3 Pc1 Pc8 Ke1 Kd4 Nb1 Ng1 Nc3 Bc1 Be3 Bf1 Ra1 Rh1 Rd3 Qd1 Qe3");
    Check(hand.Shows("8/8/8/8/8/8/PPPPPPPP/RNBQKBNR"),
          "a ninth pawn, an edge-row pawn, a second king, a third knight or rook, a second queen and a "
          "second bishop on one square colour are refused",
          hand.lastDifference);
    Check(program.FindDialog("Velok-3") == nullptr, "refused placings show no message");
    hand.Put("-h2 Nc3 Ne4 Be3");
    Check(hand.Shows("8/8/8/8/8/2N5/PPPPPPP1/RNBQKBNR"),
          "a missing pawn pays for one promoted piece, not two", hand.lastDifference);
    hand.Put("nc3");
    Check(hand.Shows("8/8/8/8/8/2n5/PPPPPPP1/RNBQKBNR"), "the other button turns a piece to Black's colour",
          hand.lastDifference);

    // Set again from set-up asks nothing and starts afresh.
    EnterSetUp(program, hand);
    ExpectRefusal(program, hand, RowWhiteMove, "Kings are not found!", EmptyBoard);
    hand.Put("ke8");
    ExpectRefusal(program, hand, RowWhiteMove, "White king is not found!", "4k3/8/8/8/8/8/8/8");
    hand.Put("ke8 Ke1");
    ExpectRefusal(program, hand, RowBlackMove, "Black king is not found!", "8/8/8/8/8/8/8/4K3");
    hand.Put("ke8");
    ExpectRefusal(program, hand, RowWhiteMove, "Only kings are found!", "4k3/8/8/8/8/8/8/4K3");
    hand.Put("Re2");
    ExpectRefusal(program, hand, RowWhiteMove, "Black king is check!", "4k3/8/8/8/8/8/4R3/4K3");
    hand.Put("re2");
    ExpectRefusal(program, hand, RowBlackMove, "White king is check!", "4k3/8/8/8/8/8/4r3/4K3");
    hand.Put("-e2 Bc1");
    ExpectRefusal(program, hand, RowWhiteMove, "Position error: this game is finished.",
                  "4k3/8/8/8/8/8/8/2B1K3");
    // Black stalemated: finished with Black to move, a game with White to move.
    hand.Put("-c1 -e1 -e8 Kf7 kh8 Qg6");
    ExpectRefusal(program, hand, RowBlackMove, "Position error: this game is finished.",
                  "7k/5K2/6Q1/8/8/8/8/8");
    Screenshot("stalemate refused");
    Image setupLook = program.CaptureClient();
    hand.Choose(RowWhiteMove);
    ExpectAnalysis(program, setupLook);
    PlayMove(program, view, "g6g5", 2);
    Check(program.Rows().back().find("Qg6-g5") != std::string::npos, "White moves first from the set-up",
          JoinRows(program.Rows()));

    program.Command(CommandExit);
    program.ExpectMessage("Save begin position?", IDNO);
    Check(program.WaitForExit(ShortWait * 2) == 0, "the program ends with 0");
}

void SetPositionSave() {
    ProgramSkin skin = LoadProgramSkin(".\\velok3.exe");
    BoardView view{&skin.full, 64, false};
    Program program;
    program.Start();
    SetupHand hand(program, view);

    // A game with a move: Set offers to save it first; Yes saves it under the name given.
    StartGameWithOneMove(program, view);
    program.Command(CommandPositionSet);
    program.ExpectMessage("Save current game?", IDYES);
    SaveUnder(program, "Save game", "first", "Game saved");
    Check(WaitForListRows(program, paletteRows), "after the save, set-up begins", JoinRows(program.Rows()));
    Check(ReadWholeFile("Save\\first.pgn").find("e4") != std::string::npos,
          "the game went to Save\\first.pgn");

    // The begin position of a set-up, saved by Position, Save, byte for byte; after that nothing
    // is left to save, moves in analysis included.
    hand.Put("Ke1 ke8 Rh1 pd7");
    hand.Choose(RowBlackMove);
    Check(WaitForListRows(program, {" 0."}), "the set-up is taken with Black to move",
          JoinRows(program.Rows()));
    program.Command(CommandPositionSave);
    SaveUnder(program, "Save position", "begin", "Position saved");
    std::string begin = ReadWholeFile("Save\\begin.fen");
    std::string expected = "4k3/3p4/8/8/8/8/8/4K2R b - - 0 0\"";
    Check(begin == expected, "Save\\begin.fen holds the begin position", FirstDifference(expected, begin));
    PlayMove(program, view, "d7d5", 2);
    PlayMove(program, view, "h1h5", 3);
    EnterSetUp(program, hand);

    // Moves after a set-up leave its begin position unsaved: No lets it go.
    hand.Put("Ke1 ke8 Qd1");
    hand.Choose(RowWhiteMove);
    Check(WaitForListRows(program, {" 0."}), "the second set-up is taken", JoinRows(program.Rows()));
    PlayMove(program, view, "d1d4", 2);
    program.Command(CommandPositionSet);
    program.ExpectMessage("Save begin position?", IDNO);
    Check(WaitForListRows(program, paletteRows), "after No, set-up begins", JoinRows(program.Rows()));
    Check(CountFiles("Save\\*.fen") == 1, "No writes no file");

    // Yes shows the begin position again and saves it.
    hand.Put("Ka1 kh8 Ra2");
    hand.Choose(RowWhiteMove);
    Check(WaitForListRows(program, {" 0."}), "the third set-up is taken", JoinRows(program.Rows()));
    PlayMove(program, view, "a2a7", 2);
    program.Command(CommandPositionSet);
    program.ExpectMessage("Save begin position?", IDYES);
    HWND dialog = program.WaitForDialog("Save position");
    // The dialog stands over the middle of the board; the squares of the set-up lie outside it.
    bool beginShown = WaitForScreen(
        program,
        [&](const Image& now) {
            return ShowsTile(now, view, "a1", 'K', ColumnPlain) &&
                   ShowsTile(now, view, "a2", 'R', ColumnPlain) &&
                   ShowsTile(now, view, "a7", '.', ColumnPlain) &&
                   ShowsTile(now, view, "h8", 'k', ColumnPlain);
        },
        ShortWait);
    Check(beginShown, "while the name is asked, the board shows the begin position");
    Check(SelectedRow(program) == 0, "and row \" 0.\" is selected");
    program.SetText(dialog, SaveNameId, "again");
    program.PressButton(dialog, IDOK, ClosesDialog);
    program.ExpectMessage("Position saved", IDOK);
    Check(WaitForListRows(program, paletteRows), "after the save, set-up begins", JoinRows(program.Rows()));
    std::string again = ReadWholeFile("Save\\again.fen");
    expected = "7k/8/8/8/8/8/R7/K7 w - - 0 0\"";
    Check(again == expected, "Save\\again.fen holds the begin position", FirstDifference(expected, again));

    // A played game answered No: nothing is written and set-up begins all the same.
    StartGameWithOneMove(program, view);
    program.Command(CommandPositionSet);
    program.ExpectMessage("Save current game?", IDNO);
    Check(WaitForListRows(program, paletteRows), "after No, set-up begins", JoinRows(program.Rows()));
    Check(CountFiles("Save\\*.pgn") == 1, "No writes no game file");

    program.Command(CommandExit);
    Check(program.WaitForExit(ShortWait * 2) == 0, "closing during set-up asks nothing and ends with 0");
}

void SetPositionWithHiddenList() {
    std::string settingsName = LearnSettingsFileName();
    WriteWholeFile(settingsName, CrLfLines({"[SHOW]", "MOVELIST = NO"}));
    ProgramSkin skin = LoadProgramSkin(".\\velok3.exe");
    BoardView view{&skin.full, 64, false};
    Program program;
    program.Start();
    StartGameWithOneMove(program, view);
    std::vector<std::string> rows = program.Rows();

    program.Command(CommandPositionSet);
    program.ExpectMessage(
        "This mode needs <Moves list> to be displayed.\nSelect menu item <Options> and set it.", IDOK);
    Screenshot("set refused without the list");
    Check(program.Rows() == rows, "the game's rows stay", JoinRows(program.Rows()));
    Placement afterMove("rnbqkbnr/pppppppp/8/8/4P3/8/PPPP1PPP/RNBQKBNR");
    Image shown;
    bool kept = WaitForScreen(
        program,
        [&](const Image& now) {
            return SquaresDiffering(now, view, afterMove) == "e2 e4" &&
                   ShowsTile(now, view, "e4", 'P', ColumnLastMove);
        },
        ShortWait, &shown);
    Check(kept, "the game stays on the board, its last move marked",
          SquaresDiffering(shown, view, afterMove));
    PlayMove(program, view, "e7e5", 3);
    Check(program.Close(AsksToSave) == 0, "the game goes on, unsaved, and the program ends with 0");
}

void AnalyseStepBackAndPlayOn() {
    ProgramSkin skin = LoadProgramSkin(".\\velok3.exe");
    BoardView view{&skin.full, 64, false};
    Program program;
    program.Start();
    SetupHand hand(program, view);
    EnterSetUp(program, hand);
    hand.Put("Ke1 ke8 Rh1 pd7 Pe2");
    hand.Choose(RowBlackMove);
    Check(WaitForListRows(program, {" 0."}), "the set-up is taken with Black to move",
          JoinRows(program.Rows()));

    // Row 0 belongs to Black here: White's pawn does not move.
    ClickSquare(program, view, "e2");
    ClickSquare(program, view, "e4");
    Sleep(300);
    Check(program.Rows().size() == 1 && hand.Shows("4k3/3p4/8/8/8/8/4P3/4K2R"),
          "at the first row a white piece cannot move", hand.lastDifference);
    PlayMove(program, view, "d7d5", 2);
    PlayMove(program, view, "e2e4", 3);
    PlayMove(program, view, "d5e4", 4);
    const std::vector<std::string> played = program.Rows();

    // Stepping back shows the row's position and keeps the later rows until a move is made.
    std::string difference;
    hand.Choose(1);
    Check(ShowsAfterMove(program, view, "4k3/8/8/3p4/8/8/4P3/4K2R", "d7", "d5", 'p', difference),
          "row 1 shows the position after Black's first move, marked", difference);
    Check(program.Rows() == played, "stepping back keeps every row", JoinRows(program.Rows()));
    Screenshot("analysis stepped back to row 1");
    hand.Choose(3);
    Check(ShowsAfterMove(program, view, "4k3/8/8/8/4p3/8/8/4K2R", "d5", "e4", 'p', difference),
          "the last row brings the capture back", difference);
    hand.Choose(0);
    Check(hand.Shows("4k3/3p4/8/8/8/8/4P3/4K2R"), "row 0 shows the begin position", hand.lastDifference);

    // A move from an earlier row ends the game there: the rows behind it go.
    hand.Choose(1);
    Check(ShowsAfterMove(program, view, "4k3/8/8/3p4/8/8/4P3/4K2R", "d7", "d5", 'p', difference),
          "row 1 again", difference);
    PlayMove(program, view, "e2e3", 3);
    const std::vector<std::string> rows = program.Rows();
    Check(rows.size() == 3 && rows[2].find("e2-e3") != std::string::npos,
          "playing on from row 1 replaces the later rows", JoinRows(rows));
    Check(ShowsAfterMove(program, view, "4k3/8/8/3p4/8/4P3/8/4K2R", "e2", "e3", 'P', difference),
          "the board follows the new move", difference);
    Screenshot("analysis played on from row 1");

    // Leaving keeps the set-up: its begin position is saved on request.
    program.Command(CommandExit);
    program.ExpectMessage("Save begin position?", IDYES);
    SaveUnder(program, "Save position", "analysed", "Position saved");
    Check(program.WaitForExit(ShortWait * 2) == 0, "the program ends with 0 after the save");
    const std::string saved = ReadWholeFile("Save\\analysed.fen");
    const std::string expected = "4k3/3p4/8/8/8/8/4P3/4K2R b - - 0 0\"";
    Check(saved == expected, "Save\\analysed.fen holds the begin position with Black to move",
          FirstDifference(expected, saved));
}

} // namespace e2e
