// The program's stock skin, read from velok3.exe itself, so that the driver knows every tile the
// board may show without a copy of the artwork.
#pragma once

#include "image.h"

namespace e2e {

struct ProgramSkin {
    Image full;         // 640 by 448, the tiles at scale 100
    Image threeQuarter; // the first 480 by 336 pixels hold the tiles at scale 75
};

// Loads bitmap 133 of the exe and scales it as the program does (HALFTONE StretchBlt onto a
// canvas of the same bitmap), so that the same Wine code makes the same pixels.
ProgramSkin LoadProgramSkin(const char* exePath);

// The skin with every channel inverted: a file skin that cannot be mistaken for the stock one.
Image InvertedSkin(const Image& skin);

} // namespace e2e
