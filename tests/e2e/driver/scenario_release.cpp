// The release as a user meets it: the folder unpacked from the zip, the manual opened from the
// Help menu, a game with a move, the exit, the settings file beside the program, the example skin.
#include <windows.h>

#include <tlhelp32.h>

#include <algorithm>
#include <cstring>

#include "report.h"
#include "scenarios.h"
#include "steps.h"

namespace e2e {

namespace {

enum ReleaseId : int {
    MainMenuId = 109,
    CommandUserManual = 32776,
    CommandWebSite = 32783,
};

// Names sorted by their lower-case letters, so that the order does not hang on the system's.
std::vector<std::string> Sorted(std::vector<std::string> names) {
    auto lower = [](std::string name) {
        for (char& c : name)
            c = static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
        return name;
    };
    std::sort(names.begin(), names.end(),
              [&](const std::string& a, const std::string& b) { return lower(a) < lower(b); });
    return names;
}

// What the zip unpacks to; folders end in a slash.
const std::vector<std::string> ReleaseFiles =
    Sorted({"velok3.exe", "velok3-uci.exe", "velok-3.chm", "drenu-4.url", "README.txt", "LICENSE-ARTWORK.txt",
            "Save/", "SKIN/"});

// The names in a folder, a sub-folder's with a slash behind it, sorted.
std::vector<std::string> FolderEntries(const std::string& folder) {
    std::vector<std::string> names;
    WIN32_FIND_DATAA found{};
    HANDLE search = FindFirstFileA((folder + "\\*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return names;
    do {
        std::string name = found.cFileName;
        if (name == "." || name == "..") continue;
        names.push_back(name + ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) ? "/" : ""));
    } while (FindNextFileA(search, &found));
    FindClose(search);
    return Sorted(names);
}

std::string Joined(const std::vector<std::string>& names) {
    std::string text;
    for (const auto& name : names)
        text += (text.empty() ? "" : " ") + name;
    return text;
}

// A little-endian number of the file's bytes.
unsigned NumberAt(const std::string& bytes, size_t at, int size) {
    unsigned value = 0;
    for (int i = size - 1; i >= 0; --i)
        value = value << 8 | static_cast<unsigned char>(at + i < bytes.size() ? bytes[at + i] : 0);
    return value;
}

// Why the bytes are not a compiled help file with the manual's start page, or "" when they are:
// the header of version 3 that the Windows help viewer reads, and the page in its directory.
std::string HelpFileFault(const std::string& bytes) {
    if (bytes.compare(0, 4, "ITSF") != 0) return "no ITSF signature";
    if (NumberAt(bytes, 4, 4) != 3) return "version " + std::to_string(NumberAt(bytes, 4, 4)) + ", not 3";
    if (bytes.find("/index.html") == std::string::npos) return "no page /index.html inside";
    if (bytes.find("/images/") == std::string::npos) return "no pictures inside";
    return "";
}

// Why the bytes are not a skin the program can load (24-bit, 640 by 448), or "".
std::string SkinFileFault(const std::string& bytes) {
    if (bytes.size() < 54 || bytes.compare(0, 2, "BM") != 0) return "not a bitmap file";
    unsigned width = NumberAt(bytes, 18, 4), height = NumberAt(bytes, 22, 4), bits = NumberAt(bytes, 28, 2);
    if (width != 640 || height != 448 || bits != 24)
        return std::to_string(width) + " by " + std::to_string(height) + " at " + std::to_string(bits) +
               " bits";
    return "";
}

// The caption of a menu entry, read from the menu resource inside the exe.
std::string MenuCaption(const char* exePath, int command) {
    HMODULE module = LoadLibraryExA(exePath, nullptr, LOAD_LIBRARY_AS_DATAFILE);
    if (!module) return "";
    HMENU menu = LoadMenuA(module, MAKEINTRESOURCEA(MainMenuId));
    char caption[128] = "";
    if (menu) GetMenuStringA(menu, command, caption, sizeof caption, MF_BYCOMMAND);
    if (menu) DestroyMenu(menu);
    FreeLibrary(module);
    return caption;
}

// The address of an Internet shortcut file, from its line "URL=".
std::string ShortcutAddress(const std::string& text) {
    size_t at = text.find("\nURL=");
    if (text.compare(0, 18, "[InternetShortcut]") != 0 || at == std::string::npos) return "";
    size_t end = text.find_first_of("\r\n", at + 5);
    return text.substr(at + 5, end == std::string::npos ? std::string::npos : end - at - 5);
}

// The processes that `parent` started from an exe of this name.
std::vector<DWORD> ChildProcesses(DWORD parent, const char* exeName) {
    std::vector<DWORD> children;
    HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    if (snapshot == INVALID_HANDLE_VALUE) return children;
    PROCESSENTRY32 entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32First(snapshot, &entry); more; more = Process32Next(snapshot, &entry))
        if (entry.th32ParentProcessID == parent && lstrcmpiA(entry.szExeFile, exeName) == 0)
            children.push_back(entry.th32ProcessID);
    CloseHandle(snapshot);
    return children;
}

// Ends processes that the program started and that the job does not take along.
void EndProcesses(const std::vector<DWORD>& ids) {
    for (DWORD id : ids) {
        HANDLE process = OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, id);
        if (!process) continue;
        TerminateProcess(process, 0);
        WaitForSingleObject(process, ShortWait);
        CloseHandle(process);
    }
}

