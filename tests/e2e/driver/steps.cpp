// Shared steps of the scenarios, written as a user's actions on the program's windows, with the
// checks that each step's immediate effect is what the user would see.
#include "steps.h"

#include <windows.h>

#include "report.h"

namespace e2e {

namespace {

constexpr const char* ComputerName = "Computer {Velok-3}";

// Sets one side's type and name, and checks the name edit follows the type.
void FillSide(Program& program, HWND dialog, int typeId, int nameId, SideRow row, const char* name,
              const char* sideName) {
    program.ChooseRow(dialog, typeId, row);
    std::string shown = program.ControlText(dialog, nameId);
    if (row == RowComputer) {
        Check(shown == ComputerName, std::string(sideName) + " computer's name is fixed",
              "edit holds \"" + shown + "\"");
        return;
    }
    Check(shown != ComputerName, std::string(sideName) + " human's name edit is freed",
          "edit holds \"" + shown + "\"");
    program.SetText(dialog, nameId, name);
}

std::string MenuLook(Program& program, char mnemonic, int entries) {
    std::string look;
    for (bool greyed : program.MenuEntriesGreyed(mnemonic, entries))
        look += greyed ? 'G' : 'e';
    return look;
}

} // namespace

HWND FillNewGameDialog(Program& program, const NewGame& game) {
    program.Command(CommandNewGame);
    HWND dialog = program.WaitForDialog("New game");
    FillSide(program, dialog, WhiteTypeId, WhiteNameId, game.white, game.whiteName, "White");
    FillSide(program, dialog, BlackTypeId, BlackNameId, game.black, game.blackName, "Black");
    bool twoHumans = game.white == RowHuman && game.black == RowHuman;
    Check(IsWindowEnabled(GetDlgItem(dialog, LevelId)) == !twoHumans,
          twoHumans ? "level list disabled for two humans" : "level list enabled against the computer");
    if (!twoHumans) program.ChooseRow(dialog, LevelId, game.level);
    return dialog;
}

void StartNewGame(Program& program, const NewGame& game) {
    program.PressButton(FillNewGameDialog(program, game), IDOK, ClosesDialog);
}

void ClickSquare(Program& program, const BoardView& view, const char* square) {
    POINT centre = SquareCentre(view, square);
    program.Click(centre.x, centre.y);
}

void PlayMove(Program& program, const BoardView& view, const char* move, int rows) {
    char from[3] = {move[0], move[1], '\0'};
    ClickSquare(program, view, from);
    ClickSquare(program, view, move + 2);
    if (!program.WaitForRows(rows, ShortWait))
        Abort(std::string("move ") + move + " is played",
              "the moves list did not reach " + std::to_string(rows) + " rows: " + JoinRows(program.Rows()));
}

HWND MovesList(const Program& program) {
    return GetDlgItem(program.Window(), MovesListId);
}

int SelectedRow(const Program& program) {
    DWORD_PTR row = static_cast<DWORD_PTR>(-1);
    if (!SendMessageTimeoutA(MovesList(program), LB_GETCURSEL, 0, 0, SMTO_NORMAL, 1000, &row)) return -2;
    return static_cast<int>(static_cast<LRESULT>(row));
}

void ClickListRow(Program& program, int row) {
    constexpr int RowHeight = 25;
    const LPARAM at = MAKELPARAM(30, row * RowHeight + RowHeight / 2);
    PostMessageA(MovesList(program), WM_LBUTTONDOWN, MK_LBUTTON, at);
    PostMessageA(MovesList(program), WM_LBUTTONUP, 0, at);
}

std::string GameMenuLook(Program& program) {
    return MenuLook(program, 'g', 4);
}
std::string PositionMenuLook(Program& program) {
    return MenuLook(program, 'p', 3);
}

bool WaitForScreen(Program& program, const std::function<bool(const Image&)>& shows, int limit, Image* last) {
    Image capture;
    bool seen = program.WaitUntil(
        [&] {
            capture = program.CaptureClient();
            return shows(capture);
        },
        limit);
    if (last) *last = capture;
    return seen;
}

std::string FindSettingsFile() {
    WIN32_FIND_DATAA found{};
    HANDLE search = FindFirstFileA("velok-3 {*}.ini", &found);
    if (search == INVALID_HANDLE_VALUE) return "";
    FindClose(search);
    return found.cFileName;
}

std::string ReadWholeFile(const std::string& path) {
    HANDLE file =
        CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return "";
    std::string bytes(GetFileSize(file, nullptr), '\0');
    DWORD read = 0;
    ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
    CloseHandle(file);
    bytes.resize(read);
    return bytes;
}

bool WriteWholeFile(const std::string& path, const std::string& bytes) {
    HANDLE file =
        CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    DWORD written = 0;
    bool ok = WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
              written == bytes.size();
    CloseHandle(file);
    return ok;
}

std::string CrLfLines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\r\n";
    return text;
}

std::string LearnSettingsFileName() {
    Program program;
    program.Start("velok3.exe (to learn the settings file's name)");
    program.Close(AsksNothing);
    std::string name = FindSettingsFile();
    if (name.empty()) Abort("settings file written at exit", "no file velok-3 {*}.ini in the folder");
    return name;
}

std::string FirstDifference(const std::string& expected, const std::string& actual) {
    size_t at = 0;
    while (at < expected.size() && at < actual.size() && expected[at] == actual[at])
        ++at;
    auto excerpt = [at](const std::string& text) {
        std::string shown;
        for (size_t i = at; i < text.size() && i < at + 24; ++i)
            shown += text[i] == '\r'   ? std::string("\\r")
                     : text[i] == '\n' ? std::string("\\n")
                                       : std::string(1, text[i]);
        return "\"" + shown + "\"";
    };
    return "at byte " + std::to_string(at) + " expected " + excerpt(expected) + ", found " + excerpt(actual) +
           " (" + std::to_string(expected.size()) + " bytes expected, " + std::to_string(actual.size()) +
           " found)";
}

std::string JoinRows(const std::vector<std::string>& rows) {
    std::string joined;
    for (const std::string& row : rows)
        joined += (joined.empty() ? "" : "|") + row;
    return joined;
}

} // namespace e2e
