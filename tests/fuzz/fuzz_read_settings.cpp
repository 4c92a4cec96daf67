// Fuzz target for the settings file reader: any bytes the file may hold must give settings within
// their ranges, which the writer writes and the reader reads back to the same settings.
#include <cstdint>
#include <initializer_list>

#include "records/settings_file.h"
#include "fuzz/require.h"

namespace {

// A skin file name is written as it stands, so one that the reader would trim or unquote, which
// no real file name needs, reads back otherwise.
bool WritesBackAsItStands(const Text& name) {
    const char first = name.CharAt(0), last = name.CharAt(name.Length() - 1);
    return first != '"' && first != '\'' && first != ' ' && first != '\t' && last != ' ' && last != '\t' &&
           last != '\r';
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