// Checks the unpacked files before the program has run.
void CheckUnpackedFiles() {
    std::vector<std::string> entries = FolderEntries(".");
    Check(entries == ReleaseFiles, "the zip unpacks to the program, manual, shortcut, folders and texts",
          Joined(entries));
    Check(FolderEntries("Save").empty(), "the Save folder is empty", Joined(FolderEntries("Save")));
    Check(FolderEntries("SKIN") == std::vector<std::string>{"Marble.bmp"},
          "the SKIN folder holds the example skin", Joined(FolderEntries("SKIN")));
    std::string skinFault = SkinFileFault(ReadWholeFile("SKIN\\Marble.bmp"));
    Check(skinFault.empty(), "the example skin is a 24-bit bitmap of 640 by 448", skinFault);
    std::string helpFault = HelpFileFault(ReadWholeFile("velok-3.chm"));
    Check(helpFault.empty(), "velok-3.chm is a compiled help file with the manual's pages", helpFault);

    std::string caption = MenuCaption(".\\velok3.exe", CommandWebSite);
    std::string address = ShortcutAddress(ReadWholeFile("drenu-4.url"));
    Check(!caption.empty() && address == "https://" + caption + "/",
          "drenu-4.url points at the address that the Help menu shows",
          "menu \"" + caption + "\", shortcut \"" + address + "\"");
    std::string readme = ReadWholeFile("README.txt");
    Check(readme.find("velok3.exe") != std::string::npos && readme.find("\r\n") != std::string::npos,
          "README.txt names the program, with Windows line ends");
}

// Opens the manual from the Help menu and checks that the help viewer was started on it.
void CheckManualOpens(Program& program) {
    program.Command(CommandUserManual);
    std::vector<DWORD> viewers;
    bool started = program.WaitUntil(
        [&] {
            viewers = ChildProcesses(program.ProcessId(), "hh.exe");
            return !viewers.empty();
        },
        ShortWait * 2);
    Check(started, "Help, User manual starts the help viewer (hh.exe) from the program");
    Sleep(500);
    Screenshot("manual opened");
    EndProcesses(viewers);
}

// Opens the web address from the Help menu and checks that the shortcut reached the shell, whose
// handler of Internet shortcuts under Wine is rundll32.exe; the browser itself is not awaited.
void CheckWebEntryOpens(Program& program) {
    program.Command(CommandWebSite);
    std::vector<DWORD> handlers;
    bool started = program.WaitUntil(
        [&] {
            handlers = ChildProcesses(program.ProcessId(), "rundll32.exe");
            return !handlers.empty();
        },
        ShortWait * 2);
    Check(started, "the web entry of the Help menu hands drenu-4.url to the shell");
    EndProcesses(handlers);
}

// Starts the program with the example skin chosen in the settings file, and checks the board.
void CheckExampleSkin(const std::string& settingsName) {
    std::string settings = ReadWholeFile(settingsName);
    size_t at = settings.find("FILE NAME = \r\n");
    if (at == std::string::npos) Abort("settings file has an empty skin file name", settings);
    settings.replace(at, 14, "FILE NAME = Marble\r\n");
    WriteWholeFile(settingsName, settings);

    HBITMAP bitmap = static_cast<HBITMAP>(
        LoadImageA(nullptr, "SKIN\\Marble.bmp", IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE | LR_CREATEDIBSECTION));
    Image marble = ImageOfBitmap(bitmap);
    DeleteObject(bitmap);
    BoardView view{&marble, 64, false};
    Program program;
    program.Start("velok3.exe with the example skin");
    Image shown;
    bool board = WaitForScreen(
        program,
        [&](const Image& now) { return SquaresDiffering(now, view, Placement(StartPlacement)).empty(); },
        ShortWait, &shown);
    Screenshot("example skin");
    Check(board, "the board shows the example skin from the SKIN folder",
          "squares differing: " + SquaresDiffering(shown, view, Placement(StartPlacement)));
    Check(program.Close(AsksNothing) == 0, "the program with the example skin exits with 0");
}

} // namespace

void ReleaseFolder() {
    CheckUnpackedFiles();
    ProgramSkin skin = LoadProgramSkin(".\\velok3.exe");
    BoardView view{&skin.full, 64, false};

    Program program;
    program.Start("velok3.exe from the release folder");
    CheckManualOpens(program);
    CheckWebEntryOpens(program);
    NewGame game;
    game.black = RowHuman;
    game.whiteName = "Alice";
    game.blackName = "Bob";
    StartNewGame(program, game);
    PlayMove(program, view, "e2e4", 2);
    Check(program.Rows().back() == " 1. e2-e4", "a move is played", JoinRows(program.Rows()));
    program.Command(CommandExit);
    program.ExpectMessage("Save current game?", IDNO);
    Check(program.WaitForExit(ShortWait * 2) == 0, "Game, Exit ends the program with 0");

    std::string settingsName = FindSettingsFile();
    Check(!settingsName.empty(), "the settings file is written beside the program");
    std::vector<std::string> expected = ReleaseFiles;
    expected.push_back(settingsName);
    Check(FolderEntries(".") == Sorted(expected), "nothing but the settings file is added to the folder",
          Joined(FolderEntries(".")));
    if (!settingsName.empty()) CheckExampleSkin(settingsName);
}

} // namespace e2e
