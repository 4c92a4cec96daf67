// Fuzz target for the settings file reader: any bytes the file may hold must give settings within
// their ranges, which the writer writes and the reader reads back to the same settings.
#include <cstdint>
#include <cstring>
#include <initializer_list>

#include "records/settings_file.h"
#include "fuzz/require.h"

namespace {

// A skin file name is written as it stands, so one with a blank or a quote at its ends (which a
// zero byte dropped from a binary file can bring there) reads back trimmed or unquoted.
bool WritesBackAsItStands(const Text& name) {
    return !std::strchr(" \t\r\n\"'", name.CharAt(0)) &&
           !std::strchr(" \t\r\n", name.CharAt(name.Length() - 1));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    DisplaySettings read;
    ParseSettingsText(reinterpret_cast<const char*>(data), static_cast<std::int32_t>(size), read);
    for (const std::int32_t flag :
         {read.showLegalMoves, read.showCheck, read.showLastMove, read.showCoordinates, read.whiteOnTop,
          read.showMovesList, read.showAiProgress, read.beepAfterMove})
        Require(flag == 0 || flag == 1);
    Require(read.boardScale == 75 || read.boardScale == 100);
    Require(read.backgroundColor <= 0xFFFFFF && read.inkColor <= 0xFFFFFF);
    Require(read.skinNumber >= 0 && read.skinNumber <= 6);

    const Text written = SettingsFileText(read);
    DisplaySettings again;
    ParseSettingsText(written.Chars(), written.Length(), again);
    Require(SettingsFileText(again).Equals(written.Chars()) || !WritesBackAsItStands(read.skinFileName));
    return 0;
}
