// The colours of the selected row of the moves list, worked out from the background and the ink
// so that the selection stands out in either direction, light on dark or dark on light.
#pragma once

#include <cstdint>

struct RowColours {
    std::uint32_t background;
    std::uint32_t ink;
};

// Selected-row colours for a list drawn in `ink` on `background` (both 0xHHMMLL).
constexpr RowColours SelectionColours(std::uint32_t background, std::uint32_t ink) {
    std::int32_t back[3], fore[3];
    for (int k = 0; k < 3; ++k) {
        back[k] = static_cast<std::int32_t>(background >> (16 - 8 * k) & 0xFF);
        fore[k] = static_cast<std::int32_t>(ink >> (16 - 8 * k) & 0xFF);
    }
    // A vote of the three byte positions: is the ink the brighter?
    std::int32_t vote = 0;
    for (int k = 0; k < 3; ++k)
        vote += back[k] < fore[k] ? 1 : -1;
    if (vote > 0) {
        const bool darkBackground = back[0] < 90 && back[1] < 90 && back[2] < 90;
        for (int k = 0; k < 3; ++k) {
            back[k] = darkBackground ? back[k] + 90 : back[k] - back[k] / 4;
            fore[k] += fore[k] >> 2;
            if (fore[k] > 255) fore[k] = 255;
        }
    } else {
        for (int k = 0; k < 3; ++k) {
            back[k] -= back[k] / 5;
            fore[k] -= fore[k] >> 3;
        }
    }
    RowColours colours{0, 0};
    for (int k = 0; k < 3; ++k) {
        colours.background |= static_cast<std::uint32_t>(back[k]) << (16 - 8 * k);
        colours.ink |= static_cast<std::uint32_t>(fore[k]) << (16 - 8 * k);
    }
    return colours;
}
