// The user's display, sound, colour and skin choices, shared by the shell and the engine's
// contact with the window; read from the settings file at start and written back at the end.
#pragma once

#include <cstdint>

#include "records/text.h"

struct DisplaySettings {
    std::int32_t showLegalMoves = 1;
    std::int32_t showCheck = 1;
    std::int32_t showLastMove = 1;
    std::int32_t showCoordinates = 1;
    std::int32_t whiteOnTop = 0;
    std::int32_t showMovesList = 1;
    std::int32_t showAiProgress = 1;
    std::int32_t boardScale = 100;
    std::int32_t beepAfterMove = 1;
    std::uint32_t backgroundColor = 0x808080;
    std::uint32_t inkColor = 0xFFFFFF;
    Text skinFileName;
    std::int32_t skinNumber = 0;
    Text userTag;
};

extern DisplaySettings displaySettings;
