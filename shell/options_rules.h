// The Options dialog's rules that need no window: which skin files join the list, the row chosen
// at opening, the defaults, what OK and Apply take over, and the colour pair picked from a skin.
#pragma once

#include <cstdint>

#include "records/settings.h"
#include "records/text.h"

// The skin list: the stock skins come first, then the files that have the size of a skin.
enum SkinListFacts : std::int32_t {
    StockSkinCount = 7,
    SkinFileWidth = 640,
    SkinFileHeight = 448,
    SkinTilePixels = 64,
};

// The names of the stock skins in the list, in the order of their numbers.
inline constexpr const char* StockSkinNames[StockSkinCount] = {
    "1. Book", "2. Classic", "3. Old", "4. Bright", "5. Modern", "6. Desk", "7. Clear",
};

// The custom colours offered by the colour dialog, the same at every call.
inline constexpr std::uint32_t CustomColours[16] = {
    0x0000FF, 0x0080FF, 0x00FFFF, 0x00FF80, 0x00FF00, 0x80FF00, 0xFFFF00, 0xFF8000,
    0xFF0000, 0xFF0080, 0xFF00FF, 0x8000FF, 0x646464, 0x969696, 0xAFAFAF, 0xC8C8C8,
};

// Everything the dialog lets the user choose; OK and Apply take it over into DisplaySettings.
struct OptionsChoices {
    std::int32_t showLegalMoves, showLastMove, showCheck, showAiProgress;
    std::int32_t showCoordinates, showMovesList, whiteOnTop;
    std::int32_t boardScale, beepAfterMove;
    std::uint32_t background, ink;
    std::int32_t skinRow;
};

// The choices as the settings hold them, with the skin on list row `skinRow`.
inline OptionsChoices ChoicesFromSettings(const DisplaySettings& settings, std::int32_t skinRow) {
    return OptionsChoices{settings.showLegalMoves,  settings.showLastMove,    settings.showCheck,
                          settings.showAiProgress,  settings.showCoordinates, settings.showMovesList,
                          settings.whiteOnTop,      settings.boardScale,      settings.beepAfterMove,
                          settings.backgroundColor, settings.inkColor,        skinRow};
}

// "Set to default": the choices of a user who has never changed anything, first stock skin.
inline OptionsChoices DefaultChoices() {
    return ChoicesFromSettings(DisplaySettings(), 0);
}

// Whether a file found in the skin folder becomes a row: it must really end in ".bmp" (a
// pattern search may also find longer extensions through short names) and have a skin's size.
inline bool IsSkinFile(const char* fileName, std::int32_t width, std::int32_t height) {
    const Text name(fileName);
    const std::int32_t length = name.Length();
    if (length <= 4 || name.CharAt(length - 4) != '.') return false;
    const char* extension = "bmp";
    for (std::int32_t k = 0; k < 3; ++k) {
        const char c = name.CharAt(length - 3 + k);
        if (c != extension[k] && c != extension[k] - 'a' + 'A') return false;
    }
    return width == SkinFileWidth && height == SkinFileHeight;
}

// The row of a skin file: its name without the extension.
inline Text SkinRowName(const char* fileName) {
    Text name(fileName);
    name.Left(name.Length() - 4);
    return name;
}

// The row selected when the dialog opens: the stock skin by number, or the file's row; row 0
// when the number is out of range or the file is no longer in the list.
inline std::int32_t InitialSkinRow(const DisplaySettings& settings, const Text* rows, std::int32_t rowCount) {
    if (settings.skinFileName.Length() == 0)
        return settings.skinNumber >= 0 && settings.skinNumber < StockSkinCount ? settings.skinNumber : 0;
    for (std::int32_t row = StockSkinCount; row < rowCount; ++row)
        if (rows[row].Equals(settings.skinFileName.Chars())) return row;
    return 0;
}

// OK and Apply: the settings take the choices; `skinRowText` is the text of the chosen row,
// which names the file when the row is not a stock skin.
inline void ApplyChoices(const OptionsChoices& choices, const Text& skinRowText, DisplaySettings& settings) {
    settings.showLegalMoves = choices.showLegalMoves;
    settings.showCheck = choices.showCheck;
    settings.showLastMove = choices.showLastMove;
    settings.whiteOnTop = choices.whiteOnTop;
    settings.showCoordinates = choices.showCoordinates;
    settings.showMovesList = choices.showMovesList;
    settings.showAiProgress = choices.showAiProgress;
    settings.beepAfterMove = choices.beepAfterMove;
    settings.boardScale = choices.boardScale == 75 ? 75 : 100;
    settings.inkColor = choices.ink;
    settings.backgroundColor = choices.background;
    if (choices.skinRow < StockSkinCount) {
        settings.skinNumber = choices.skinRow;
        settings.skinFileName = Text();
    } else {
        settings.skinFileName = skinRowText;
        settings.skinNumber = -1;
    }
}

// Byte-by-byte sums of the pixels of one tile, each pixel a colour 0xHHMMLL.
struct TileSums {
    std::uint32_t byte[3] = {0, 0, 0};
    void Add(std::uint32_t colour) {
        for (std::int32_t k = 0; k < 3; ++k)
            byte[k] += colour >> (8 * k) & 0xFF;
    }
};

struct PickedColours {
    std::uint32_t background, ink;
};

// A colour pair from the two empty squares of a skin, each summed over its 64 by 64 pixels: the
// dark square's average darkened by a tenth for the background, the light one's brightened by a
// fifth for the ink. On whole bytes a/10 and a/5 are the truncated tenth and fifth.
inline PickedColours PickColours(const TileSums& dark, const TileSums& light) {
    constexpr std::uint32_t count = SkinTilePixels * SkinTilePixels;
    PickedColours picked{0, 0};
    for (std::int32_t k = 0; k < 3; ++k) {
        const std::uint32_t darkAverage = dark.byte[k] / count, lightAverage = light.byte[k] / count;
        std::uint32_t ink = lightAverage + lightAverage / 5;
        if (ink > 255) ink = 255;
        picked.background |= (darkAverage - darkAverage / 10) << (8 * k);
        picked.ink |= ink << (8 * k);
    }
    return picked;
}
