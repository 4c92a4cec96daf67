// The settings file on disk: its name from the login name, reading it whole at start and
// writing it whole at the end; the text itself is made and parsed by records/settings_file.
#include <windows.h>

#include <vector>

#include "records/settings.h"
#include "records/settings_file.h"
#include "shell/shell_parts.h"
#include "shell/shell_state.h"

namespace {

// A settings file is about 340 bytes; anything far larger is not one.
constexpr DWORD MaxSettingsBytes = 0x100000;

// The whole file as text; empty when there is none, which gives the defaults.
Text ReadWholeFile(const char* path) {
    Text text;
    const HANDLE file = CreateFileA(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return text;
    const DWORD size = GetFileSize(file, nullptr);
    if (size != INVALID_FILE_SIZE && size > 0 && size < MaxSettingsBytes) {
        std::vector<char> bytes(size + 1, 0);
        DWORD read = 0;
        // The profile format has no zero bytes; a stray one simply ends the text.
        if (ReadFile(file, bytes.data(), size, &read, nullptr)) text = Text(bytes.data());
    }
    CloseHandle(file);
    return text;
}

} // namespace

// Gives the settings file of this login name its tag.
void MakeUserTag() {
    WCHAR name[257] = L"";
    DWORD length = 257;
    if (!GetUserNameW(name, &length)) length = 1;
    // The length counts the terminating zero.
    displaySettings.userTag =
        UserTagFromName(reinterpret_cast<const std::uint16_t*>(name), static_cast<std::int32_t>(length) - 1);
}

// The settings file in the current folder, by its full path.
Text SettingsPath() {
    char folder[MAX_PATH + 1] = "";
    GetCurrentDirectoryA(MAX_PATH, folder);
    Text path(folder);
    path.AppendChar('\\');
    path.AppendText(SettingsFileName(displaySettings.userTag));
    return path;
}

// Reads the settings, shows or hides the moves list by them and makes the background brush.
void ReadSettings(const char* path) {
    const Text text = ReadWholeFile(path);
    ParseSettingsText(text.Chars(), text.Length(), displaySettings);
    ShowWindow(shellState.movesListWindow, displaySettings.showMovesList ? SW_SHOW : SW_HIDE);
    shellState.backgroundBrush = CreateSolidBrush(displaySettings.backgroundColor);
}

// Writes the settings file anew, beside the program in the current folder.
void WriteSettings() {
    const Text text = SettingsFileText(displaySettings);
    const Text name = SettingsFileName(displaySettings.userTag);
    const HANDLE file =
        CreateFileA(name.Chars(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return;
    DWORD written = 0;
    WriteFile(file, text.Chars(), static_cast<DWORD>(text.Length()), &written, nullptr);
    CloseHandle(file);
}
